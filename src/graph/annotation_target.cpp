#include "graph/annotation_target.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "graph/annotation_layout.h"
#include "graph/pixel_conversion.h"
#include "graph/rubber_band.h"

namespace trendaro {
namespace {

constexpr f64 kReach = 6;  // pixels

// The value at an index, or `other` where the list is shorter.
template <typename T>
T at_or(const std::vector<T>& list, std::size_t index, T other) {
  return index < list.size() ? list[index] : other;
}

// The place of values in a layer, whose annotations count on its right axis where no curve hangs on the left
// one. Nothing where the layer is not on show.
std::optional<GraphPlace> place_in_layer(const GraphLayout& layout, i32 layer, f64 x, f64 y) {
  const auto found = std::find_if(layout.layers.begin(), layout.layers.end(), [&](const LayerLayout& each) {
    return static_cast<i32>(each.layer) == layer;
  });
  if (found == layout.layers.end()) return std::nullopt;
  return GraphPlace{x, y, static_cast<i16>(layer), !found->has_left && found->has_right};
}

std::optional<PixelPoint> point_place(const GraphProperties& shown, const GraphLayout& layout,
                                      std::size_t entry) {
  if (entry >= shown.GraphAnnotationX.size()) return std::nullopt;
  const auto place = place_in_layer(layout, at_or(shown.GraphAnnotationAxis, entry, 0),
                                    shown.GraphAnnotationX[entry], at_or(shown.GraphAnnotationY, entry, 0.0));
  if (!place) return std::nullopt;
  const PixelPoint pixel = PEconvpixeltograph(layout, *place);
  if (!std::isfinite(pixel.x) || !std::isfinite(pixel.y)) return std::nullopt;
  return pixel;
}

f64 distance_to_shape(PixelPoint place, PixelPoint corner, PixelPoint opposite) {
  const PixelPoint across{opposite.x, corner.y};
  const PixelPoint below{corner.x, opposite.y};
  return std::min({distance_to_line(place, corner, across), distance_to_line(place, across, opposite),
                   distance_to_line(place, opposite, below), distance_to_line(place, below, corner)});
}

// How far the annotation that entry completes is drawn from the place.
f64 distance_of_entry(const GraphProperties& shown, const GraphLayout& layout, std::size_t entry,
                      PixelPoint place) {
  const i32 kind = at_or(shown.GraphAnnotationType, entry, 0);
  const auto here = point_place(shown, layout, entry);
  const auto former = entry >= 1 ? point_place(shown, layout, entry - 1) : std::nullopt;
  if (kind < kLineStartKind) return here ? std::hypot(place.x - here->x, place.y - here->y) : kReach + 1;
  if (kind == kLineEndKind) return here && former ? distance_to_line(place, *former, *here) : kReach + 1;
  if (kind < kRectangleKind || entry < 2) return kReach + 1;
  const auto first = point_place(shown, layout, entry - 2);
  const bool corners = at_or(shown.GraphAnnotationType, entry - 2, 0) == kFirstCornerKind &&
                       at_or(shown.GraphAnnotationType, entry - 1, 0) == kSecondCornerKind;
  return corners && first && former ? distance_to_shape(place, *first, *former) : kReach + 1;
}

GraphTarget point_annotation_at(const GraphProperties& shown, const GraphLayout& layout, PixelPoint place) {
  for (std::size_t entry = shown.GraphAnnotationX.size(); entry-- > 0;)
    if (distance_of_entry(shown, layout, entry, place) <= kReach)
      return {TargetKind::PointAnnotation, static_cast<i32>(entry)};
  return {};
}

GraphTarget horizontal_line_at(const GraphProperties& shown, const GraphLayout& layout, PixelPoint place) {
  for (std::size_t entry = shown.HorzLineAnnotation.size(); entry-- > 0;) {
    const i32 number = at_or(shown.HorzLineAnnotationAxis, entry, 0);
    const auto line =
        place_in_layer(layout, number, layout.x_axis.scale.minimum, shown.HorzLineAnnotation[entry]);
    if (!line) continue;
    const LayerLayout& layer = layout.layers[slot_at(layout, place.y)];
    const bool same_layer = static_cast<i32>(layer.layer) == number;
    if (same_layer && std::abs(PEconvpixeltograph(layout, *line).y - place.y) <= kReach)
      return {TargetKind::HorzLine, static_cast<i32>(entry)};
  }
  return {};
}

GraphTarget vertical_line_at(const GraphProperties& shown, const GraphLayout& layout, PixelPoint place) {
  for (std::size_t entry = shown.VertLineAnnotation.size(); entry-- > 0;)
    if (std::abs(pixel_of(layout.x_axis.scale, shown.VertLineAnnotation[entry]) - place.x) <= kReach)
      return {TargetKind::VertLine, static_cast<i32>(entry)};
  return {};
}

}  // namespace

f64 distance_to_line(PixelPoint place, PixelPoint from, PixelPoint to) {
  const f64 across = to.x - from.x;
  const f64 down = to.y - from.y;
  const f64 square = across * across + down * down;
  const f64 part =
      square > 0 ? std::clamp(((place.x - from.x) * across + (place.y - from.y) * down) / square, 0.0, 1.0)
                 : 0;
  return std::hypot(from.x + part * across - place.x, from.y + part * down - place.y);
}

GraphTarget annotation_at(const GraphProperties& shown, const GraphLayout& layout, PixelPoint place) {
  if (!shown.ShowAnnotations || !layout.has_axes) return {};
  GraphTarget target = point_annotation_at(shown, layout, place);
  if (target.kind == TargetKind::None) target = horizontal_line_at(shown, layout, place);
  if (target.kind == TargetKind::None) target = vertical_line_at(shown, layout, place);
  return target;
}

}  // namespace trendaro
