#include "graph/graph_surface.h"

#include <gtest/gtest.h>

#include "app/run_time_error.h"
#include "graph/curve_index.h"
#include "support/graph_data.h"

namespace trendaro {
namespace {

TEST(GraphSurfaceTest, NothingShowsBeforeAnAction) {
  GraphSurface graph(1);
  graph.pending.MainTitle = "Lauf 7";
  EXPECT_EQ(graph.shown().MainTitle, "");
  EXPECT_EQ(graph.revision(), 0u);
  PEactions(graph, kTakeOverAndRedraw);
  EXPECT_EQ(graph.shown().MainTitle, "Lauf 7");
  EXPECT_EQ(graph.revision(), 1u);
}

TEST(GraphSurfaceTest, UnknownActionDoesNothing) {
  GraphSurface graph(1);
  graph.pending.MainTitle = "Lauf 7";
  PEactions(graph, 5);
  EXPECT_EQ(graph.shown().MainTitle, "");
  EXPECT_EQ(graph.revision(), 0u);
}

TEST(GraphSurfaceTest, TakingOverScalesTheAxesByLayerAndSide) {
  GraphSurface graph(1);
  set_curves(graph.pending, 2, {0, 100, 50, 200, 0, 10}, {1, 3, -5, 5, 100, 200});
  graph.pending.MultiAxesSubsets = {2, 1};
  graph.pending.SubsetPlotMethods = {0, 1000, 0};
  graph.pending.AutoPadPercent = 10;
  PEactions(graph, kTakeOverAndRedraw);
  const GraphProperties& shown = graph.shown();
  EXPECT_DOUBLE_EQ(shown.ManualMinX, -20);
  EXPECT_DOUBLE_EQ(shown.ManualMaxX, 220);
  EXPECT_DOUBLE_EQ(shown.layers[0].ManualMinY, 0.8);
  EXPECT_DOUBLE_EQ(shown.layers[0].ManualMaxY, 3.2);
  EXPECT_DOUBLE_EQ(shown.layers[0].ManualMinRY, -6);
  EXPECT_DOUBLE_EQ(shown.layers[0].ManualMaxRY, 6);
  EXPECT_DOUBLE_EQ(shown.layers[1].ManualMinY, 90);
  EXPECT_DOUBLE_EQ(shown.layers[1].ManualMaxY, 210);
  EXPECT_EQ(graph.pending.layers[1].ManualMaxY, shown.layers[1].ManualMaxY);
  EXPECT_EQ(graph.pending.ManualMinX, shown.ManualMinX);
}

TEST(GraphSurfaceTest, ManualLimitsStay) {
  GraphSurface graph(1);
  set_curves(graph.pending, 2, {0, 100}, {1, 3});
  graph.pending.ManualScaleControlX = 3;
  graph.pending.ManualMinX = 25;
  graph.pending.ManualMaxX = 75;
  graph.pending.layers[0].ManualScaleControlY = 3;
  PEactions(graph, kTakeOverAndRedraw);
  EXPECT_EQ(graph.shown().ManualMinX, 25);
  EXPECT_EQ(graph.shown().ManualMaxX, 75);
  EXPECT_EQ(graph.shown().layers[0].ManualMaxY, 0);
}

TEST(GraphSurfaceTest, FlatCurveGetsAWidth) {
  GraphSurface graph(1);
  set_curves(graph.pending, 2, {0, 1}, {50, 50});
  PEactions(graph, kTakeOverAndRedraw);
  EXPECT_DOUBLE_EQ(graph.shown().layers[0].ManualMinY, 45);
  EXPECT_DOUBLE_EQ(graph.shown().layers[0].ManualMaxY, 55);
}

TEST(GraphSurfaceTest, AxisWithoutAPointKeepsItsLimits) {
  GraphSurface graph(1);
  graph.pending.ManualMinX = 3;
  graph.pending.ManualMaxX = 4;
  set_curves(graph.pending, 2, {0, 1}, {-1000000, -1000000});
  PEactions(graph, kTakeOverAndRedraw);
  EXPECT_EQ(graph.shown().ManualMinX, 3);
  EXPECT_EQ(graph.shown().ManualMaxX, 4);
}

TEST(GraphSurfaceTest, SettingsAloneLeaveTheDataOnShow) {
  GraphSurface graph(1);
  set_curves(graph.pending, 2, {0, 1}, {5, 6});
  PEactions(graph, kTakeOverAndRedraw);
  const auto first_data = graph.shown().YData;
  set_curves(graph.pending, 3, {0, 1, 2}, {5, 6, 7});
  graph.pending.SubTitle = "neu";
  PEactions(graph, kRedrawFromSettings);
  EXPECT_EQ(graph.shown().SubTitle, "neu");
  EXPECT_EQ(graph.shown().YData, first_data);
  EXPECT_EQ(graph.shown().PointCount, 2);
  PEactions(graph, kTakeOverAndRedraw);
  EXPECT_EQ(graph.shown().YData->size(), 3u);
  EXPECT_EQ(graph.shown().curve_index->points, 3u);
}

TEST(GraphSurfaceTest, IndexIsMadeOncePerHandOver) {
  GraphSurface graph(1);
  set_curves(graph.pending, 2, {0, 1}, {5, 6});
  PEactions(graph, kTakeOverAndRedraw);
  const auto index = graph.shown().curve_index;
  PEactions(graph, kTakeOverAndRedraw);
  EXPECT_EQ(graph.shown().curve_index, index);
  graph.pending.NullDataValue = 6;
  PEactions(graph, kTakeOverAndRedraw);
  EXPECT_NE(graph.shown().curve_index, index);
  EXPECT_EQ(graph.shown().curve_index->curves[0].whole.y_high, 5);
}

TEST(GraphSurfaceTest, LeavingTheZoomSwitchesItOffAtOnce) {
  GraphSurface graph(1);
  graph.pending.ZoomActive = true;
  PEactions(graph, kTakeOverAndRedraw);
  graph.pending.MainTitle = "noch nicht";
  PEactions(graph, kLeaveZoom);
  EXPECT_FALSE(graph.shown().ZoomActive);
  EXPECT_FALSE(graph.pending.ZoomActive);
  EXPECT_EQ(graph.shown().MainTitle, "");
}

TEST(GraphSurfaceTest, ResetEmptiesAllButTheCountOfPoints) {
  GraphSurface graph(1);
  set_curves(graph.pending, 2, {0, 1}, {5, 6});
  graph.pending.DeskColor = 0x123456;
  graph.pending.layers[2].YAxisLabel = "bar";
  PEactions(graph, kTakeOverAndRedraw);
  PEactions(graph, kResetToEmpty);
  EXPECT_EQ(graph.shown().SubsetCount, 0);
  EXPECT_EQ(graph.shown().PointCount, 2);
  EXPECT_EQ(graph.shown().YData, nullptr);
  EXPECT_EQ(graph.shown().DeskColor, 0xFFFFFF);
  EXPECT_EQ(graph.pending.layers[2].YAxisLabel, "");
}

TEST(GraphSurfaceTest, BulkDataGoByTheirNumbers) {
  GraphSurface graph(1);
  EXPECT_EQ(PEvset(graph, kXData, FlatArray{1, 2}), kPropertyDone);
  EXPECT_EQ(PEvset(graph, kYData, FlatArray{3, 4}), kPropertyDone);
  EXPECT_EQ(PEvset(graph, kXDataII, SampleArray{5, 6}), kPropertyDone);
  EXPECT_EQ(PEvset(graph, kXDataII, FlatArray{5, 6}), kPropertyUnknown);
  EXPECT_EQ(PEvset(graph, kYData, SampleArray{5, 6}), kPropertyUnknown);
  EXPECT_EQ((*graph.pending.XData)[1], 2);
  EXPECT_EQ((*graph.pending.YData)[1], 4);
  EXPECT_EQ((*graph.pending.XDataII)[1], 6);
}

TEST(GraphSurfaceTest, IntegersAreWrittenByNumber) {
  GraphSurface graph(1);
  EXPECT_EQ(PEnset(graph, 0xC20, 3), kPropertyDone);
  EXPECT_EQ(graph.pending.GraphStyleValue, 3);
  graph.pending.WorkingAxis = 2;
  EXPECT_EQ(PEnset(graph, 0x29, 2), kPropertyDone);
  EXPECT_EQ(graph.pending.layers[2].YAxisScaleControl, 2);
  EXPECT_EQ(PEnset(graph, 0x53, 70000), kPropertyUnknown);  // beyond an i16
  EXPECT_EQ(graph.pending.DataPointSize, 0);
  EXPECT_EQ(PEnset(graph, 0x09, 1), kPropertyUnknown);  // a text
  EXPECT_EQ(PEnset(graph, 0x7777, 1), kPropertyUnknown);
}

TEST(GraphSurfaceTest, LayerThatDoesNotExistIsAnError) {
  GraphSurface graph(1);
  graph.pending.WorkingAxis = 6;
  EXPECT_THROW(graph.layer(), RunTimeError);
  graph.pending.WorkingAxis = -1;
  EXPECT_THROW(graph.layer(), RunTimeError);
}

TEST(GraphSurfaceTest, TableThatDoesNotExistIsAnError) {
  GraphSurface graph(1);
  graph.pending.WorkingTable = 5;
  graph.table().TableRows = 3;
  EXPECT_EQ(graph.pending.tables[5].TableRows, 3);
  EXPECT_EQ(PEnset(graph, 0x1083, 2), kPropertyDone);
  EXPECT_EQ(graph.pending.tables[5].TableColumns, 2);
  graph.pending.WorkingTable = 6;
  EXPECT_THROW(graph.table(), RunTimeError);
}

TEST(GraphSurfaceTest, ARefreshShowsTheTablesAndNothingElse) {
  GraphSurface graph(1);
  set_cell_text(graph.table(), 2, 0, "x=5");
  set_cell_color(graph.table(), 2, 0, 0xFF);
  graph.pending.MainTitle = "noch nicht";
  TableRefresh(graph, 0);
  EXPECT_TRUE(graph.shown().tables[0].cells.empty());
  TableRefresh(graph, 1);
  EXPECT_EQ(graph.shown().tables[0].cells.at({2, 0}).text, "x=5");
  EXPECT_EQ(graph.shown().tables[0].cells.at({2, 0}).color, 0xFF);
  EXPECT_EQ(graph.shown().MainTitle, "");
  EXPECT_EQ(graph.revision(), 0u);
  EXPECT_EQ(graph.overlay_revision(), 1u);
}

TEST(GraphSurfaceTest, ATableThatTakesRoomFromTheGraphChangesMoreThanTheOverlay) {
  GraphSurface graph(1);
  graph.pending.TablesEnabled = graph.table().TableVisible = true;
  graph.table().TableLocation = 6;
  graph.table().TableRows = graph.table().TableColumns = 1;
  graph.table().column_widths[0] = 10;
  TableRefresh(graph, 1);
  EXPECT_EQ(graph.revision(), 1u);
  set_cell_text(graph.table(), 0, 0, "x=5");
  TableRefresh(graph, 1);
  EXPECT_EQ(graph.revision(), 1u);
  EXPECT_EQ(graph.overlay_revision(), 1u);
  set_cell_text(graph.table(), 0, 0, "x=12.03.2024 14:05");
  TableRefresh(graph, 1);
  EXPECT_EQ(graph.revision(), 2u);
}

TEST(GraphSurfaceTest, ADraggedLineShowsAtOnce) {
  GraphSurface graph(1);
  set_element(graph.pending.VertLineAnnotation, 0, 4.5);
  graph.pending.MainTitle = "noch nicht";
  write_show_annotations(graph, true);
  EXPECT_TRUE(graph.shown().ShowAnnotations);
  EXPECT_EQ(graph.shown().VertLineAnnotation, std::vector<f64>{4.5});
  EXPECT_EQ(graph.shown().MainTitle, "");
}

TEST(GraphSurfaceTest, CommandsOfTheOutputGoToWhoTakesThem) {
  GraphSurface graph(1);
  PEactions(graph, kPrintGraph);
  std::vector<i16> taken;
  graph.output = [&](GraphSurface& from, i16 action) {
    EXPECT_EQ(from.Handle, 1);
    taken.push_back(action);
  };
  for (i16 action = 0; action <= 30; ++action) PEactions(graph, action);
  EXPECT_EQ(taken, (std::vector<i16>{6, 8, 12, 13, 14, 15, 21, 22}));
}

TEST(GraphSurfaceTest, CellsComeFromTheDataOnShow) {
  GraphSurface graph(1);
  set_curves(graph.pending, 2, {0, 1, 10, 11}, {5, 6, 7, 8});
  f64 value = -1;
  EXPECT_EQ(PEvgetcellEx(graph, kYData, 0, 0, value), kPropertyUnknown);
  PEactions(graph, kTakeOverAndRedraw);
  EXPECT_EQ(PEvgetcellEx(graph, kYData, 1, 0, value), kPropertyDone);
  EXPECT_EQ(value, 7);
  EXPECT_EQ(PEvgetcellEx(graph, kXData, 1, 1, value), kPropertyDone);
  EXPECT_EQ(value, 11);
  EXPECT_EQ(PEvgetcellEx(graph, kXDataII, 1, 1, value), kPropertyUnknown);
  for (const auto& [subset, point] : {std::pair(-1, 0), std::pair(0, -1), std::pair(2, 0), std::pair(0, 2)})
    EXPECT_EQ(PEvgetcellEx(graph, kYData, subset, point, value), kPropertyUnknown);
  EXPECT_EQ(value, 11);
}

TEST(GraphSurfaceTest, AnAxisThatGoesBackToItsDataIsScaledAgain) {
  GraphSurface graph(1);
  set_curves(graph.pending, 2, {0, 100}, {1, 3});
  graph.pending.AutoPadPercent = 0;
  graph.pending.layers[0].ManualScaleControlY = 3;
  graph.pending.layers[0].ManualMaxY = 50;
  PEactions(graph, kTakeOverAndRedraw);
  graph.pending.layers[0].ManualScaleControlY = 0;
  PEactions(graph, kRedrawFromSettings);
  EXPECT_EQ(graph.shown().layers[0].ManualMinY, 1);
  EXPECT_EQ(graph.shown().layers[0].ManualMaxY, 3);
  EXPECT_EQ(graph.pending.layers[0].ManualMaxY, 3);
}

TEST(GraphSurfaceTest, SettingsAloneLeaveTheNullValueOfTheData) {
  GraphSurface graph(1);
  set_curves(graph.pending, 2, {0, 1}, {5, 6});
  PEactions(graph, kTakeOverAndRedraw);
  graph.pending.NullDataValue = 6;
  PEactions(graph, kRedrawFromSettings);
  EXPECT_EQ(graph.shown().NullDataValue, -1000000);
  PEactions(graph, kTakeOverAndRedraw);
  EXPECT_EQ(graph.shown().NullDataValue, 6);
}

}  // namespace
}  // namespace trendaro
