#include <functional>
#include <tuple>
#include <utility>

#include <gtest/gtest.h>

#include "app/commands.h"
#include "config/time_unit.h"
#include "graph/limit_lines.h"
#include "graph/main_redraw.h"
#include "graph/zoom_end.h"
#include "support/zoom_fixture.h"

namespace trendaro {
namespace {

// The limit lines begin a section of an envelope, and a plain signal that is compressed joins it: no rubber
// band has told the graph any limits.
class LineSectionTest : public ZoomFixture {
 protected:
  LineSectionTest() {
    open({.channels = 3});
    model.CompressThreshold = 1000;
    model.CompressTarget = 400;
  }
  void drag_left_line(f64 to) {
    grip_limit_line(model, 0);
    drag_limit_line(model, to, 0);
    drop_limit_line(model);
    ASSERT_EQ(model.ZoomXMin, to);
  }
  // The plain signal stands in `plain_row`.
  void show_plain_between_limit_lines(f64 low = 150) {
    mark(2);
    drag_left_line(low);
    plain_row = add_plain(20000);
    mark(plain_row);
    ASSERT_TRUE(model.DisplayCompression);
  }
  // The last point of a curve, counted from 0, that is no null value.
  [[nodiscard]] f64 last_x_of_curve(std::size_t curve) const {
    const GraphProperties& graph = model.PESG.shown();
    const auto slot = static_cast<std::size_t>(graph.PointCount);
    std::size_t last = (curve + 1) * slot - 1;
    while (last > curve * slot && (*graph.YData)[last] == graph.NullDataValue) --last;
    return f64{(*graph.XData)[last]};
  }
  // An envelope and a compressed signal of the same 200 s, the envelope first.
  void expect_whole_recording() {
    const GraphProperties& graph = model.PESG.shown();
    ASSERT_EQ(graph.SubsetCount, 2);
    for (const std::size_t curve : {std::size_t{0}, std::size_t{1}}) {
      EXPECT_LT((*graph.XData)[curve * static_cast<std::size_t>(graph.PointCount)], 1) << "curve " << curve;
      EXPECT_GT(last_x_of_curve(curve), 198) << "curve " << curve;
    }
    EXPECT_LE(graph.ManualMinX, 0);
    EXPECT_GE(graph.ManualMaxX, 199.9);
    EXPECT_LT(graph.layers[0].ManualMinY, -9900);
    EXPECT_GT(graph.layers[0].ManualMaxY, 9900);
    expect_automatic_scale();
  }
  // The compressed signal, in the slot behind the envelope's, begins with the section.
  void expect_curve_of_section(f64 low) {
    ASSERT_TRUE(model.DisplayCompression);
    const GraphProperties& graph = model.PESG.shown();
    ASSERT_EQ(graph.SubsetCount, 2);
    const auto first = static_cast<std::size_t>(graph.PointCount);
    EXPECT_GE((*graph.XData)[first], low);
    EXPECT_LE((*graph.XData)[first], low + 1);
    EXPECT_NE((*graph.YData)[first], graph.NullDataValue);
  }
  void take_back_and_reset() {
    ASSERT_TRUE(undo());
    expect_whole_recording();
    EXPECT_TRUE(model.Zoomed);
    EXPECT_FALSE(model.PESG.shown().ZoomActive);
    EXPECT_EQ(model.ZoomXMin, model.PESG.shown().ManualMinX);
    EXPECT_EQ(model.ZoomXMax, model.PESG.shown().ManualMaxX);
    EXPECT_FALSE(undo());
    RedrawKMGraph(model, false);
    expect_whole_recording();
    click_tool(model, "TB_ZOOMFIX");
    expect_whole_recording();
  }
  void expect_automatic_scale() {
    const GraphProperties& graph = model.PESG.pending;
    EXPECT_EQ(graph.ManualScaleControlX, 0);
    for (const LayerProperties& layer : graph.layers) {
      EXPECT_EQ(layer.ManualScaleControlY, 0);
      EXPECT_EQ(layer.ManualScaleControlRY, 0);
    }
  }

