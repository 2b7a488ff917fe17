#pragma once

#include <array>
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

// What the layout takes from a table: all 0 for one that nothing makes room for. Widths grow in steps, so
// that the graph keeps its place while numbers change.
struct TableExtent {
  i32 location = 0;    // its TableLocation
  i32 characters = 0;  // that its columns take together
  i32 columns = 0;     // each with a margin of its own
  i32 rows = 0;        // of a table inside of a layer

  friend bool operator==(const TableExtent&, const TableExtent&) = default;
};
using TableExtents = std::array<TableExtent, kGraphTables>;

// Those of the tables right of the graph and, while the legend stands in the layers, of those inside of them.
TableExtents table_extents(const GraphProperties& shown);

// Takes the room of the tables right of the graph away.
void place_table_room(const GraphProperties& shown, const TextMeasure& measure, PixelRectangle& room,
                      PixelRectangle& table_room);

// The corner of a layer that the tables inside of it take, the upper or the lower right one as the layer
// says; without a width where none stands there.
PixelRectangle table_room_in(const GraphProperties& shown, const LayerLayout& layer,
                             const TextMeasure& measure);

// The tables that are on show, none while TablesEnabled is off; those of one place stand below each other.
// Rows that find no room are left out.
std::vector<PlacedTable> place_tables(const GraphProperties& shown, const GraphLayout& layout,
                                      const TextMeasure& measure);

}  // namespace trendaro
