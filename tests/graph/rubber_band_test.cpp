#include "graph/rubber_band.h"

#include <gtest/gtest.h>

#include "support/hand_layout.h"

namespace trendaro {
namespace {

class RubberBandTest : public ::testing::Test {
 protected:
  RubberBandTest() { hand_curves(graph); }

  bool zoom(i16 mode, PixelPoint start, PixelPoint now) {
    graph.pending.AllowZooming = mode;
    return zoom_into(graph, layout, mode, rubber_band(layout, mode, start, now));
  }

  GraphSurface graph{1};
  GraphLayout layout = hand_layout();
};

void expect_rectangle(const PixelRectangle& band, f64 x, f64 y, f64 width, f64 height) {
  EXPECT_DOUBLE_EQ(band.x, x);
  EXPECT_DOUBLE_EQ(band.y, y);
  EXPECT_DOUBLE_EQ(band.width, width);
  EXPECT_DOUBLE_EQ(band.height, height);
}

TEST_F(RubberBandTest, EachModeLeavesItsDirectionAlone) {
  expect_rectangle(rubber_band(layout, kZoomHorizontal, {150, 60}, {250, 130}), 150, 50, 100, 220);
  expect_rectangle(rubber_band(layout, kZoomVertical, {150, 60}, {250, 130}), 100, 60, 300, 70);
  expect_rectangle(rubber_band(layout, kZoomRectangle, {150, 60}, {250, 130}), 150, 60, 100, 70);
}

TEST_F(RubberBandTest, DrawnBackwardsAndBeyondTheLayersItStaysInside) {
  expect_rectangle(rubber_band(layout, kZoomRectangle, {250, 130}, {-20, 900}), 100, 130, 150, 140);
}

TEST_F(RubberBandTest, HorizontalZoomKeepsTheHeightsOnShow) {
  ASSERT_TRUE(zoom(kZoomHorizontal, {150, 60}, {250, 60}));
  const GraphProperties& shown = graph.shown();
  EXPECT_TRUE(shown.ZoomActive);
  EXPECT_DOUBLE_EQ(shown.ZoomMinX, 5);
  EXPECT_DOUBLE_EQ(shown.ZoomMaxX, 15);
  EXPECT_DOUBLE_EQ(shown.layers[0].ZoomMinY, 0);
  EXPECT_DOUBLE_EQ(shown.layers[0].ZoomMaxY, 10);
  EXPECT_EQ(shown.ZoomAxisBottom, 0);
  EXPECT_EQ(shown.ZoomAxisTop, 1);
}

TEST_F(RubberBandTest, VerticalZoomTellsTheLayerThatItTouches) {
  ASSERT_TRUE(zoom(kZoomVertical, {300, 195}, {300, 245}));
  const GraphProperties& shown = graph.shown();
  EXPECT_DOUBLE_EQ(shown.ZoomMinX, 0);
  EXPECT_DOUBLE_EQ(shown.ZoomMaxX, 30);
  EXPECT_DOUBLE_EQ(shown.layers[1].ZoomMinY, -2.5);
  EXPECT_DOUBLE_EQ(shown.layers[1].ZoomMaxY, 2.5);
  EXPECT_DOUBLE_EQ(shown.layers[1].ZoomMinRY, 0.25);
  EXPECT_DOUBLE_EQ(shown.layers[1].ZoomMaxRY, 0.75);
  EXPECT_DOUBLE_EQ(shown.layers[0].ZoomMaxY, 10);
  EXPECT_EQ(shown.ZoomAxisBottom, 1);
  EXPECT_EQ(shown.ZoomAxisTop, 1);
}

TEST_F(RubberBandTest, OverTwoLayersEachIsCutAtItsOwnEdge) {
  ASSERT_TRUE(zoom(kZoomRectangle, {200, 120}, {300, 220}));
  const GraphProperties& shown = graph.shown();
  EXPECT_DOUBLE_EQ(shown.ZoomMinX, 10);
  EXPECT_DOUBLE_EQ(shown.ZoomMaxX, 20);
  EXPECT_DOUBLE_EQ(shown.layers[0].ZoomMinY, 0);
  EXPECT_DOUBLE_EQ(shown.layers[0].ZoomMaxY, 3);
  EXPECT_DOUBLE_EQ(shown.layers[0].ZoomMinRY, 0);
  EXPECT_DOUBLE_EQ(shown.layers[0].ZoomMaxRY, 30);
  EXPECT_DOUBLE_EQ(shown.layers[1].ZoomMinY, 0);
  EXPECT_DOUBLE_EQ(shown.layers[1].ZoomMaxY, 5);
  EXPECT_EQ(shown.ZoomAxisBottom, 0);
  EXPECT_EQ(shown.ZoomAxisTop, 1);
}

TEST_F(RubberBandTest, InvertedAxesStillGiveRisingLimits) {
  std::swap(layout.x_axis.scale.first, layout.x_axis.scale.last);
  std::swap(layout.layers[0].left.scale.first, layout.layers[0].left.scale.last);
  ASSERT_TRUE(zoom(kZoomRectangle, {150, 60}, {250, 130}));
  EXPECT_DOUBLE_EQ(graph.shown().ZoomMinX, 15);
  EXPECT_DOUBLE_EQ(graph.shown().ZoomMaxX, 25);
  EXPECT_DOUBLE_EQ(graph.shown().layers[0].ZoomMinY, 1);
  EXPECT_DOUBLE_EQ(graph.shown().layers[0].ZoomMaxY, 8);
}

TEST_F(RubberBandTest, TooSmallABandOrAGapBetweenLayersChangesNothing) {
  EXPECT_FALSE(zoom(kZoomHorizontal, {150, 60}, {153, 200}));
  EXPECT_FALSE(zoom(kZoomVertical, {150, 60}, {350, 63}));
  EXPECT_FALSE(zoom(kZoomVertical, {150, 152}, {150, 168}));
  EXPECT_FALSE(graph.pending.ZoomActive);
  EXPECT_EQ(graph.pending.ZoomMaxX, 0);
}

TEST_F(RubberBandTest, AGraphWithoutAxesDoesNotZoom) {
  layout.has_axes = false;
  EXPECT_FALSE(zoom(kZoomHorizontal, {150, 60}, {250, 60}));
}

TEST_F(RubberBandTest, UndoShowsTheWholeAgain) {
  EXPECT_FALSE(undo_zoom(graph));
  ASSERT_TRUE(zoom(kZoomHorizontal, {150, 60}, {250, 60}));
  EXPECT_TRUE(undo_zoom(graph));
  EXPECT_FALSE(graph.shown().ZoomActive);
  EXPECT_FALSE(undo_zoom(graph));
}

TEST_F(RubberBandTest, CurvesOfASectionAreTakenBackWithoutAZoomOfTheGraph) {
  graph.pending.AllowZooming = kZoomHorizontal;
  graph.curves_of_section = true;
  EXPECT_TRUE(undo_zoom(graph));
  EXPECT_FALSE(graph.curves_of_section);
  EXPECT_FALSE(undo_zoom(graph));
}

TEST_F(RubberBandTest, UndoNeedsZoomingAllowed) {
  ASSERT_TRUE(zoom(kZoomHorizontal, {150, 60}, {250, 60}));
  graph.pending.AllowZooming = kZoomOff;
  EXPECT_FALSE(undo_zoom(graph));
  EXPECT_TRUE(graph.shown().ZoomActive);
}

}  // namespace
}  // namespace trendaro
