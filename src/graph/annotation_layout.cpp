#include "graph/annotation_layout.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "graph/axis_layout.h"

namespace trendaro {
namespace {

constexpr f64 kMostOfSide = 0.25;           // of the graph, for a margin
constexpr f64 kSymbolSizes[] = {9, 5, 14};  // medium, small, large; pixels

template <typename T>
T element(const std::vector<T>& list, std::size_t index) {
  return index < list.size() ? list[index] : T{};
}

const LayerLayout* layer_on_show(const GraphLayout& layout, i32 layer) {
  if (layer < 0) return nullptr;
  const auto found = std::find_if(layout.layers.begin(), layout.layers.end(), [&](const LayerLayout& each) {
    return each.layer == static_cast<std::size_t>(layer);
  });
  return found == layout.layers.end() ? nullptr : &*found;
}

const AxisScale& y_scale_of(const LayerLayout& layer) {
  return layer.has_left || !layer.has_right ? layer.left.scale : layer.right.scale;
}

bool is_finite(const PixelPoint& point) {
  return std::isfinite(point.x) && std::isfinite(point.y);
}

// Whether anything between the ends or corners can lie in the area of the layer.
bool touches_its_layer(const PlacedAnnotation& annotation) {
  const PixelRectangle& area = annotation.clip;
  const auto [left, right] = std::minmax(annotation.from.x, annotation.to.x);
  const auto [top, bottom] = std::minmax(annotation.from.y, annotation.to.y);
  return right >= area.x && left <= area.right() && bottom >= area.y && top <= area.bottom();
}

class Placer {
 public:
  Placer(const GraphProperties& shown, const GraphLayout& layout, const TextMeasure& measure)
      : shown_(shown), layout_(layout), measure_(measure) {}

  std::vector<PlacedAnnotation> take() { return std::move(placed_); }

  void add_points() {
    for (std::size_t i = 0; i < shown_.GraphAnnotationType.size(); ++i) {
      const LayerLayout* layer = layer_on_show(layout_, element(shown_.GraphAnnotationAxis, i));
      const i32 kind = shown_.GraphAnnotationType[i];
      if (layer == nullptr || kind < 0 || kind > kLastKind) continue;
      const PixelPoint place{pixel_of(layout_.x_axis.scale, element(shown_.GraphAnnotationX, i)),
                             pixel_of(y_scale_of(*layer), element(shown_.GraphAnnotationY, i))};
      if (is_finite(place)) add_point(i, kind, place, *layer);
    }
  }

  void add_level_lines() {
    for (std::size_t i = 0; i < shown_.HorzLineAnnotation.size(); ++i) {
      const LayerLayout* layer = layer_on_show(layout_, element(shown_.HorzLineAnnotationAxis, i));
      if (layer == nullptr) continue;
      const f64 y = pixel_of(y_scale_of(*layer), shown_.HorzLineAnnotation[i]);
      const PixelRectangle& area = layer->area;
      if (!(y >= area.y - 0.5 && y <= area.bottom() + 0.5)) continue;
      PlacedAnnotation line{AnnotationTable::HorizontalLines, i};
      line.shape = AnnotationShape::Line;
      line.style = element(shown_.HorzLineAnnotationType, i);
      line.color = element(shown_.HorzLineAnnotationColor, i);
      const f64 length = line.style == kTickStyle ? 2 * tick_length(measure_) : area.width;
      line.from = {area.x, y};
      line.to = {area.x + length, y};
      line.clip = area;
      place_level_text(line_text(element(shown_.HorzLineAnnotationText, i)), y, area, line);
      placed_.push_back(std::move(line));
    }
  }

