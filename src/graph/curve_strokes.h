#pragma once

#include <vector>

#include "graph/curve_outline.h"

namespace trendaro {

// How far a curve swings inside a column, in pixels, to be drawn as a bar there; lower swings look better as
// lines.
inline constexpr f64 kLeastBar = 3;

// How an outline is drawn: a bar for each pixel column where the curve goes up and down inside a column, or
// where both columns beside it cover it, lines everywhere else. A dense curve costs a bar a column, however
// wildly it swings.
struct CurveStrokes {
  std::vector<PixelRectangle> bars;
  CurveOutline lines;
};

// `column_width` is one pixel of the device, `line_width` the curve's width; both in logical pixels.
CurveStrokes curve_strokes(const CurveOutline& outline, f64 column_width, f64 line_width);

// The outline cut into dashes. `pattern` holds lengths of dash and gap in turn, in pixels; without a positive
// sum the outline comes back whole. Where the outline is far longer than `extent` its pattern runs along x
// instead of along the line, since no dash could be told there.
CurveOutline dashed(const CurveOutline& outline, const std::vector<f64>& pattern, f64 extent);

// Calls `use(first, last)` for the points of each piece, `last` being one behind the end.
template <typename Use>
void for_each_piece(const CurveOutline& outline, Use use) {
  for (std::size_t piece = 0; piece < outline.starts.size(); ++piece)
    use(outline.starts[piece],
        piece + 1 < outline.starts.size() ? outline.starts[piece + 1] : outline.points.size());
}

}  // namespace trendaro
