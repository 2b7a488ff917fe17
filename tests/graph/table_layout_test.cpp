#include "graph/table_layout.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "graph/graph_surface.h"
#include "graph/legend_layout.h"
#include "support/fixed_measure.h"
#include "support/graph_data.h"

namespace trendaro {
namespace {

class TableLayoutTest : public testing::Test {
 protected:
  TableLayoutTest() {
    set_curves(graph.pending, 2, {0, 10}, {0, 10});
    graph.pending.TablesEnabled = true;
  }

  TableProperties& add_table(std::size_t index, i32 location, i32 rows, i32 columns) {
    TableProperties& table = graph.pending.tables[index];
    table.TableVisible = true;
    table.TableLocation = location;
    table.TableRows = rows;
    table.TableColumns = columns;
    for (i32 column = 0; column < columns; ++column) table.column_widths[column] = 10;
    return table;
  }

  std::vector<PlacedTable> placed(f64 width = 700, f64 height = 400) {
    PEactions(graph, kTakeOverAndRedraw);
    layout = graph_layout(graph.shown(), width, height, FixedMeasure());
    return place_tables(graph.shown(), layout, FixedMeasure());
  }

  GraphSurface graph{1};
  GraphLayout layout;
};

TEST_F(TableLayoutTest, ATableRightOfTheGraphTakesItsRoom) {
  placed();
  const f64 before = layout.layers[0].area.right();
  TableProperties& table = add_table(0, kTableRightOfGraph, 3, 1);
  table.TableBorder = 3;
  set_cell_text(table, 0, 0, "x=5");
  set_cell_text(table, 2, 0, "7 bar");
  set_cell_color(table, 2, 0, 0xFF);
  const auto tables = placed();
  ASSERT_EQ(tables.size(), 1U);
  // Ten characters of 7 pixels, 4 at both sides; 8 more between table and graph.
  EXPECT_DOUBLE_EQ(tables[0].box.width, 78);
  EXPECT_DOUBLE_EQ(tables[0].box.height, 3 * 14 + 8);
  EXPECT_DOUBLE_EQ(layout.layers[0].area.right(), before - 86);
  EXPECT_GT(tables[0].box.x, layout.layers[0].area.right());
  EXPECT_TRUE(tables[0].framed);
  ASSERT_EQ(tables[0].cells.size(), 2U);
  EXPECT_EQ(tables[0].cells[1].text, "7 bar");
  EXPECT_EQ(tables[0].cells[1].color, 0xFF);
  EXPECT_EQ(tables[0].cells[0].color, 0);
  EXPECT_DOUBLE_EQ(tables[0].cells[1].box.y - tables[0].cells[0].box.y, 28);
}

TEST_F(TableLayoutTest, ATableInALayerStandsInItsCorner) {
  add_table(1, kTableInLayer, 2, 2);
  set_cell_text(graph.pending.tables[1], 1, 1, "7");
  const auto tables = placed();
  ASSERT_EQ(tables.size(), 1U);
  const PixelRectangle& area = layout.layers[0].area;
  EXPECT_DOUBLE_EQ(tables[0].box.right(), area.right() - 8);
  EXPECT_DOUBLE_EQ(tables[0].box.y, area.y + 8);
  EXPECT_DOUBLE_EQ(tables[0].cells[0].box.x, tables[0].box.x + 4 + 70 + 4);
}

TEST_F(TableLayoutTest, TablesOfOneLayerStandBelowEachOther) {
  add_table(0, kTableInLayer, 2, 3);
  add_table(4, kTableInLayer, 1, 1);
  const auto tables = placed();
  ASSERT_EQ(tables.size(), 2U);
  EXPECT_DOUBLE_EQ(tables[0].box.y, layout.layers[0].area.y + 8);
  EXPECT_DOUBLE_EQ(tables[1].box.y, tables[0].box.bottom() + 8);
  EXPECT_DOUBLE_EQ(tables[1].box.right(), tables[0].box.right());
  EXPECT_DOUBLE_EQ(tables[1].box.width, 78);
}

TEST_F(TableLayoutTest, WhatIsOffOrHasNoPlaceIsNotThere) {
  add_table(0, kTableRightOfGraph, 3, 1).TableVisible = false;
  add_table(1, kTableInLayer + 5, 3, 1);
  add_table(2, 17, 3, 1);
  add_table(3, kTableRightOfGraph, 0, 1);
  add_table(4, kTableRightOfGraph, 1, -4);
  EXPECT_TRUE(placed().empty());
  add_table(0, kTableRightOfGraph, 3, 1);
  EXPECT_EQ(placed().size(), 1U);
  graph.pending.TablesEnabled = false;
  EXPECT_TRUE(placed().empty());
}

TEST_F(TableLayoutTest, WidthsGrowInSteps) {
  TableProperties& table = add_table(0, kTableRightOfGraph, 1, 1);
  const auto characters = [&] {
    placed();
    return table_extents(graph.shown())[0].characters;
  };
  set_cell_text(table, 0, 0, "0123456789");
  EXPECT_EQ(characters(), 10);
  set_cell_text(table, 0, 0, "0123456789a");
  EXPECT_EQ(characters(), 16);
  set_cell_text(table, 0, 0, "0123456789abcdef");
  EXPECT_EQ(characters(), 16);
  set_cell_text(table, 5, 0, std::string(100, 'x'));  // beyond the table's rows
  EXPECT_EQ(characters(), 16);
}

TEST_F(TableLayoutTest, HugeTablesStayInsideTheGraph) {
  TableProperties& table = add_table(0, kTableRightOfGraph, 2000000000, 1);
  table.TableColumns = 2000000000;
  for (i32 row = 0; row < 100; ++row) set_cell_text(table, row, 0, std::string(300, 'x'));
  for (const f64 width : {40.0, 200.0, 700.0}) {
    for (const PlacedTable& each : placed(width, 300)) {
      EXPECT_LE(each.box.right(), width);
      EXPECT_LE(each.box.bottom(), 300);
      for (const PlacedText& cell : each.cells) EXPECT_LE(cell.box.bottom(), each.box.bottom() + 0.5);
    }
  }
}

// Five curves and a table of five columns in one layer, whose legend stands inside of it, too. The table is
// 374 wide and 22 high, 8 off the edge; the legend's back is 14 wider than its entries, 7 off the edge.
class TableBesideLegendTest : public TableLayoutTest {
 protected:
  TableBesideLegendTest() {
    set_curves(graph.pending, 2, std::vector<f32>(10, 1), {0, 10, 0, 10, 0, 10, 0, 10, 0, 10});
    graph.pending.LegendStyle = kLegendInLayers;
    for (i32 i = 0; i < 5; ++i) {
      set_element(graph.pending.SubsetLabels, i, std::string(30, 'n') + std::to_string(i));
      set_element(graph.pending.SubsetsToLegend, i, i);
    }
    add_table(0, kTableInLayer, 1, 5);
  }