  void add_upright_lines() {
    const f64 top = layout_.layers.front().area.y;
    const f64 bottom = layout_.layers.back().area.bottom();
    const PixelRectangle area{layout_.layers.front().area.x, top, layout_.layers.front().area.width,
                              bottom - top};
    for (std::size_t i = 0; i < shown_.VertLineAnnotation.size(); ++i) {
      const f64 x = pixel_of(layout_.x_axis.scale, shown_.VertLineAnnotation[i]);
      if (!(x >= area.x - 0.5 && x <= area.right() + 0.5)) continue;
      PlacedAnnotation line{AnnotationTable::VerticalLines, i};
      line.shape = AnnotationShape::Line;
      line.style = element(shown_.VertLineAnnotationType, i);
      line.color = element(shown_.VertLineAnnotationColor, i);
      const f64 length = line.style == kTickStyle ? 2 * tick_length(measure_) : area.height;
      line.from = {x, bottom};
      line.to = {x, bottom - length};
      line.clip = {area.x - 4, area.y, area.width + 8, area.height};
      place_upright_text(line_text(element(shown_.VertLineAnnotationText, i)), x, area, line);
      placed_.push_back(std::move(line));
    }
  }

  void add_axis_marks() {
    const PixelRectangle& area = layout_.layers.back().area;
    for (std::size_t i = 0; i < shown_.XAxisAnnotation.size(); ++i) {
      const f64 x = pixel_of(layout_.x_axis.scale, shown_.XAxisAnnotation[i]);
      if (!(x >= area.x && x <= area.right())) continue;
      add_axis_mark(AnnotationTable::XAxis, i, {x, area.bottom()},
                    {x, area.bottom() - 2 * tick_length(measure_)}, area,
                    element(shown_.XAxisAnnotationText, i), element(shown_.XAxisAnnotationColor, i));
    }
    for (const LayerLayout& layer : layout_.layers) add_marks_of(layer);
  }

 private:
  void add_point(std::size_t entry, i32 kind, const PixelPoint& place, const LayerLayout& layer) {
    if (kind == kLineStartKind - 1) return;
    if (begin_with(kind, place)) return;
    const bool symbol = kind <= kLastSymbolKind;
    if (!symbol && !has_begun(kind)) return;
    PlacedAnnotation annotation{AnnotationTable::Points, entry};
    annotation.color = element(shown_.GraphAnnotationColor, entry);
    annotation.clip = layer.area;
    annotation.from = annotation.to = place;
    if (symbol) {
      annotation.shape = kind == 0 ? AnnotationShape::None : AnnotationShape::Symbol;
      annotation.style = kind;
    } else if (kind == kLineEndKind) {
      annotation.shape = AnnotationShape::Line;
      annotation.from = *line_start_;
      annotation.style = style_;
      line_start_.reset();
    } else {
      annotation.shape = kind >= kEllipseKind   ? AnnotationShape::Ellipse
                         : kind >= kRoundedKind ? AnnotationShape::RoundedRectangle
                                                : AnnotationShape::Rectangle;
      annotation.style = (kind - kRectangleKind) % 8;
      if (kind >= kEllipseKind) annotation.style = kind - kEllipseKind;
      annotation.from = *first_corner_;
      annotation.to = *second_corner_;
      first_corner_.reset();
      second_corner_.reset();
    }
    place_point_text(element(shown_.GraphAnnotationText, entry), annotation);
    placed_.push_back(std::move(annotation));
  }

  // Whether the entry only begins a line or a shape, which a later one completes.
  bool begin_with(i32 kind, const PixelPoint& place) {
    if (kind >= kLineStartKind && kind < kLineEndKind) {
      line_start_ = place;
      style_ = kind - kLineStartKind;
      return true;
    }
    if (kind != kFirstCornerKind && kind != kSecondCornerKind) return false;
    (kind == kFirstCornerKind ? first_corner_ : second_corner_) = place;
    return true;
  }

  [[nodiscard]] bool has_begun(i32 kind) const {
    return kind == kLineEndKind ? line_start_.has_value() : first_corner_ && second_corner_;
  }

