#include "graph/annotation_target.h"

#include <algorithm>
#include <cmath>

#include "graph/annotation_layout.h"

namespace trendaro {
namespace {

constexpr f64 kReach = 6;         // pixels
constexpr f64 kTextReach = 1;     // around the box of a text
constexpr f64 kWidestPart = 0.6;  // of a symbol's size, from its centre

// Where texts cannot be measured they have no size.
class NoMeasure : public TextMeasure {
 public:
  [[nodiscard]] f64 width(TextRole, std::string_view) const override { return 0; }
  [[nodiscard]] f64 height(TextRole) const override { return 0; }
};

bool lies_in(const PixelRectangle& box, PixelPoint place, f64 reach) {
  return place.x >= box.x - reach && place.x <= box.right() + reach && place.y >= box.y - reach &&
         place.y <= box.bottom() + reach;
}

PixelRectangle frame_of(const PlacedAnnotation& shape) {
  const f64 x = std::min(shape.from.x, shape.to.x);
  const f64 y = std::min(shape.from.y, shape.to.y);
  return {x, y, std::abs(shape.to.x - shape.from.x), std::abs(shape.to.y - shape.from.y)};
}

f64 distance_to_frame(PixelPoint place, const PixelRectangle& frame) {
  const PixelPoint corners[] = {{frame.x, frame.y},
                                {frame.right(), frame.y},
                                {frame.right(), frame.bottom()},
                                {frame.x, frame.bottom()}};
  f64 least = distance_to_line(place, corners[3], corners[0]);
  for (std::size_t i = 0; i < 3; ++i)
    least = std::min(least, distance_to_line(place, corners[i], corners[i + 1]));
  return least;
}

// Along the ray from the centre, which is never shorter than the distance itself. A flat ellipse is a line.
f64 distance_to_ellipse(PixelPoint place, const PixelRectangle& frame) {
  const f64 half_width = frame.width / 2;
  const f64 half_height = frame.height / 2;
  if (half_width < 1 || half_height < 1) return distance_to_frame(place, frame);
  const f64 across = place.x - frame.x - half_width;
  const f64 down = place.y - frame.y - half_height;
  const f64 part = std::hypot(across / half_width, down / half_height);
  return part > 0 ? std::abs(1 - 1 / part) * std::hypot(across, down) : std::min(half_width, half_height);
}

bool is_inside(const PlacedAnnotation& shape, const PixelRectangle& frame, PixelPoint place) {
  if (shape.shape != AnnotationShape::Ellipse) return lies_in(frame, place, 0);
  return std::hypot((place.x - frame.x) / frame.width * 2 - 1, (place.y - frame.y) / frame.height * 2 - 1) <=
         1;
}

bool is_at_shape(const PlacedAnnotation& shape, PixelPoint place) {
  const PixelRectangle frame = frame_of(shape);
  if (shape.style >= kFilledShape && is_inside(shape, frame, place)) return true;
  const bool ellipse = shape.shape == AnnotationShape::Ellipse;
  return (ellipse ? distance_to_ellipse(place, frame) : distance_to_frame(place, frame)) <= kReach;
}

bool is_at_stroke(const PlacedAnnotation& annotation, PixelPoint place) {
  const f64 distance = std::hypot(place.x - annotation.from.x, place.y - annotation.from.y);
  switch (annotation.shape) {
    case AnnotationShape::None:
      return distance <= kReach;
    case AnnotationShape::Symbol:
      return distance <= std::max(kReach, annotation_symbol_size(annotation.style) * kWidestPart);
    case AnnotationShape::Line:
      return distance_to_line(place, annotation.from, annotation.to) <= kReach;
    default:
      return is_at_shape(annotation, place);
  }
}

bool is_at(const PlacedAnnotation& annotation, PixelPoint place) {
  const PlacedText& text = annotation.text;
  if (text.box.width > 0 && lies_in(text.box, place, kTextReach)) return true;
  return lies_in(annotation.clip, place, 0) && is_at_stroke(annotation, place);
}

GraphTarget last_at(const std::vector<PlacedAnnotation>& placed, AnnotationTable table, TargetKind kind,
                    PixelPoint place) {
  for (auto each = placed.rbegin(); each != placed.rend(); ++each)
    if (each->table == table && is_at(*each, place)) return {kind, static_cast<i32>(each->entry)};
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

GraphTarget annotation_at(const GraphProperties& shown, const GraphLayout& layout, const TextMeasure* measure,
                          PixelPoint place) {
  const NoMeasure none;
  const auto placed = place_annotations(shown, layout, measure != nullptr ? *measure : none);
  GraphTarget target = last_at(placed, AnnotationTable::Points, TargetKind::PointAnnotation, place);
  if (target.kind == TargetKind::None)
    target = last_at(placed, AnnotationTable::HorizontalLines, TargetKind::HorzLine, place);
  if (target.kind == TargetKind::None)
    target = last_at(placed, AnnotationTable::VerticalLines, TargetKind::VertLine, place);
  return target;
}

}  // namespace trendaro
