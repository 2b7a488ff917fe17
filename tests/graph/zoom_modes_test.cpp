#include "graph/zoom_modes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/commands.h"
#include "app/run_time_error.h"
#include "app/tool_boxes.h"
#include "support/zoom_fixture.h"

namespace trendaro {
namespace {

using testing::IsEmpty;

class ZoomModesTest : public ZoomFixture {
 protected:
  ControlState& tool(const char* key) { return model.controls[key]; }

  void expect_pressed(const char* pressed) {
    for (const char* key : {"TB_ZOOMHORZ", "TB_ZOOMVERT", "TB_ZOOMRECT"})
      EXPECT_EQ(tool(key).tag, std::string(key) == pressed ? "1" : "") << key;
  }
  void open_plain() {
    write_file(folder.file("lauf.ME1"), ZoomRecording{.rows = 2000}.original().bytes());
    AddFileToGrid(model, folder.file("lauf.ME1"), false);
    mark(2);
  }
};

TEST_F(ZoomModesTest, NothingIsPressedWithoutPlots) {
  click_tool(model, "TB_ZOOMHORZ");
  expect_pressed("");
  EXPECT_EQ(model.PESG.pending.AllowZooming, 0);
}

TEST_F(ZoomModesTest, ModesReleaseOneAnother) {
  open({});
  mark(2);
  click_tool(model, "TB_ZOOMHORZ");
  expect_pressed("TB_ZOOMHORZ");
  EXPECT_EQ(tool("TB_ZOOMHORZ").image, "HZOOMDN");
  EXPECT_EQ(model.PESG.pending.AllowZooming, 1);
  EXPECT_EQ(model.PESGSurvey.pending.AllowZooming, 1);
  run_command(model, "mnuZoomVert");
  expect_pressed("TB_ZOOMVERT");
  EXPECT_EQ(tool("TB_ZOOMHORZ").image, "HZOOMUP");
  EXPECT_EQ(model.PESG.pending.AllowZooming, 2);
  run_command(model, "mnuZoomRect");
  expect_pressed("TB_ZOOMRECT");
  EXPECT_EQ(model.PESG.pending.AllowZooming, 3);
  EXPECT_EQ(model.PESGSurvey.pending.AllowZooming, 1);
}

TEST_F(ZoomModesTest, SecondPressEndsAllZooming) {
  open({});
  mark(2);
  click_tool(model, "TB_ZOOMRECT");
  model.PESG.pending.ZoomActive = true;
  run_command(model, "mnuZoomRect");
  expect_pressed("");
  EXPECT_EQ(tool("TB_ZOOMRECT").image, "RZOOMUP");
  EXPECT_EQ(model.PESG.pending.AllowZooming, 0);
  EXPECT_EQ(model.PESGSurvey.pending.AllowZooming, 0);
  EXPECT_FALSE(model.PESG.pending.ZoomActive);
}

TEST_F(ZoomModesTest, VerticalModeLeavesTheSurveyAlone) {
  open({});
  mark(2);
  click_tool(model, "TB_ZOOMVERT");
  EXPECT_EQ(model.PESGSurvey.pending.AllowZooming, 0);
  model.PESGSurvey.pending.AllowZooming = 3;
  click_tool(model, "TB_ZOOMVERT");
  click_tool(model, "TB_ZOOMHORZ");
  click_tool(model, "TB_ZOOMVERT");
  EXPECT_EQ(model.PESGSurvey.pending.AllowZooming, 1);  // as the horizontal mode left it
}

TEST_F(ZoomModesTest, OnlyFullDataAreScrolledByTheGraph) {
  open({});
  mark(2);
  for (const char* key : {"TB_ZOOMHORZ", "TB_ZOOMVERT", "TB_ZOOMRECT"}) {
    click_tool(model, key);
    EXPECT_FALSE(model.PESG.pending.ScrollingHorzZoom) << key;
    EXPECT_FALSE(model.PESG.pending.ScrollingVertZoom) << key;
  }
}

TEST_F(ZoomModesTest, FullDataAreScrolledInTheDirectionOfTheMode) {
  open_plain();
  const GraphProperties& graph = model.PESG.pending;
  click_tool(model, "TB_ZOOMHORZ");
  EXPECT_TRUE(graph.ScrollingHorzZoom);
  EXPECT_FALSE(graph.ScrollingVertZoom);
  click_tool(model, "TB_ZOOMVERT");
  EXPECT_FALSE(graph.ScrollingHorzZoom);
  EXPECT_TRUE(graph.ScrollingVertZoom);
  click_tool(model, "TB_ZOOMRECT");
  EXPECT_TRUE(graph.ScrollingHorzZoom);
  EXPECT_TRUE(graph.ScrollingVertZoom);
  click_tool(model, "TB_ZOOMRECT");
  EXPECT_TRUE(graph.ScrollingHorzZoom);  // ends with the zoom, not with the mode
}

TEST_F(ZoomModesTest, PlainFileHidesTheToolsOfReducedOnes) {
  open_plain();
  for (const char* key : {"TB_ZOOMINTERVAL", "TB_SCROLLLEFT", "TB_SCROLLRIGHT", "PointsBox", "StepBox"})
    EXPECT_FALSE(tool(key).visible) << key;
  EXPECT_FALSE(model.controls["mnuZoomToMax"].enabled);
}

TEST_F(ZoomModesTest, JumpShowsTheWidestSectionOfOriginals) {
  open({});
  mark(2);
  box("PointsBox") = "1003";
  click_tool(model, "TB_ZOOMINTERVAL");
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_DOUBLE_EQ(model.ZoomXMin, 0);
  EXPECT_NEAR(model.ZoomXMax, 10, 1e-9);  // 200 display points of 5 samples
  EXPECT_EQ(box("ZoomPointsBox"), "1000");
  expect_drawn(0, 1, 0, 1000);
  expect_pressed("");
}

TEST_F(ZoomModesTest, JumpKeepsTheLeftEndAndStopsAtTheEndOfTheData) {
  open({});
  mark(2);
  set_limits(195, 199);
  model.ZoomXMin = 195;
  box("PointsBox") = "1000";
  run_command(model, "mnuZoomToMax");
  EXPECT_DOUBLE_EQ(model.ZoomXMin, 195);
  EXPECT_LE(model.ZoomXMax, 200);
  EXPECT_TRUE(model.OriginalDataMode);
  expect_drawn(0, 1, 19500, model.ZoomPoints * 5);
}

TEST_F(ZoomModesTest, JumpGoesToTheEndOfAZoomedSurveyAtMost) {
  open({});
  mark(2);
  model.SurveyZoom = true;
  model.SurveyZoomMarginX = 1;
  model.PESGSurvey.pending.ZoomMinX = 0;
  model.PESGSurvey.pending.ZoomMaxX = 6;
  box("PointsBox") = "1000";
  SpringToMaxZoom(model);
  EXPECT_NEAR(model.ZoomXMax, 5, 1e-9);
}

TEST_F(ZoomModesTest, JumpIntoNoPointsIsASectionWithoutWidth) {
  open({});
  mark(2);
  box("PointsBox") = "0";
  SpringToMaxZoom(model);
  EXPECT_DOUBLE_EQ(model.PESG.pending.ZoomMaxX, model.PESG.pending.ZoomMinX);
  EXPECT_EQ(model.ZoomPoints, 1);
  EXPECT_EQ(box("ZoomPointsBox"), "5");  // the samples of one display point
  EXPECT_EQ(model.ZoomXMin, model.PESG.shown().ManualMinX);
  EXPECT_EQ(model.ZoomXMax, model.PESG.shown().ManualMaxX);
  EXPECT_LT(model.ZoomXMin, model.ZoomXMax);
}

TEST_F(ZoomModesTest, JumpDoesNothingForFullDataAndWithoutPlots) {
  click_tool(model, "TB_ZOOMINTERVAL");
  EXPECT_FALSE(model.Zoomed);
  open_plain();
  SpringToMaxZoom(model);
  EXPECT_FALSE(model.Zoomed);
  EXPECT_THAT(shell.messages(), IsEmpty());
}

TEST_F(ZoomModesTest, EnterInTheBoxOfPointsJumps) {
  box("PointsBox") = "12,7";
  enter_tool_box(model, "PointsBox");
  EXPECT_EQ(box("PointsBox"), "12,7");  // nothing without plots
  open({});
  mark(2);
  box("PointsBox") = "1000,4";
  enter_tool_box(model, "PointsBox");
  EXPECT_EQ(box("PointsBox"), "1000");
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_NEAR(model.ZoomXMax, 10, 1e-9);
}

TEST_F(ZoomModesTest, PointsBeyondAllCountsStayAsTypedAndZoomNothing) {
  open({});
  mark(2);
  box("PointsBox") = "99999999999";
  EXPECT_THROW(enter_tool_box(model, "PointsBox"), RunTimeError);
  EXPECT_EQ(box("PointsBox"), "99999999999");
  EXPECT_FALSE(model.OriginalDataMode);
  EXPECT_EQ(model.Plots[1].FileKind, kKindReducedPairs);
}

TEST_F(ZoomModesTest, EnterInTheBoxOfTheStepRoundsIt) {
  box("StepBox") = "12,5";
  enter_tool_box(model, "StepBox");
  EXPECT_EQ(model.ScrollInterval, 12);  // ties go to the even number
  EXPECT_EQ(box("StepBox"), "12");
  box("StepBox") = "1e30";
  enter_tool_box(model, "StepBox");
  EXPECT_EQ(model.ScrollInterval, 12);
  EXPECT_EQ(box("StepBox"), "12");
}

TEST_F(ZoomModesTest, JumpToABoundBeyondAllCountsLeavesTheSection) {
  open({});
  mark(2);
  box("PointsBox") = "1000";
  SpringToMaxZoom(model);
  ASSERT_TRUE(model.OriginalDataMode);
  box("PointsBox") = "99999999999";
  EXPECT_THROW(SpringToMaxZoom(model), RunTimeError);
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_NEAR(model.ZoomXMax, 10, 1e-9);
  expect_drawn(0, 1, 0, 1000);
}

}  // namespace
}  // namespace trendaro