  // The layer's height is 45 less than that of the graph, its width 55.
  PlacedTable placed_in(f64 width, f64 height) {
    const auto tables = placed(width + 55, height + 45);
    EXPECT_EQ(tables.size(), 1U);
    area = layout.layers[0].area;
    EXPECT_EQ(area.width, width);
    EXPECT_EQ(area.height, height);
    return tables[0];
  }

  PixelRectangle area;
};

TEST_F(TableBesideLegendTest, WithRoomForBothTheyStandBesideEachOther) {
  // 28 for the sample and 217 for the name make a back of 7 to 266; the table begins 382 ahead of the right.
  const PlacedTable table = placed_in(273 + 382, 300);
  EXPECT_EQ(table.box.y, area.y + 8);
  ASSERT_EQ(layout.legend_backs.size(), 1U);
  EXPECT_EQ(layout.legend_backs[0].right(), area.x + 266);
  EXPECT_EQ(layout.legend[4].name.text.size(), 31U);
}

TEST_F(TableBesideLegendTest, WholeNamesMoveTheTableToTheLowerCorner) {
  const PlacedTable table = placed_in(272 + 382, 300);
  EXPECT_EQ(table.box.bottom(), area.bottom() - 8);
  EXPECT_EQ(table.box.right(), area.right() - 8);
  ASSERT_EQ(layout.legend.size(), 5U);
  EXPECT_EQ(layout.legend[4].name.text.size(), 31U);
}

TEST_F(TableBesideLegendTest, ALowLayerCutsTheNamesBesideTheTable) {
  // Five lines of 14 and margins of 28 find room, but not above 30 for the table.
  const PlacedTable table = placed_in(250 + 382, 110);
  EXPECT_EQ(table.box.y, area.y + 8);
  ASSERT_EQ(layout.legend.size(), 5U);
  // 250 less 28 for margins and 28 for the sample are 194, 27 characters.
  EXPECT_EQ(layout.legend[4].name.text, "nnnnnnnnnnnnn…nnnnnnnnnnnn4");
  EXPECT_LE(layout.legend_backs[0].right(), table.box.x - 7);
}

TEST_F(TableBesideLegendTest, WhereNamesWouldBeTooShortSomeAreCountedAboveTheTable) {
  // 112 beside the table would tell names apart, and 139 less 28 are one less. 110 less 28 and 30 are 3
  // lines.
  PlacedTable table = placed_in(139 + 382, 110);
  EXPECT_EQ(table.box.bottom(), area.bottom() - 8);
  EXPECT_EQ(layout.legend.size(), 2U);
  ASSERT_EQ(layout.legend_notes.size(), 1U);
  EXPECT_EQ(layout.legend_notes[0].text, "+ 3 weitere");
  EXPECT_LE(layout.legend_backs[0].bottom(), table.box.y - 7);
  table = placed_in(140 + 382, 110);
  EXPECT_EQ(table.box.y, area.y + 8);
  EXPECT_EQ(layout.legend.size(), 5U);
}

TEST_F(TableBesideLegendTest, ALayerWithRoomForOneOfThemHasTheTable) {
  const PlacedTable table = placed_in(139 + 382, 71);
  EXPECT_EQ(table.box.y, area.y + 8);
  EXPECT_TRUE(layout.legend.empty());
  EXPECT_TRUE(layout.legend_backs.empty());
}

}  // namespace
}  // namespace trendaro
