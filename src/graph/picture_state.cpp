#include "graph/picture_state.h"

namespace trendaro {
namespace {

void drop_annotations(GraphProperties& settings) {
  settings.ShowAnnotations = false;
  settings.GraphAnnotationType.clear();
  settings.GraphAnnotationX.clear();
  settings.GraphAnnotationY.clear();
  settings.GraphAnnotationText.clear();
  settings.GraphAnnotationColor.clear();
  settings.GraphAnnotationAxis.clear();
  settings.HorzLineAnnotation.clear();
  settings.HorzLineAnnotationText.clear();
  settings.HorzLineAnnotationColor.clear();
  settings.HorzLineAnnotationType.clear();
  settings.HorzLineAnnotationAxis.clear();
  settings.VertLineAnnotation.clear();
  settings.VertLineAnnotationText.clear();
  settings.VertLineAnnotationColor.clear();
  settings.VertLineAnnotationType.clear();
  settings.XAxisAnnotation.clear();
  settings.XAxisAnnotationText.clear();
  settings.XAxisAnnotationColor.clear();
  for (LayerProperties& layer : settings.layers) {
    layer.YAxisAnnotation.clear();
    layer.YAxisAnnotationText.clear();
    layer.YAxisAnnotationColor.clear();
  }
}

// The settings alone; the index of the curves stands for their data, as each hand-over makes a new one.
GraphProperties settings_of(const GraphProperties& properties) {
  GraphProperties settings = properties;
  settings.XData.reset();
  settings.YData.reset();
  settings.XDataII.reset();
  settings.curve_index.reset();
  settings.curve_fits.reset();
  settings.CursorPoint = settings.CursorSubset = -1;
  for (TableProperties& table : settings.tables) table.cells.clear();
  drop_annotations(settings);
  return settings;
}

}  // namespace

PictureState picture_state(const GraphProperties& painted) {
  return {settings_of(painted), table_extents(painted), painted.curve_index};
}

bool same_picture(const PictureState& painted, const GraphProperties& properties) {
  const bool same_data = !painted.data.owner_before(properties.curve_index) &&
                         !properties.curve_index.owner_before(painted.data);
  return same_data && painted.tables == table_extents(properties) &&
         painted.settings == settings_of(properties);
}

}  // namespace trendaro
