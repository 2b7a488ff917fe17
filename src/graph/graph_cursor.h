#pragma once

#include <optional>

#include "graph/graph_layout.h"
#include "graph/graph_surface.h"

namespace trendaro {

// Values of CursorMode.
inline constexpr i16 kCursorOff = 0;
inline constexpr i16 kCursorLine = 1;
inline constexpr i16 kCursorCross = 2;
inline constexpr i16 kCursorSquare = 3;

// The cursor needs no PEactions: its properties of `pending` count at once.

// The strokes of the cursor, in pixels. Nothing where no cursor is on or its point stands left or right of
// what is on show; the upright stroke alone where it stands above or below.
struct CursorMark {
  std::optional<PixelRectangle> vertical;    // a line: width 0
  std::optional<PixelRectangle> horizontal;  // a line: height 0
  std::optional<PixelPoint> square;          // centre of the square around the point
  std::size_t slot = 0;                      // layer of the cursor's curve, index into the layout's layers
};
CursorMark cursor_mark(const GraphSurface& graph, const GraphLayout& layout);

enum class CursorStep : u8 { Back, Forward, JumpBack, JumpForward, First, Last, CurveAbove, CurveBelow };

// Snaps the cursor to the data point nearest to the pointer: along x and on its own curve for a vertical
// line, otherwise of all curves in the layer under the pointer. Writes CursorPoint and CursorSubset. Whether
// they have changed.
bool snap_cursor(GraphSurface& graph, const GraphLayout& layout, PixelPoint pointer);

// Moves the cursor by a key: to the next or previous drawn point, by a stretch of the picture, to the ends of
// what is on show, or to another curve. It stays on what is on show. Whether it has moved.
bool step_cursor(GraphSurface& graph, const GraphLayout& layout, CursorStep step);

}  // namespace trendaro
