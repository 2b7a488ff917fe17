#pragma once

#include <vector>

#include "graph/graph_layout.h"

namespace trendaro {

// Values of TableLocation.
inline constexpr i32 kTableRightOfGraph = 6;
inline constexpr i32 kTableInLayer = 100;  // + layer from 0

struct PlacedTable {
  PixelRectangle box;
  i32 background = 0, border = 0;  // 0x00BBGGRR
  bool framed = false;
  std::vector<PlacedText> cells;
};

// Characters that the columns of the tables right of the graph take together; 0 without such a table. Widths
// grow in steps, so that the graph keeps its place while numbers change.
i32 characters_right_of_graph(const GraphProperties& shown);

// Takes the room of the tables right of the graph away.
void place_table_room(const GraphProperties& shown, const TextMeasure& measure, PixelRectangle& room,
                      PixelRectangle& table_room);

// The tables that are on show, none while TablesEnabled is off. One inside a layer stands in its upper right
// corner. Rows that find no room are left out.
std::vector<PlacedTable> place_tables(const GraphProperties& shown, const GraphLayout& layout,
                                      const TextMeasure& measure);

}  // namespace trendaro