  // Beside the symbol or the end of the line, above a shape; at the other side where it would leave the
  // layer. What a zoom leaves out has no text either.
  void place_point_text(const std::string& text, PlacedAnnotation& annotation) const {
    if (text.empty() || !touches_its_layer(annotation)) return;
    const f64 height = measure_.height(TextRole::Annotation);
    const f64 width = std::ceil(measure_.width(TextRole::Annotation, text));
    const bool shape = annotation.shape != AnnotationShape::Symbol &&
                       annotation.shape != AnnotationShape::None && annotation.shape != AnnotationShape::Line;
    const f64 left = shape ? std::min(annotation.from.x, annotation.to.x) : annotation.to.x;
    const f64 top = shape ? std::min(annotation.from.y, annotation.to.y) : annotation.to.y;
    const f64 gap = annotation.shape == AnnotationShape::None ? 0 : std::round(height * 0.5);
    PixelRectangle box = shape ? PixelRectangle{left, top - height, width, height}
                               : PixelRectangle{left + gap, top - height / 2, width, height};
    const PixelRectangle& area = annotation.clip;
    if (!shape && box.right() > area.right()) box.x = left - gap - width;
    box.x = std::clamp(box.x, area.x, std::max(area.x, area.right() - width));
    box.y = std::clamp(box.y, area.y, std::max(area.y, area.bottom() - height));
    annotation.text = {text, box, TextRole::Annotation, TextAlignment::Left, false, annotation.color};
  }

  [[nodiscard]] f64 gap() const { return std::round(measure_.height(TextRole::LineAnnotation) * 0.3); }

  void place_level_text(const LineText& words, f64 y, const PixelRectangle& area,
                        PlacedAnnotation& line) const {
    if (words.text.empty()) return;
    const f64 height = measure_.height(TextRole::LineAnnotation);
    const f64 width = std::ceil(measure_.width(TextRole::LineAnnotation, words.text));
    PixelRectangle box{area.right() - gap() - width, y - height, width, height};
    if (box.y < area.y) box.y = y;
    if (words.side == 'L') box = {layout_.room.x - gap() - width, y - height / 2, width, height};
    if (words.side == 'R') box = {layout_.room.right() + gap(), y - height / 2, width, height};
    line.text = {words.text, box, TextRole::LineAnnotation, TextAlignment::Left, false, line.color};
    keep_inside(line.text);
  }

  void place_upright_text(const LineText& words, f64 x, const PixelRectangle& area,
                          PlacedAnnotation& line) const {
    if (words.text.empty()) return;
    const f64 height = measure_.height(TextRole::LineAnnotation);
    const f64 width = std::ceil(measure_.width(TextRole::LineAnnotation, words.text));
    PixelRectangle box{x + gap(), area.y + gap(), width, height};
    if (box.right() > area.right()) box.x = x - gap() - width;
    if (words.side == 'T') box = {x - width / 2, layout_.room.y - gap() - height, width, height};
    if (words.side == 'B') box = {x - width / 2, layout_.room.bottom() + gap(), width, height};
    line.text = {words.text, box, TextRole::LineAnnotation, TextAlignment::Left, false, line.color};
    keep_inside(line.text);
  }

  // A text that is too wide for the margin moves in from the edge of the graph.
  void keep_inside(PlacedText& text) const {
    text.box.x = std::clamp(text.box.x, 0.0, std::max(0.0, layout_.width - text.box.width));
    text.box.y = std::clamp(text.box.y, 0.0, std::max(0.0, layout_.height - text.box.height));
  }

  void add_marks_of(const LayerLayout& layer) {
    const LayerProperties& settings = shown_.layers[layer.layer];
    for (std::size_t i = 0; i < settings.YAxisAnnotation.size(); ++i) {
      const f64 y = pixel_of(y_scale_of(layer), settings.YAxisAnnotation[i]);
      if (!(y >= layer.area.y && y <= layer.area.bottom())) continue;
      add_axis_mark(AnnotationTable::YAxis, i, {layer.area.x, y},
                    {layer.area.x + 2 * tick_length(measure_), y}, layer.area,
                    element(settings.YAxisAnnotationText, i), element(settings.YAxisAnnotationColor, i));
    }
  }