  i32 plain_row = 0;
};

TEST_F(LineSectionTest, CompressedPlainSignalShowsInASectionOfTheLimitLines) {
  show_plain_between_limit_lines();
  expect_curve_of_section(150);
}

TEST_F(LineSectionTest, SignalMarkedBehindAReleasedModeShowsTheSection) {
  mark(2);
  box("PointsBox") = "100";
  drag_left_line(150);
  click_tool(model, "TB_ZOOMHORZ");  // released
  ASSERT_FALSE(model.PESG.pending.ZoomActive);
  mark(add_plain(20000));
  expect_curve_of_section(150);
  EXPECT_EQ(model.PESG.shown().ManualMinX, 150);
}

TEST_F(LineSectionTest, SignalMarkedBehindAScrolledAndReleasedBandShowsTheLastSection) {
  mark(2);
  click_tool(model, "TB_ZOOMHORZ");
  box("PointsBox") = "100";
  set_limits(50, 100);
  end_main_zoom(model);
  box("StepBox") = "2000";
  click_tool(model, "TB_SCROLLRIGHT");
  ASSERT_NEAR(model.ZoomXMin, 70, 1e-9);
  click_tool(model, "TB_ZOOMHORZ");
  mark(add_plain(20000));
  expect_curve_of_section(70);
  EXPECT_NEAR(model.PESG.shown().ManualMinX, 70, 1e-9);
}

// Behind a zoom that was taken back, each of these begins a new section without a band.
TEST_F(LineSectionTest, SignalMarkedBehindASectionThatFollowsAnUndoShowsThatSection) {
  const std::pair<f64, std::function<void()>> roads[] = {
      {70, [&] { click_tool(model, "TB_SCROLLRIGHT"); }},
      {80, [&] { drag_left_line(80); }},
      {50, [&] { click_tool(model, "TB_ZOOMINTERVAL"); }},
      {50,
       [&] {
         mark(3);
         unmark(3);
       }},
  };
  plain_row = add_plain(20000);
  box("StepBox") = "2000";
  for (const auto& [low, begin] : roads) {
    SCOPED_TRACE(low);
    box("PointsBox") = "100";
    mark(2);
    click_tool(model, "TB_ZOOMHORZ");
    set_limits(50, 100);
    end_main_zoom(model);
    ASSERT_TRUE(undo());
    begin();
    ASSERT_NEAR(model.ZoomXMin, low, 1e-9);
    if (model.controls["TB_ZOOMHORZ"].tag == "1") click_tool(model, "TB_ZOOMHORZ");
    mark(plain_row);
    expect_curve_of_section(low);
    unmark(plain_row);
    reset_zoom(model);
  }
}

TEST_F(LineSectionTest, AnotherUnitBringsNoZoomBackThatWasTakenBack) {
  mark(2);
  click_tool(model, "TB_ZOOMHORZ");
  box("PointsBox") = "100";
  set_limits(50, 100);
  end_main_zoom(model);
  ASSERT_TRUE(undo());
  choose_time_unit(model, 0);
  choose_time_unit(model, 1);
  mark(add_plain(20000));
  expect_whole_recording();
}

TEST_F(LineSectionTest, RectangleIntoASectionOfTheLimitLinesIsTakenBackAndReset) {
  show_plain_between_limit_lines();
  rectangle(160, 170);
  const LayerProperties& layer = model.PESG.shown().layers[0];
  ASSERT_EQ(layer.ManualScaleControlY, 3);
  EXPECT_EQ(layer.ManualMinY, 10);
  EXPECT_EQ(layer.ManualMaxY, 20);
  ASSERT_TRUE(undo());
  EXPECT_LT(layer.ManualMinY, 10);
  EXPECT_GT(layer.ManualMaxY, 20);
  click_tool(model, "TB_ZOOMFIX");
  expect_automatic_scale();
}

TEST_F(LineSectionTest, ReducedSectionIsTakenBack) {
  show_plain_between_limit_lines(150);
  take_back_and_reset();
}

TEST_F(LineSectionTest, SectionOfOriginalSamplesIsTakenBack) {
  box("PointsBox") = "1000";
  show_plain_between_limit_lines(195);
  take_back_and_reset();
}

TEST_F(LineSectionTest, SectionTakenBackShowsAllOfALongerSignal) {
  show_plain_between_limit_lines();
  mark(add_plain(30000));
  ASSERT_TRUE(undo());
  EXPECT_GE(model.PESG.shown().ManualMaxX, 299.9);
  EXPECT_GE(last_x_of_curve(2), 298);
}

TEST_F(LineSectionTest, AutomaticYComesBackBesideAManualX) {
  mark(2);
  GraphProperties& graph = model.PESG.pending;
  graph.ManualScaleControlX = 3;
  std::tie(graph.ManualMinX, graph.ManualMaxX) = std::pair(-1, 201);
  show_plain_between_limit_lines();
  rectangle(160, 170);
  ASSERT_TRUE(undo());
  RedrawKMGraph(model, false);  // in the mode of the rectangle
  EXPECT_EQ(graph.ManualScaleControlX, 3);
  EXPECT_EQ(graph.ManualMinX, -1);
  EXPECT_EQ(graph.ManualMaxX, 201);
  const LayerProperties& layer = graph.layers[0];
  EXPECT_EQ(layer.ManualScaleControlY, 0);
  EXPECT_EQ(layer.ManualScaleControlRY, 0);
  EXPECT_LT(layer.ManualMinY, -9900);
  EXPECT_GT(layer.ManualMaxY, 9900);
}

// Neither in a first zoom, nor in one behind another that had a band.
TEST_F(LineSectionTest, CompressionInARectangleThatNoBandBeganLimitsNothingInY) {
  model.controls["mnuUseCompression"].ticked = false;
  mark(2);
  plain_row = add_plain(20000);
  for (int zoom = 0; zoom < 2; ++zoom) {
    drag_left_line(150);
    mark(plain_row);
    ASSERT_FALSE(model.DisplayCompression);
    click_tool(model, "TB_ZOOMRECT");
    run_command(model, "mnuUseCompression");
    RedrawKMGraph(model, false);
    ASSERT_TRUE(model.DisplayCompression);
    expect_automatic_scale();
    EXPECT_LT(model.PESG.shown().layers[0].ManualMinY, -9000);
    rectangle(160, 170);
    click_tool(model, "TB_ZOOMFIX");
    run_command(model, "mnuUseCompression");
    click_check_cell(model, plain_row, 0);
  }
}

TEST_F(LineSectionTest, ManualScaleOutlastsASectionOfTheLimitLines) {
  mark(2);
  GraphProperties& graph = model.PESG.pending;
  graph.ManualScaleControlX = graph.layers[0].ManualScaleControlY = 3;
  std::tie(graph.ManualMinX, graph.ManualMaxX) = std::pair(-1, 201);
  std::tie(graph.layers[0].ManualMinY, graph.layers[0].ManualMaxY) = std::pair(-50, 70);
  show_plain_between_limit_lines();
  EXPECT_EQ(graph.ManualMinX, 150);
  rectangle(160, 170);
  EXPECT_EQ(graph.ManualMinX, 160);
  click_tool(model, "TB_ZOOMFIX");
  EXPECT_EQ(graph.ManualScaleControlX, 3);
  EXPECT_EQ(graph.ManualMinX, -1);
  EXPECT_EQ(graph.ManualMaxX, 201);
  EXPECT_EQ(graph.layers[0].ManualScaleControlY, 3);
  EXPECT_EQ(graph.layers[0].ManualMinY, -50);
  EXPECT_EQ(graph.layers[0].ManualMaxY, 70);
}

TEST_F(LineSectionTest, MarkTakenAwayWritesNoYLimitsWhereNoBandHasBeen) {
  mark(2);
  mark(3);
  show_plain_between_limit_lines();
  model.PESG.pending.AllowZooming = 3;
  unmark(3);
  EXPECT_TRUE(model.Zoomed);
  expect_automatic_scale();
  EXPECT_EQ(model.PESG.pending.AllowZooming, 3);
}

TEST_F(LineSectionTest, ScaleOfABandEndsWithTheLastMark) {
  show_plain_between_limit_lines();
  rectangle(160, 170);
  ASSERT_EQ(model.PESG.pending.ManualScaleControlX, 3);
  unmark(plain_row);
  unmark(2);
  expect_automatic_scale();
  unload_main_window(model);
  Model next{shell};
  next.TemplateFolder = folder.path();
  load_main_window(next);
  EXPECT_EQ(next.PESG.pending.ManualScaleControlX, 0);
  EXPECT_EQ(next.PESG.pending.layers[0].ManualScaleControlY, 0);
}

TEST_F(LineSectionTest, ResetAfterTheCompressedSignalGivesItsScaleBack) {
  show_plain_between_limit_lines();
  rectangle(160, 170);
  unmark(plain_row);  // the envelope stays, nothing is compressed any more
  model.DisplayCompression = false;
  click_tool(model, "TB_ZOOMFIX");
  expect_automatic_scale();
}

}  // namespace
}  // namespace trendaro
