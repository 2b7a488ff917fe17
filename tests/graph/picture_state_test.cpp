#include "graph/picture_state.h"

#include <gtest/gtest.h>

#include "support/hand_layout.h"

namespace trendaro {
namespace {

class PictureStateTest : public ::testing::Test {
 protected:
  PictureStateTest() {
    hand_curves(graph);
    graph.pending.ShowAnnotations = true;
    graph.pending.VertLineAnnotation = {5, 20};
    PEactions(graph, kRedrawFromSettings);
  }

  // Whether a picture painted now holds after the change.
  template <typename Change>
  bool outlives(Change change) {
    const PictureState painted = picture_state(graph.shown());
    change();
    return same_picture(painted, graph.shown());
  }

  GraphSurface graph{1};
};

TEST_F(PictureStateTest, OutlivesADragOfTheLimitLines) {
  EXPECT_TRUE(outlives([&] {
    graph.pending.VertLineAnnotation = {7, 20};
    PEactions(graph, kRedrawFromSettings);
  }));
}

TEST_F(PictureStateTest, OutlivesNewNumbersInATableButNotItsRoom) {
  TableProperties& table = graph.pending.tables[0];
  table.TableVisible = true;
  table.TableLocation = 6;
  table.TableRows = table.TableColumns = 1;
  table.column_widths[0] = 10;
  EXPECT_FALSE(outlives([&] {
    graph.pending.TablesEnabled = true;
    TableRefresh(graph, 1);
  }));
  EXPECT_TRUE(outlives([&] {
    set_cell_text(table, 0, 0, "12.5 bar");
    TableRefresh(graph, 1);
  }));
}

TEST_F(PictureStateTest, OutlivesATableInsideOfALayerUnlessTheLegendStandsThereToo) {
  TableProperties& table = graph.pending.tables[0];
  graph.pending.TablesEnabled = table.TableVisible = true;
  table.TableLocation = 100;
  table.TableRows = table.TableColumns = 1;
  table.column_widths[0] = 10;
  PEactions(graph, kRedrawFromSettings);
  const auto write = [&](const char* text) {
    set_cell_text(table, 0, 0, text);
    TableRefresh(graph, 1);
  };
  EXPECT_TRUE(outlives([&] { write("0123456789a"); }));
  graph.pending.LegendStyle = 2;
  PEactions(graph, kRedrawFromSettings);
  EXPECT_TRUE(outlives([&] { write("0123456789abcdef"); }));
  EXPECT_FALSE(outlives([&] { write("0123456789abcdefg"); }));
  const u64 revision = graph.revision();
  write("0123456789");
  EXPECT_EQ(graph.revision(), revision + 1);
}

TEST_F(PictureStateTest, OutlivesAMoveOfTheCursor) {
  EXPECT_TRUE(outlives([&] {
    graph.pending.CursorPoint = 2;
    graph.pending.CursorSubset = 1;
    PEactions(graph, kRedrawFromSettings);
  }));
}

TEST_F(PictureStateTest, EndsWithAZoomAColorOrOtherData) {
  EXPECT_FALSE(outlives([&] {
    graph.pending.ZoomMaxX = 12;
    PEactions(graph, kRedrawFromSettings);
  }));
  EXPECT_FALSE(outlives([&] {
    graph.pending.layers[1].YAxisColor = 0xFF;
    PEactions(graph, kRedrawFromSettings);
  }));
  EXPECT_FALSE(outlives([&] { hand_curves(graph); }));
}

TEST_F(PictureStateTest, HoldsNoCurves) {
  const std::weak_ptr<const FlatArray> values = graph.shown().YData;
  const PictureState painted = picture_state(graph.shown());
  set_curves(graph.pending, 1, {1}, {1});
  PEactions(graph, kTakeOverAndRedraw);
  EXPECT_TRUE(values.expired());
  EXPECT_FALSE(same_picture(painted, graph.shown()));
}

TEST_F(PictureStateTest, NothingPaintedYetIsOfAnotherPicture) {
  EXPECT_FALSE(same_picture(PictureState{}, graph.shown()));
}

}  // namespace
}  // namespace trendaro