  // A tick into the plot with its text at the end.
  void add_axis_mark(AnnotationTable table, std::size_t entry, PixelPoint from, PixelPoint to,
                     const PixelRectangle& area, const std::string& text, i32 color) {
    PlacedAnnotation mark{table, entry};
    mark.shape = AnnotationShape::Line;
    mark.from = from;
    mark.to = to;
    mark.color = color;
    mark.clip = area;
    if (!text.empty()) {
      const f64 height = measure_.height(TextRole::AxisAnnotation);
      const f64 width = std::ceil(measure_.width(TextRole::AxisAnnotation, text));
      PixelRectangle box = table == AnnotationTable::XAxis
                               ? PixelRectangle{to.x - width / 2, to.y - height, width, height}
                               : PixelRectangle{to.x + gap(), to.y - height / 2, width, height};
      box.x = std::clamp(box.x, area.x, std::max(area.x, area.right() - width));
      box.y = std::clamp(box.y, area.y, std::max(area.y, area.bottom() - height));
      mark.text = {text, box, TextRole::AxisAnnotation, TextAlignment::Left, false, color};
    }
    placed_.push_back(std::move(mark));
  }

  const GraphProperties& shown_;
  const GraphLayout& layout_;
  const TextMeasure& measure_;
  std::vector<PlacedAnnotation> placed_;
  // Of the line or shape that a later entry completes.
  std::optional<PixelPoint> line_start_, first_corner_, second_corner_;
  i32 style_ = 0;
};

f64 margin_width(const std::string& text, f64 side, const TextMeasure& measure) {
  const std::string words = line_text(text).text;
  if (words.empty()) return 0;
  const f64 gap = std::round(measure.height(TextRole::LineAnnotation) * 0.6);
  return std::min(std::ceil(measure.width(TextRole::LineAnnotation, words)) + gap, side * kMostOfSide);
}

f64 margin_height(const std::string& text, f64 side, const TextMeasure& measure) {
  if (line_text(text).text.empty()) return 0;
  return std::min(std::round(measure.height(TextRole::LineAnnotation) * 1.6), side * kMostOfSide);
}

}  // namespace

LineText line_text(const std::string& text) {
  constexpr std::string_view sides = "LRTB";
  if (text.size() < 2) return {text};
  if (text[0] == '|' && sides.find(text[1]) != std::string_view::npos) return {text.substr(2), text[1]};
  if (text[text.size() - 2] == '|' && sides.find(text.back()) != std::string_view::npos)
    return {text.substr(0, text.size() - 2), text.back()};
  return {text};
}

f64 annotation_symbol_size(i32 kind) {
  return kSymbolSizes[std::clamp((kind - 1) / kSymbolsOfASize, 0, 2)];
}

std::vector<PlacedAnnotation> place_annotations(const GraphProperties& shown, const GraphLayout& layout,
                                                const TextMeasure& measure) {
  if (!shown.ShowAnnotations || !layout.has_axes) return {};
  Placer placer(shown, layout, measure);
  placer.add_level_lines();
  placer.add_upright_lines();
  placer.add_points();
  placer.add_axis_marks();
  return placer.take();
}

void place_margins(const GraphProperties& shown, const TextMeasure& measure, PixelRectangle& room) {
  const f64 left = margin_width(shown.LeftMargin, room.width, measure);
  const f64 right = margin_width(shown.RightMargin, room.width, measure);
  const f64 top = margin_height(shown.TopMargin, room.height, measure);
  const f64 bottom = margin_height(shown.BottomMargin, room.height, measure);
  room = {room.x + left, room.y + top, room.width - left - right, room.height - top - bottom};
}

}  // namespace trendaro
