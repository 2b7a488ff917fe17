#include "graph/zoom_scroll.h"

#include <gtest/gtest.h>

#include "support/graph_data.h"

namespace trendaro {
namespace {

// x and y run from 0 to 100; x is zoomed to 20..40 and y to 60..70.
class ZoomScrollTest : public ::testing::Test {
 protected:
  ZoomScrollTest() {
    set_curves(graph.pending, 2, {0, 100}, {0, 100});
    GraphProperties& settings = graph.pending;
    settings.AutoPadPercent = 0;
    PEactions(graph, kTakeOverAndRedraw);
    settings.AllowZooming = 3;
    settings.ZoomActive = true;
    settings.ScrollingHorzZoom = settings.ScrollingVertZoom = true;
    settings.ZoomMinX = 20;
    settings.ZoomMaxX = 40;
    settings.layers[0].ZoomMinY = 60;
    settings.layers[0].ZoomMaxY = 70;
    show();
  }

  void show() { PEactions(graph, kRedrawFromSettings); }

  GraphSurface graph{1};
};

TEST_F(ZoomScrollTest, TellsWhereTheSectionLies) {
  const ScrollSpan across = horizontal_scroll(graph);
  EXPECT_TRUE(across.needed);
  EXPECT_NEAR(across.part, 0.2, 1e-12);
  EXPECT_NEAR(across.position, 0.25, 1e-12);
  const ScrollSpan down = vertical_scroll(graph);
  EXPECT_TRUE(down.needed);
  EXPECT_NEAR(down.part, 0.1, 1e-12);
  EXPECT_NEAR(down.position, 1.0 / 3, 1e-12);
}

TEST_F(ZoomScrollTest, MovesTheSectionAndKeepsItsWidth) {
  scroll_horizontally(graph, 0.5);
  EXPECT_NEAR(graph.shown().ZoomMinX, 40, 1e-9);
  EXPECT_NEAR(graph.shown().ZoomMaxX, 60, 1e-9);
  scroll_horizontally(graph, 7);
  EXPECT_NEAR(graph.shown().ZoomMinX, 80, 1e-9);
  EXPECT_NEAR(graph.shown().ZoomMaxX, 100, 1e-9);
  scroll_vertically(graph, 0);
  EXPECT_NEAR(graph.shown().layers[0].ZoomMinY, 90, 1e-9);
  EXPECT_NEAR(graph.shown().layers[0].ZoomMaxY, 100, 1e-9);
}

TEST_F(ZoomScrollTest, InvertedAxesTurnTheBars) {
  graph.pending.InvertedXAxis = true;
  graph.pending.layers[0].InvertedYAxis = true;
  show();
  EXPECT_NEAR(horizontal_scroll(graph).position, 0.75, 1e-12);
  EXPECT_NEAR(vertical_scroll(graph).position, 2.0 / 3, 1e-12);
  scroll_horizontally(graph, 0);
  EXPECT_NEAR(graph.shown().ZoomMinX, 80, 1e-9);
}

TEST_F(ZoomScrollTest, LogarithmicAxesKeepTheRatio) {
  set_curves(graph.pending, 2, {1, 10000}, {0, 100});
  graph.pending.XAxisScaleControl = 2;
  PEactions(graph, kTakeOverAndRedraw);
  graph.pending.ManualMinX = 1;
  graph.pending.ManualMaxX = 10000;
  graph.pending.ManualScaleControlX = 3;
  graph.pending.ZoomMinX = 1;
  graph.pending.ZoomMaxX = 10;
  show();
  EXPECT_NEAR(horizontal_scroll(graph).part, 0.25, 1e-12);
  scroll_horizontally(graph, 1.0 / 3);
  EXPECT_NEAR(graph.shown().ZoomMinX, 10, 1e-9);
  EXPECT_NEAR(graph.shown().ZoomMaxX, 100, 1e-8);
}

TEST_F(ZoomScrollTest, NoBarWithoutZoomPermissionOrRest) {
  graph.pending.ScrollingHorzZoom = graph.pending.ScrollingVertZoom = false;
  EXPECT_FALSE(horizontal_scroll(graph).needed);
  EXPECT_FALSE(vertical_scroll(graph).needed);
  graph.pending.ScrollingHorzZoom = graph.pending.ScrollingVertZoom = true;
  graph.pending.ZoomMinX = 0;
  graph.pending.ZoomMaxX = 100;
  graph.pending.AllowZooming = 1;
  show();
  EXPECT_FALSE(horizontal_scroll(graph).needed);
  EXPECT_FALSE(vertical_scroll(graph).needed);
  graph.pending.ZoomActive = false;
  graph.pending.ZoomMaxX = 10;
  show();
  EXPECT_FALSE(horizontal_scroll(graph).needed);
}

TEST_F(ZoomScrollTest, ASectionThatIsAsLongAsTheWholeStays) {
  graph.pending.ZoomMinX = 0;
  graph.pending.ZoomMaxX = 100;
  show();
  scroll_horizontally(graph, 0.7);
  EXPECT_EQ(graph.shown().ZoomMinX, 0);
  EXPECT_EQ(graph.shown().ZoomMaxX, 100);
}

}  // namespace
}  // namespace trendaro
