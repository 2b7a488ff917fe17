#pragma once

#include "app/types.h"

namespace trendaro {

// All lengths are pixels of the window, 15 twips each.

struct PaneRect {
  i32 left = 0, top = 0, width = 0, height = 0;

  friend bool operator==(const PaneRect&, const PaneRect&) = default;
};

// What the user moves with the two separators.
struct PaneSplit {
  i32 list_width = 300;    // wished width of the channel list; it is cut where the window is too narrow
  f64 survey_share = 0.4;  // part of the graphs' height that the survey takes
};

// What the panes have to fit into. `top` is the lower edge of the toolbar, measured from the upper edge of
// the area in which the panes are placed; 0 where the toolbar is not part of that area.
struct WindowFrame {
  i32 width = 0;
  i32 height = 0;         // whole area, toolbar and status bar included
  i32 top = 0;            // toolbar top plus toolbar height
  i32 status_height = 0;  // 0 where the status bar is not part of that area
  bool list_visible = true;
  bool survey_visible = true;
  bool annotations_visible = false;
};

// The places of all panes. A pane that does not show has an empty rectangle.
struct PaneLayout {
  PaneRect Label1, xSrc, Grid;  // list column, from the top
  PaneRect Separator;           // upright, right of the list
  PaneRect AnnoGrid, PESG;      // graph column, from the top
  PaneRect SeparatorGraph, PESGSurvey;
  PaneRect sbStatus;
};

inline constexpr i32 kSeparatorSize = 5;
inline constexpr i32 kMinimalListWidth = 120;
inline constexpr i32 kMinimalGraphWidth = 200;
inline constexpr i32 kMinimalGraphHeight = 60;

// Places the panes. No rectangle is negative, however small the window is, and shown panes do not overlap.
PaneLayout lay_out_panes(const WindowFrame& frame, const PaneSplit& split);

// Width of the list's column 3 for the width of the list and of its columns 1 and 2.
i32 name_column_width(i32 list_width, i32 column1_width, i32 column2_width);

// Separator was dropped with its left edge at `x`; SeparatorGraph with its upper edge at `y`, both in the
// coordinates of the frame. Positions that would make a pane too small are cut.
void drag_separator(PaneSplit& split, const WindowFrame& frame, i32 x);
void drag_separator_graph(PaneSplit& split, const WindowFrame& frame, i32 y);

}  // namespace trendaro
