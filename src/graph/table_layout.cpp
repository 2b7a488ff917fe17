#include "graph/table_layout.h"

#include <algorithm>
#include <cmath>

#include "graph/legend_layout.h"

namespace trendaro {
namespace {

constexpr i32 kMostCells = 200;  // rows and columns each
constexpr i32 kWidthStep = 6;    // characters
constexpr f64 kMostOfWidth = 0.4;

i32 characters_of(const std::string& text) {
  i32 count = 0;
  for (const char byte : text)
    if ((static_cast<unsigned char>(byte) & 0xC0) != 0x80) ++count;
  return count;
}

i32 columns_of(const TableProperties& table) {
  return std::clamp(table.TableColumns, 0, kMostCells);
}

i32 rows_of(const TableProperties& table) {
  return std::clamp(table.TableRows, 0, kMostCells);
}

// The set width, widened in steps for texts that are longer.
i32 column_characters(const TableProperties& table, i32 column) {
  const auto set = table.column_widths.find(column);
  const i32 least = std::clamp(set == table.column_widths.end() ? 0 : set->second, 1, kMostCells);
  i32 longest = 0;
  for (const auto& [place, cell] : table.cells)
    if (place.second == column && place.first >= 0 && place.first < rows_of(table))
      longest = std::max(longest, characters_of(cell.text));
  if (longest <= least) return least;
  return std::min(kMostCells, least + (longest - least + kWidthStep - 1) / kWidthStep * kWidthStep);
}

i32 all_characters(const TableProperties& table) {
  i32 sum = 0;
  for (i32 column = 0; column < columns_of(table); ++column) sum += column_characters(table, column);
  return sum;
}

f64 character_width(const TextMeasure& measure) {
  return measure.width(TextRole::Table, "0");
}

f64 padding(const TextMeasure& measure) {
  return std::round(measure.height(TextRole::Table) * 0.3);
}

bool on_show(const GraphProperties& shown, const TableProperties& table, i32 location) {
  return shown.TablesEnabled && table.TableVisible && table.TableLocation == location &&
         columns_of(table) > 0 && rows_of(table) > 0;
}

f64 table_width(const TableProperties& table, const TextMeasure& measure) {
  return std::ceil(all_characters(table) * character_width(measure)) +
         padding(measure) * (1 + columns_of(table));
}

PlacedTable placed_table(const TableProperties& table, const PixelRectangle& box,
                         const TextMeasure& measure) {
  PlacedTable placed{box, table.TableBackground, table.TableForeground, table.TableBorder != 0, {}};
  const f64 height = measure.height(TextRole::Table);
  const f64 gap = padding(measure);
  f64 x = box.x + gap;
  for (i32 column = 0; column < columns_of(table); ++column) {
    const f64 width = std::ceil(column_characters(table, column) * character_width(measure));
    for (i32 row = 0; row < rows_of(table); ++row) {
      const auto cell = table.cells.find({row, column});
      const f64 y = box.y + gap + row * height;
      if (cell == table.cells.end() || cell->second.text.empty() || y + height > box.bottom() + 0.5) continue;
      const PixelRectangle room{x, y, std::min(width, box.right() - gap - x), height};
      std::string text = elided(cell->second.text, room.width, TextRole::Table, measure);
      const i32 color = cell->second.color == -1 ? table.TableForeground : cell->second.color;
      if (!text.empty())
        placed.cells.push_back({std::move(text), room, TextRole::Table, TextAlignment::Left, false, color});
    }
    x += width + gap;
  }
  return placed;
}

f64 table_height(const TableProperties& table, const TextMeasure& measure) {
  return rows_of(table) * measure.height(TextRole::Table) + 2 * padding(measure);
}

f64 gap_between(const TextMeasure& measure) {
  return padding(measure) * 2;
}

i32 location_in(const LayerLayout& layer) {
  return kTableInLayer + static_cast<i32>(layer.layer);
}

}  // namespace

TableExtents table_extents(const GraphProperties& shown) {
  TableExtents extents;
  for (std::size_t i = 0; i < kGraphTables; ++i) {
    const TableProperties& table = shown.tables[i];
    if (!on_show(shown, table, table.TableLocation)) continue;
    const bool beside_legend = shown.LegendStyle == kLegendInLayers && table.TableLocation >= kTableInLayer;
    if (beside_legend || table.TableLocation == kTableRightOfGraph)
      extents[i] = {table.TableLocation, all_characters(table), columns_of(table),
                    beside_legend ? rows_of(table) : 0};
  }
  return extents;
}

void place_table_room(const GraphProperties& shown, const TextMeasure& measure, PixelRectangle& room,
                      PixelRectangle& table_room) {
  f64 width = 0;
  for (const TableProperties& table : shown.tables)
    if (on_show(shown, table, kTableRightOfGraph)) width = std::max(width, table_width(table, measure));
  width = std::min(width, std::floor(room.width * kMostOfWidth));
  table_room = {room.right() - width, room.y, width, room.height};
  if (width > 0) room.width -= width + gap_between(measure);
}

PixelRectangle table_room_in(const GraphProperties& shown, const LayerLayout& layer,
                             const TextMeasure& measure) {
  const f64 gap = gap_between(measure);
  f64 width = 0;
  f64 height = -gap;
  for (const TableProperties& table : shown.tables) {
    if (!on_show(shown, table, location_in(layer))) continue;
    width = std::max(width, table_width(table, measure));
    height += table_height(table, measure) + gap;
  }
  width = std::min(width, layer.area.width - 2 * gap);
  height = std::min(height, layer.area.height - 2 * gap);
  if (width <= 0 || height <= 0) return {};
  return {layer.area.right() - gap - width,
          layer.tables_below ? layer.area.bottom() - gap - height : layer.area.y + gap, width, height};
}

std::vector<PlacedTable> place_tables(const GraphProperties& shown, const GraphLayout& layout,
                                      const TextMeasure& measure) {
  std::vector<PlacedTable> placed;
  const auto fill = [&](PixelRectangle room, i32 location, bool whole_width) {
    for (const TableProperties& table : shown.tables) {
      if (!on_show(shown, table, location) || room.width <= 0) continue;
      const f64 width = whole_width ? room.width : std::min(table_width(table, measure), room.width);
      const f64 height = std::min(table_height(table, measure), room.height);
      if (height <= 0) return;
      placed.push_back(placed_table(table, {room.right() - width, room.y, width, height}, measure));
      room.y += height + gap_between(measure);
      room.height -= height + gap_between(measure);
    }
  };
  fill(layout.table_room, kTableRightOfGraph, true);
  if (!layout.has_axes) return placed;
  for (const LayerLayout& layer : layout.layers)
    fill(table_room_in(shown, layer, measure), location_in(layer), false);
  return placed;
}

}  // namespace trendaro
