#include "graph/picture_state.h"

namespace trendaro {
namespace {

// The settings alone; the index of the curves stands for their data, as each hand-over makes a new one.
GraphProperties settings_of(const GraphProperties& properties) {
  GraphProperties settings = properties;
  settings.XData.reset();
  settings.YData.reset();
  settings.XDataII.reset();
  settings.curve_index.reset();
  settings.curve_fits.reset();
  return settings;
}

}  // namespace

GraphProperties without_moving_parts(const GraphProperties& shown, bool with_limit_lines) {
  GraphProperties still = shown;
  still.CursorPoint = still.CursorSubset = -1;
  if (with_limit_lines) {
    still.VertLineAnnotation.clear();
    still.VertLineAnnotationText.clear();
    still.VertLineAnnotationColor.clear();
    still.VertLineAnnotationType.clear();
  }
  return still;
}

PictureState picture_state(const GraphProperties& painted) {
  return {settings_of(painted), painted.curve_index};
}

bool same_picture(const PictureState& painted, const GraphProperties& properties) {
  const bool same_data = !painted.data.owner_before(properties.curve_index) &&
                         !properties.curve_index.owner_before(painted.data);
  return same_data && painted.settings == settings_of(properties);
}

}  // namespace trendaro
