#include "interact/annotation_tables.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "app/model.h"
#include "graph/graph_surface.h"

namespace trendaro {
namespace {

enum AnnotationType : u8 {
  kSymbol,
  kHorizontalLine,
  kVerticalLine,
  kXAxisMark,
  kYAxisMark,
  kLine,
  kRectangle,
  kRoundedRectangle,
  kEllipse,
};

// What the graph draws at an entry of the point table. Line styles are added to the bases.
constexpr i32 kLineStart = 38;
constexpr i32 kLineEnd = 45;
constexpr i32 kFirstCorner = 46;
constexpr i32 kSecondCorner = 47;
constexpr std::array<i32, 3> kShapeBases = {48, 56, 64};  // rectangle, rounded, ellipse

// Of the ten styles, "Gitter Tick" and "Gitter Linie" are those of whole lines, and "Ausgefüllt" fills
// shapes.
constexpr i32 kLastStroke = 6;
constexpr i32 kFilled = 9;
constexpr i32 kShapeFill = 7;  // behind a base

constexpr i32 kTextSize = 80;  // percent

void clear_tables(GraphProperties& graph) {
  const auto clear = [](auto&... tables) { (tables.clear(), ...); };
  clear(graph.GraphAnnotationType, graph.GraphAnnotationX, graph.GraphAnnotationY, graph.GraphAnnotationText,
        graph.GraphAnnotationColor, graph.GraphAnnotationAxis);
  clear(graph.HorzLineAnnotation, graph.HorzLineAnnotationText, graph.HorzLineAnnotationColor,
        graph.HorzLineAnnotationType, graph.HorzLineAnnotationAxis);
  clear(graph.VertLineAnnotation, graph.VertLineAnnotationText, graph.VertLineAnnotationColor,
        graph.VertLineAnnotationType);
  clear(graph.XAxisAnnotation, graph.XAxisAnnotationText, graph.XAxisAnnotationColor);
  for (LayerProperties& layer : graph.layers)
    clear(layer.YAxisAnnotation, layer.YAxisAnnotationText, layer.YAxisAnnotationColor);
}

struct Point {
  f64 x, y;
};

Point point_of(const AnnotationRecord& record, std::size_t number) {
  return {record.X[number], record.Y[number]};
}

void add_point(GraphProperties& graph, i32 kind, Point place, i32 axis, const std::string& text, i32 color) {
  graph.GraphAnnotationType.push_back(kind);
  graph.GraphAnnotationX.push_back(place.x);
  graph.GraphAnnotationY.push_back(place.y);
  graph.GraphAnnotationText.push_back(text);
  graph.GraphAnnotationColor.push_back(color);
  graph.GraphAnnotationAxis.push_back(axis);
}

void add_horizontal_line(GraphProperties& graph, const AnnotationRecord& record, i32 axis) {
  graph.HorzLineAnnotation.push_back(record.Y[0]);
  graph.HorzLineAnnotationText.push_back(record.Text);
  graph.HorzLineAnnotationColor.push_back(record.Color);
  graph.HorzLineAnnotationType.push_back(record.LineStyle);
  graph.HorzLineAnnotationAxis.push_back(axis);
}

void add_vertical_line(GraphProperties& graph, const AnnotationRecord& record) {
  graph.VertLineAnnotation.push_back(record.X[0]);
  graph.VertLineAnnotationText.push_back(record.Text);
  graph.VertLineAnnotationColor.push_back(record.Color);
  graph.VertLineAnnotationType.push_back(record.LineStyle);
}

void add_x_mark(GraphProperties& graph, const AnnotationRecord& record) {
  graph.XAxisAnnotation.push_back(record.X[0]);
  graph.XAxisAnnotationText.push_back(record.Text);
  graph.XAxisAnnotationColor.push_back(record.Color);
}

void add_y_mark(GraphProperties& graph, const AnnotationRecord& record, i32 axis) {
  if (axis < 0 || static_cast<std::size_t>(axis) >= graph.layers.size()) return;
  LayerProperties& layer = graph.layers[static_cast<std::size_t>(axis)];
  layer.YAxisAnnotation.push_back(record.Y[0]);
  layer.YAxisAnnotationText.push_back(record.Text);
  layer.YAxisAnnotationColor.push_back(record.Color);
}

// The kind's distance from its base. The bases lie too close for ten styles: those beyond the strokes would
// turn into the next kind, so that they count as "Normal".
i32 line_style(i16 style) {
  return style >= 0 && style <= kLastStroke ? style : 0;
}

i32 shape_style(i16 style) {
  return style == kFilled ? kShapeFill : line_style(style);
}

// The entry that carries text and colour is the last one of its shape.
void add_line(GraphProperties& graph, const AnnotationRecord& record, i32 axis) {
  add_point(graph, kLineStart + line_style(record.LineStyle), point_of(record, 0), axis, "", 0);
  add_point(graph, kLineEnd, point_of(record, 1), axis, record.Text, record.Color);
}

void add_shape(GraphProperties& graph, const AnnotationRecord& record, i32 axis) {
  const i32 base = kShapeBases[static_cast<std::size_t>(record.Type - kRectangle)];
  add_point(graph, kFirstCorner, point_of(record, 0), axis, "", 0);
  add_point(graph, kSecondCorner, point_of(record, 1), axis, "", 0);
  add_point(graph, base + shape_style(record.LineStyle), point_of(record, 1), axis, record.Text,
            record.Color);
}

void add_annotation(GraphProperties& graph, const AnnotationRecord& record, i32 axis) {
  switch (record.Type) {
    case kSymbol:
      return add_point(graph, record.Symbol, point_of(record, 0), axis, record.Text, record.Color);
    case kHorizontalLine:
      return add_horizontal_line(graph, record, axis);
    case kVerticalLine:
      return add_vertical_line(graph, record);
    case kXAxisMark:
      return add_x_mark(graph, record);
    case kYAxisMark:
      return add_y_mark(graph, record, axis);
    case kLine:
      return add_line(graph, record, axis);
    case kRectangle:
    case kRoundedRectangle:
    case kEllipse:
      return add_shape(graph, record, axis);
    default:
      return;
  }
}

std::size_t characters(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

// The texts that are to stand on one side of the graph are told by the sign that they carry.
void widen_margin(std::string& margin, const std::vector<std::string>& texts, std::string_view sign) {
  for (const std::string& text : texts)
    if (text.find(sign) != std::string::npos && characters(text) > characters(margin)) margin = text;
}

}  // namespace

void RebuildAnnotations(const Model& model, GraphSurface& surface) {
  GraphProperties& graph = surface.pending;
  clear_tables(graph);
  if (model.AnnotationCount <= 0) return;
  graph.AnnotationTextSize = graph.AxisAnnotationTextSize = graph.LineAnnotationTextSize = kTextSize;
  graph.ShowAnnotations = true;
  for (i16 number = 1; number <= model.AnnotationCount && model.Annotations.has(number); ++number) {
    const AnnotationRecord& record = model.Annotations[number];
    add_annotation(graph, record, record.Layer - model.FirstZoomLayer - 1);
  }
  widen_margin(graph.LeftMargin, graph.HorzLineAnnotationText, "|L");
  widen_margin(graph.RightMargin, graph.HorzLineAnnotationText, "|R");
  widen_margin(graph.TopMargin, graph.VertLineAnnotationText, "|T");
  widen_margin(graph.BottomMargin, graph.VertLineAnnotationText, "|B");
}

void erase_annotation(Model& model, i16 number) {
  if (number < 1 || number > model.AnnotationCount || !model.Annotations.has(number)) return;
  model.Annotations.erase(number, 1);
  --model.AnnotationCount;
}

}  // namespace trendaro
