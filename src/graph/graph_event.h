#pragma once

#include "app/types.h"
#include "graph/graph_layout.h"

namespace trendaro {

enum class PointerButton : u8 { None, Left, Right };

// What of a graph lies under the pointer, the topmost first.
enum class TargetKind : u8 {
  None,             // desk or an empty place of a layer
  PointAnnotation,  // `index`: entry of GraphAnnotationX, from 0
  HorzLine,         // `index`: entry of HorzLineAnnotation, from 0
  VertLine,         // `index`: entry of VertLineAnnotation, from 0; in the survey the limit lines
  DataPoint,        // `subset` and `point`
  Curve,            // `subset`: its line, away from its points; `point` is the nearest one
  LegendEntry,      // `subset`
  MainTitle,        // the main title
  SubTitle,         // the other lines above and below
  XAxis,            // ticks, labels or title of the x axis
  LeftAxis,         // the same of a y axis; `layer`
  RightAxis,
};

struct GraphTarget {
  TargetKind kind = TargetKind::None;
  i32 index = -1;
  i32 subset = -1, point = -1;  // curve and point, from 0
};

// Keys that a graph reports, by their agreed codes.
inline constexpr i32 kKeyLeft = 37;
inline constexpr i32 kKeyRight = 39;

enum class GraphEventKind : u8 {
  ZoomEnd,         // a rubber band has ended: ZoomMinX ... ZoomMaxRY, ZoomActive, ZoomAxisTop and
                   // ZoomAxisBottom are written, and the graph shows the section
  ZoomUndo,        // the user took the zoom back: ZoomActive is false, and the graph shows it
  LimitLineClick,  // the left button went down on line `target.index`; moves and its release follow
  PointerMove,     // the pointer moved with a gripped limit line
  ButtonUp,        // the left button was released behind the grip of a limit line
  GripLost,        // the drag of a limit line was given up (Escape, pointer taken away); no ButtonUp follows
  KeyDown,         // `key`; never while a cursor is on, for then the keys move it
  CursorMove,      // CursorPoint and CursorSubset are written
  Click,           // left button pressed and released at one place, on `target`
  DoubleClick,     // left button, on `target`
  RightClick,      // on `target`
};

// What the user did with a graph. The properties that it changes are written before the event is told.
struct GraphEvent {
  GraphEventKind kind = GraphEventKind::Click;
  PixelPoint place = {};  // logical pixels from the upper left corner of the graph
  f64 x = 0, y = 0;       // the place in graph units; y of the left axis of `layer`
  f64 right_y = 0;        // the same against the right axis
  i16 layer = 0;          // y layer of the graph at or nearest to the place, from 0
  PointerButton button = PointerButton::None;
  i32 key = 0;
  GraphTarget target = {};
};

}  // namespace trendaro
