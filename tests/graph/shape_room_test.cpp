#include "graph/shape_room.h"

#include <cmath>

#include <gtest/gtest.h>

#include "graph/graph_surface.h"
#include "graph/plot_methods.h"
#include "graph/shape_sizes.h"
#include "support/fixed_measure.h"

namespace trendaro {
namespace {

// One curve in the method, without padding.
GraphSurface graph_of(i32 method, const FlatArray& x, const FlatArray& y) {
  GraphSurface graph(1);
  graph.pending.SubsetCount = 1;
  graph.pending.PointCount = static_cast<i32>(x.size());
  graph.pending.AutoPadPercent = 0;
  graph.pending.SubsetPlotMethods = {method};
  PEvset(graph, kXData, x);
  PEvset(graph, kYData, y);
  PEactions(graph, kTakeOverAndRedraw);
  return graph;
}

GraphLayout layout_of(const GraphSurface& graph, f64 width = 700, f64 height = 400) {
  return graph_layout(graph.shown(), width, height, FixedMeasure());
}

// Pixels from a value to the left or right edge, and to the lower or upper one.
f64 from_left(const GraphLayout& layout, f64 x) {
  return pixel_of(layout.x_axis.scale, x) - layout.layers[0].area.x;
}
f64 from_right(const GraphLayout& layout, f64 x) {
  return layout.layers[0].area.right() - pixel_of(layout.x_axis.scale, x);
}
f64 from_bottom(const GraphLayout& layout, f64 y) {
  return layout.layers[0].area.bottom() - pixel_of(layout.layers[0].left.scale, y);
}
f64 from_top(const GraphLayout& layout, f64 y) {
  return pixel_of(layout.layers[0].left.scale, y) - layout.layers[0].area.y;
}

constexpr f64 kPixel = 1e-6;

TEST(ShapeRoomTest, AFewBarsHaveHalfAGroupAtBothEnds) {
  // More than 40 pixels apart: a group is 0.7 of 40 wide.
  const GraphLayout layout = layout_of(graph_of(kMethodBars, {0, 1, 2, 3, 4}, {1, 2, 3, 2, 1}));
  EXPECT_NEAR(from_left(layout, 0), 14, kPixel);
  EXPECT_NEAR(from_right(layout, 4), 14, kPixel);
}

TEST(ShapeRoomTest, BarsNextToEachOtherHaveAThirdOfTheirDistance) {
  FlatArray x;
  for (i32 i = 0; i <= 40; ++i) x.push_back(static_cast<f32>(i));
  const GraphLayout layout = layout_of(graph_of(kMethodBars, x, x));
  const f64 distance = pixel_of(layout.x_axis.scale, 1) - pixel_of(layout.x_axis.scale, 0);
  ASSERT_LT(distance, 40);
  EXPECT_GE(from_left(layout, 0), 0.35 * distance);
  EXPECT_LE(from_left(layout, 0), 0.4 * distance);
  EXPECT_NEAR(from_right(layout, 40), from_left(layout, 0), kPixel);
}

TEST(ShapeRoomTest, BubblesLieInsideWithTheirRadius) {
  const GraphLayout layout = layout_of(graph_of(kMethodBubbles, {0, 5, 10}, {1, 2, 4}));
  EXPECT_NEAR(from_left(layout, 0), 16, kPixel);
  EXPECT_NEAR(from_right(layout, 10), 16, kPixel);
  EXPECT_NEAR(from_top(layout, 4), 16, kPixel);
  // A quarter of the largest value: half of the way from the smallest radius, 2, to the largest.
  EXPECT_NEAR(from_bottom(layout, 1), 9, kPixel);
}

TEST(ShapeRoomTest, BandsLieInsideToTheRightAndAboveWhicheverWayAnAxisRuns) {
  GraphSurface graph = graph_of(kMethodRibbon, {0, 10}, {0, 5});
  GraphLayout layout = layout_of(graph);
  EXPECT_NEAR(from_left(layout, 0), 0, kPixel);
  EXPECT_NEAR(from_right(layout, 10), 7, kPixel);
  EXPECT_NEAR(from_top(layout, 5), 7, kPixel);
  EXPECT_NEAR(from_bottom(layout, 0), 0, kPixel);
  graph.pending.InvertedXAxis = true;
  graph.pending.layers[0].InvertedYAxis = true;
  PEactions(graph, kTakeOverAndRedraw);
  layout = layout_of(graph);
  EXPECT_NEAR(from_left(layout, 10), 0, kPixel);
  EXPECT_NEAR(from_right(layout, 0), 7, kPixel);
  EXPECT_NEAR(from_top(layout, 0), 7, kPixel);
  EXPECT_NEAR(from_bottom(layout, 5), 0, kPixel);
}

TEST(ShapeRoomTest, SymbolsLieInsideWithTheirHalf) {
  GraphSurface graph = graph_of(kMethodPoints, {0, 10}, {0, 5});
  graph.pending.DataPointSize = 2;
  PEactions(graph, kTakeOverAndRedraw);
  const GraphLayout layout = layout_of(graph);
  // 11 pixels and the width of their line.
  EXPECT_NEAR(from_left(layout, 0), 6, kPixel);
  EXPECT_NEAR(from_top(layout, 5), 6, kPixel);
  EXPECT_NEAR(from_bottom(layout, 0), 6, kPixel);
}

TEST(ShapeRoomTest, PaddingCounts) {
  GraphSurface graph = graph_of(kMethodBubbles, {0, 5, 10}, {1, 2, 4});
  graph.pending.AutoPadPercent = 10;
  PEactions(graph, kTakeOverAndRedraw);
  const GraphLayout layout = layout_of(graph);
  EXPECT_EQ(layout.x_axis.scale.minimum, -1);
  EXPECT_EQ(layout.x_axis.scale.maximum, 11);
}

TEST(ShapeRoomTest, AnEndWithoutEnoughPaddingIsWidenedAlone) {
  // A padding of 4 percent is more than 9 pixels at the bottom, less than 16 at the top.
  GraphSurface graph = graph_of(kMethodBubbles, {0, 5, 10}, {1, 2, 4});
  graph.pending.AutoPadPercent = 4;
  PEactions(graph, kTakeOverAndRedraw);
  const GraphLayout layout = layout_of(graph, 700, 330);
  ASSERT_LT(layout.layers[0].area.height * 0.04 / 1.08, 16);
  ASSERT_GT(layout.layers[0].area.height * 0.04 / 1.08, 9.5);
  EXPECT_NEAR(layout.layers[0].left.scale.minimum, 0.88, 1e-12);
  EXPECT_NEAR(from_top(layout, 4), 16, kPixel);
}

TEST(ShapeRoomTest, LinesManualLimitsAndAZoomStayAsTheyAre) {
  const GraphLayout lines = layout_of(graph_of(kMethodLine, {0, 10}, {0, 5}));
  EXPECT_EQ(lines.x_axis.scale.maximum, 10);
  EXPECT_EQ(lines.layers[0].left.scale.maximum, 5);

  GraphSurface manual = graph_of(kMethodBubbles, {0, 10}, {1, 5});
  manual.pending.ManualScaleControlX = 3;
  manual.pending.layers[0].ManualScaleControlY = 3;
  PEactions(manual, kTakeOverAndRedraw);
  const GraphLayout held = layout_of(manual);
  EXPECT_EQ(held.x_axis.scale.maximum, 10);
  EXPECT_EQ(held.layers[0].left.scale.maximum, 5);

  GraphSurface zoomed = graph_of(kMethodBubbles, {0, 10}, {1, 5});
  zoomed.pending.ZoomActive = true;
  zoomed.pending.AllowZooming = 2;
  zoomed.pending.ZoomMinX = 2;
  zoomed.pending.ZoomMaxX = 10;
  zoomed.pending.layers[0].ZoomMinY = 1;
  zoomed.pending.layers[0].ZoomMaxY = 5;
  PEactions(zoomed, kTakeOverAndRedraw);
  const GraphLayout section = layout_of(zoomed);
  EXPECT_EQ(section.x_axis.scale.maximum, 10);
  EXPECT_EQ(section.layers[0].left.scale.maximum, 5);
}

TEST(ShapeRoomTest, TheLimitsOfThePropertiesStay) {
  const GraphSurface graph = graph_of(kMethodBubbles, {0, 10}, {1, 5});
  layout_of(graph);
  EXPECT_EQ(graph.shown().ManualMinX, 0);
  EXPECT_EQ(graph.shown().ManualMaxX, 10);
}

TEST(ShapeRoomTest, ALogarithmicAxisIsWidenedInItsDecades) {
  GraphSurface graph = graph_of(kMethodBubbles, {1, 10, 1000}, {1, 2, 4});
  graph.pending.XAxisScaleControl = 2;
  PEactions(graph, kTakeOverAndRedraw);
  const GraphLayout layout = layout_of(graph);
  EXPECT_TRUE(layout.x_axis.scale.logarithmic);
  EXPECT_NEAR(from_left(layout, 1), 16, kPixel);
  EXPECT_NEAR(from_right(layout, 1000), 16, kPixel);
}

TEST(ShapeRoomTest, ALogarithmicAxisOverValuesDownToZeroIsWidenedAtItsTop) {
  GraphSurface graph = graph_of(kMethodBubbles, {0, 5, 10}, {0, 1, 1000});
  graph.pending.layers[0].YAxisScaleControl = 2;
  PEactions(graph, kTakeOverAndRedraw);
  const GraphLayout layout = layout_of(graph);
  ASSERT_TRUE(layout.layers[0].left.scale.logarithmic);
  EXPECT_NEAR(from_top(layout, 1000), 16, kPixel);
}

TEST(ShapeRoomTest, ACurveInTheMiddleTakesNoRoomAtTheEndsOfAnother) {
  GraphSurface graph = graph_of(kMethodPoints, {0, 50, 100}, {1, 2, 3});
  graph.pending.SubsetCount = 2;
  graph.pending.SubsetPlotMethods = {kMethodPoints, kMethodBubbles};
  PEvset(graph, kXData, FlatArray{0, 50, 100, 40, 50, 60});
  PEvset(graph, kYData, FlatArray{1, 2, 3, 2, 2, 2});
  PEactions(graph, kTakeOverAndRedraw);
  const GraphLayout layout = layout_of(graph);
  // A symbol of 6 pixels and its line.
  EXPECT_NEAR(from_left(layout, 0), 3.5, kPixel);
  EXPECT_NEAR(from_right(layout, 100), 3.5, kPixel);
}

TEST(ShapeRoomTest, ShapesGetNoMoreThanAQuarterOfALowGraph) {
  const GraphLayout layout = layout_of(graph_of(kMethodBubbles, {0, 5, 10}, {4, 2, 4}), 300, 60);
  ASSERT_TRUE(layout.has_axes);
  const f64 height = layout.layers[0].area.height;
  // Half the largest value: 0.7071 of the way from 2 to 16 pixels below, 16 above.
  ASSERT_LT(height, 4 * (16 + 2 + 14 * std::sqrt(0.5)));
  EXPECT_NEAR(from_top(layout, 4) + from_bottom(layout, 2), height / 4, kPixel);
}

TEST(ShapeRoomTest, ASingleSampleAndGapsAloneKeepTheirAxes) {
  const GraphLayout single = layout_of(graph_of(kMethodBubbles, {5}, {2}));
  EXPECT_EQ(single.x_axis.scale.minimum, 4.5);
  EXPECT_EQ(single.x_axis.scale.maximum, 5.5);
  const f32 gap = std::nanf("");
  EXPECT_TRUE(layout_of(graph_of(kMethodBars, {0, 1}, {gap, gap})).has_axes);
}

}  // namespace
}  // namespace trendaro
