#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "graph/graph_layout.h"

namespace trendaro {

// Kinds of point annotations. Up to kLastSymbolKind they are symbols: none, then the twelve symbols of curves
// in medium, small and large. A line begins with kLineStartKind + its style and ends with kLineEndKind; a
// shape has two corners, then its own kind + style.
inline constexpr i32 kLastSymbolKind = 36;
inline constexpr i32 kSymbolsOfASize = 12;
inline constexpr i32 kLineStartKind = 38;
inline constexpr i32 kLineEndKind = 45;
inline constexpr i32 kFirstCornerKind = 46;
inline constexpr i32 kSecondCornerKind = 47;
inline constexpr i32 kRectangleKind = 48;
inline constexpr i32 kRoundedKind = 56;
inline constexpr i32 kEllipseKind = 64;
inline constexpr i32 kLastKind = 73;

// Styles of lines: those of curves up to kBoldStyle, then a tick at the edge and a line like the grid's. From
// kFilledShape on a shape is filled.
inline constexpr i32 kBoldStyle = 6;
inline constexpr i32 kTickStyle = 7;
inline constexpr i32 kGridLineStyle = 8;
inline constexpr i32 kFilledShape = 7;

// Pixels across the symbol of a kind from 1 on.
f64 annotation_symbol_size(i32 kind);

enum class AnnotationTable : u8 { Points, HorizontalLines, VerticalLines, XAxis, YAxis };
enum class AnnotationShape : u8 { None, Symbol, Line, Rectangle, RoundedRectangle, Ellipse };

// One annotation in pixels.
struct PlacedAnnotation {
  AnnotationTable table = AnnotationTable::Points;
  std::size_t entry = 0;  // in its table; of several entries the last
  AnnotationShape shape = AnnotationShape::None;
  PixelPoint from{}, to{};  // ends or corners; a symbol stands at `from`
  i32 style = 0;            // of the line or shape; of a symbol its number
  i32 color = 0;
  PixelRectangle clip{};  // cut at the edges of its layer
  PlacedText text{};      // may be empty
};

// All annotations on show, none while ShowAnnotations is off. Those of layers that are not on show are left
// out, and so are ends and shapes whose start or corners are missing.
std::vector<PlacedAnnotation> place_annotations(const GraphProperties& shown, const GraphLayout& layout,
                                                const TextMeasure& measure);

// The wish in a line's text to stand outside of the plot: "|L", "|R", "|T" or "|B" at its start or end.
struct LineText {
  std::string text;
  char side = 0;  // L, R, T or B; 0 for inside
};
LineText line_text(const std::string& text);

// Takes the room of the four margin texts away.
void place_margins(const GraphProperties& shown, const TextMeasure& measure, PixelRectangle& room);

}  // namespace trendaro
