#pragma once

#include <vector>

#include "graph/graph_cursor.h"
#include "graph/graph_event.h"
#include "graph/graph_layout.h"
#include "graph/graph_surface.h"

namespace trendaro {

// What the pointer is doing with a graph while its left button is down.
enum class PointerDrag : u8 {
  None,
  Press,      // the button is down and nothing has come of it
  Band,       // a rubber band may be or is being drawn
  LimitLine,  // a limit line is gripped
};

// The running interaction of a user with one graph. The functions below feed it; places are logical pixels
// from the upper left corner of the graph.
struct Interaction {
  bool has_limit_lines = false;  // the vertical lines of the graph can be gripped
  PointerDrag drag = PointerDrag::None;
  PixelPoint start = {}, now = {};
  i32 line = -1;                         // the gripped line, from 0
  i16 mode = 0;                          // of the rubber band; one of the values of AllowZooming
  const TextMeasure* measure = nullptr;  // of the graph on show; without one, annotations' texts are not hit
};

using GraphEvents = std::vector<GraphEvent>;

// What a resting pointer looks like: Cross where a rubber band can begin, Grip over a limit line.
enum class PointerShape : u8 { Arrow, Cross, Grip };

// A button goes down: the left one grips a limit line or begins a rubber band or a click, the right one
// clicks at once. Gives the events in their order.
GraphEvents press_pointer(Interaction& interaction, GraphSurface& graph, const GraphLayout& layout,
                          PixelPoint place, PointerButton button);
// The pointer moves: takes a gripped limit line along, or a cursor that follows the pointer.
GraphEvents move_pointer(Interaction& interaction, GraphSurface& graph, const GraphLayout& layout,
                         PixelPoint place);
// A button goes up: the left one lets a limit line go, zooms into its rubber band, or clicks where it went
// down.
GraphEvents release_pointer(Interaction& interaction, GraphSurface& graph, const GraphLayout& layout,
                            PixelPoint place, PointerButton button);
// The second press of a double click, in place of press_pointer.
GraphEvents double_click_pointer(Interaction& interaction, GraphSurface& graph, const GraphLayout& layout,
                                 PixelPoint place);

// A key that a graph understands.
enum class GraphKey : u8 { Left, Right, Up, Down, PageUp, PageDown, Home, End, Undo };
// `taken` tells whether the graph has a use for the key now. A graph with limit lines has no Undo: its
// section stands for more than itself.
GraphEvents press_graph_key(const Interaction& interaction, GraphSurface& graph, const GraphLayout& layout,
                            GraphKey key, bool& taken);

// Ends what the pointer is doing without its result: the Escape key, or the pointer was taken away. A rubber
// band goes without an event. Whether there was anything to end is told by `drag` beforehand.
GraphEvents give_up_pointer(Interaction& interaction, const GraphLayout& layout);

// The rubber band as it is to be drawn; an empty rectangle for none.
PixelRectangle drawn_band(const Interaction& interaction, const GraphLayout& layout);

// The shape of a resting pointer.
PointerShape pointer_shape(const Interaction& interaction, const GraphSurface& graph,
                           const GraphLayout& layout, PixelPoint place);

}  // namespace trendaro
