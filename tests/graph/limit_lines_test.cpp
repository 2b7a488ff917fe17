#include "graph/limit_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/commands.h"
#include "graph/data_zoom.h"
#include "support/noting_host.h"
#include "support/zoom_fixture.h"

namespace trendaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A recording of 200 s, 100 samples a second; a display point stands for 5 samples, 0.05 s.
class LimitLinesTest : public ZoomFixture {
 protected:
  LimitLinesTest() { box("PointsBox") = "10000"; }

  void expect_lines(f64 low, f64 high) {
    const auto& lines = model.PESGSurvey.shown().VertLineAnnotation;
    ASSERT_GE(lines.size(), 2u);
    EXPECT_NEAR(lines[0], low, 1e-9);
    EXPECT_NEAR(lines[1], high, 1e-9);
  }
  void drag(i16 line, f64 x) {
    grip_limit_line(model, line);
    drag_limit_line(model, x, 0);
  }
  [[nodiscard]] f64 end() const { return model.PESGSurvey.pending.ManualMaxX - model.SurveyMarginX; }
};

TEST_F(LimitLinesTest, LinesStandOnTheEndsOfTheRecordingAtFirst) {
  open({});
  mark(2);
  expect_lines(0, end());
  const GraphProperties& survey = model.PESGSurvey.shown();
  EXPECT_TRUE(survey.ShowAnnotations);
  for (const std::size_t line : {0u, 1u}) {
    EXPECT_EQ(survey.VertLineAnnotationType[line], 6);
    EXPECT_EQ(survey.VertLineAnnotationColor[line], 0);
  }
}

TEST_F(LimitLinesTest, LinesAreHiddenWhereTheyMeanNothing) {
  open({});
  mark(2);
  model.xSrc.ListIndex = 1;
  RedrawSurvAnnotation(model);
  EXPECT_FALSE(model.PESGSurvey.shown().ShowAnnotations);
  model.xSrc.ListIndex = 0;
  model.HasFullDataPlot = true;
  RedrawSurvAnnotation(model);
  EXPECT_FALSE(model.PESGSurvey.shown().ShowAnnotations);
  model.HasFullDataPlot = false;
  RedrawSurvAnnotation(model);
  EXPECT_TRUE(model.PESGSurvey.shown().ShowAnnotations);
  click_check_cell(model, 2, 0);
  RedrawSurvAnnotation(model);
  EXPECT_FALSE(model.PESGSurvey.shown().ShowAnnotations);
}

TEST_F(LimitLinesTest, NothingIsGrippedWithoutPlots) {
  grip_limit_line(model, 1);
  EXPECT_FALSE(model.AnnoDrag);
}

TEST_F(LimitLinesTest, OneLineFollowsInTheCompressedDisplay) {
  open({});
  mark(2);
  drag(0, 50);
  expect_lines(50, end());
  EXPECT_DOUBLE_EQ(model.ZoomXMin, 0);  // the section follows when the line is let go
  drag_limit_line(model, 120, 0);
  expect_lines(120, end());
  grip_limit_line(model, 1);
  drag_limit_line(model, 130, 0);
  expect_lines(120, 130);
  EXPECT_EQ(box("ZoomPointsBox"), "1000");  // 10 s
}

TEST_F(LimitLinesTest, LinesStopAtTheEndsAndAheadOfOneAnother) {
  open({});
  mark(2);
  zoom(20, 180);
  drag(0, -5);
  expect_lines(0, 180);
  drag_limit_line(model, 190, 0);
  expect_lines(0, 180);  // behind the other line: stays
  drag(1, 500);
  expect_lines(0, end());
  drag_limit_line(model, -1, 0);
  expect_lines(0, end());
}

TEST_F(LimitLinesTest, SectionWithoutWidthCountsOneBlock) {
  open({});
  mark(2);
  zoom(20, 180);
  drag(0, 180);
  EXPECT_EQ(box("ZoomPointsBox"), "5");
}

TEST_F(LimitLinesTest, WidthIsNotCountedAlongAChannel) {
  open({});
  mark(2);
  box("ZoomPointsBox") = "unberührt";
  model.xSrc.ListIndex = 1;
  drag(0, 50);
  EXPECT_EQ(box("ZoomPointsBox"), "unberührt");
}

TEST_F(LimitLinesTest, WidthCountsFromTheStartOnADateAxis) {
  open({});
  mark(2);
  run_command(model, "mnuTUnit(4)");
  const f64 start = 44260 + (12 * 3600 + 34 * 60 + 56) / 86400.0;
  drag(1, start + 30 / 86400.0);
  EXPECT_EQ(box("ZoomPointsBox"), "3000");
}

TEST_F(LimitLinesTest, LetGoLineMovesTheSection) {
  open({});
  mark(2);
  drag(0, 120);
  drop_limit_line(model);
  EXPECT_DOUBLE_EQ(model.ZoomXMin, 120);
  EXPECT_DOUBLE_EQ(model.ZoomXMax, end());
  EXPECT_TRUE(model.Zoomed);
  EXPECT_TRUE(model.OriginalDataMode);  // 7990 samples
  EXPECT_FALSE(model.AnnoDrag);
  EXPECT_EQ(model.controls["TB_ZOOMHORZ"].tag, "1");
  EXPECT_EQ(model.controls["TB_ZOOMHORZ"].image, "HZOOMDN");
  EXPECT_EQ(model.PESG.pending.AllowZooming, 1);
  EXPECT_EQ(model.PESGSurvey.pending.AllowZooming, 3);
  expect_drawn(0, 1, 12000, 7990);
}

TEST_F(LimitLinesTest, PointerBeyondTheOtherLineLeavesTheLinesAsTheyStand) {
  open({});
  mark(2);
  zoom(20, 180);
  drag(0, 100);
  drag_limit_line(model, 190, 0);
  drop_limit_line(model);
  EXPECT_DOUBLE_EQ(model.ZoomXMin, 100);
  EXPECT_DOUBLE_EQ(model.ZoomXMax, 180);
}

TEST_F(LimitLinesTest, LetGoRightLineKeepsTheLeftLimit) {
  open({});
  mark(2);
  zoom(20, 180);
  click_tool(model, "TB_ZOOMRECT");
  model.PESG.pending.ZoomActive = true;
  drag(1, 170);
  drop_limit_line(model);
  EXPECT_DOUBLE_EQ(model.ZoomXMin, 20);
  EXPECT_DOUBLE_EQ(model.ZoomXMax, 170);
  EXPECT_FALSE(model.OriginalDataMode);
  EXPECT_EQ(model.controls["TB_ZOOMRECT"].tag, "1");  // a zoom holds: its mode stays
  EXPECT_EQ(box("ZoomPointsBox"), "15000");
}

TEST_F(LimitLinesTest, PairFollowsInTheDisplayOfOriginals) {
  open({});
  mark(2);
  zoom(50, 60);
  drag(0, 70);
  expect_lines(70, 80);
  drag_limit_line(model, 500, 0);
  expect_lines(end() - 10, end());
  drag_limit_line(model, -500, 0);
  expect_lines(0, 10);
  drag(1, 95);
  expect_lines(85, 95);
  drag_limit_line(model, 4, 0);
  expect_lines(0, 10);
  EXPECT_EQ(box("ZoomPointsBox"), "1000");
}

TEST_F(LimitLinesTest, LetGoPairBringsItsSamplesIn) {
  open({});
  mark(2);
  mark(3);
  zoom(50, 60);
  drag(1, 95);
  drop_limit_line(model);
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_FALSE(model.KeepOriginalChannels);
  EXPECT_FALSE(model.AnnoDrag);
  EXPECT_NEAR(model.ZoomXMin, 85, 1e-9);
  EXPECT_NEAR(model.ZoomXMax, 95, 1e-9);
  EXPECT_EQ(model.Plots[2].ChannelIndex, 2);  // not halved a second time
  EXPECT_EQ(model.Plots[2].FileKind, kKindDatabase);
  expect_drawn(0, 1, 8500, 1000);
  expect_drawn(1, 2, 8500, 1000);
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kGreen);
}

TEST_F(LimitLinesTest, LoweredBoundShowsTheCompressedDisplayAgain) {
  open({});
  mark(2);
  zoom(50, 60);
  box("PointsBox") = "500";
  drag(0, 70);
  drop_limit_line(model);
  EXPECT_FALSE(model.OriginalDataMode);
  EXPECT_NEAR(model.ZoomXMin, 70, 1e-9);
  EXPECT_NEAR(model.ZoomXMax, 80, 1e-9);
  EXPECT_EQ(model.Plots[1].FileKind, kKindReducedPairs);
  EXPECT_EQ(model.Plots[1].ChannelIndex, 1);
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kWhite);
}

TEST_F(LimitLinesTest, ClickWithoutMovementMovesNothing) {
  open({});
  mark(2);
  zoom(20, 180);
  model.XPos = 77;
  grip_limit_line(model, 0);
  drop_limit_line(model);
  EXPECT_DOUBLE_EQ(model.ZoomXMin, 20);
  drag_limit_line(model, 30, 0);
  drop_limit_line(model);
  EXPECT_DOUBLE_EQ(model.ZoomXMin, 30);
}

TEST_F(LimitLinesTest, MovesWithoutAGripOrWithFullDataDoNothing) {
  open({});
  mark(2);
  drag_limit_line(model, 50, 0);
  expect_lines(0, end());
  grip_limit_line(model, 0);
  model.HasFullDataPlot = true;
  drag_limit_line(model, 50, 0);
  drop_limit_line(model);
  expect_lines(0, end());
  EXPECT_FALSE(model.Zoomed);
}

TEST_F(LimitLinesTest, GivenUpDragPutsTheLinesBack) {
  open({});
  mark(2);
  zoom(20, 180);
  drag(0, 50);
  release_limit_line(model);
  expect_lines(20, 180);
  EXPECT_FALSE(model.AnnoDrag);
  EXPECT_EQ(box("ZoomPointsBox"), "16000");
  drop_limit_line(model);
  EXPECT_DOUBLE_EQ(model.ZoomXMin, 20);
}

TEST_F(LimitLinesTest, ZoomedSurveyNarrowsTheEnds) {
  open({});
  mark(2);
  zoom(40, 160);
  model.SurveyZoom = true;
  model.SurveyZoomMarginX = 5;
  model.PESGSurvey.pending.ZoomMinX = 25;
  model.PESGSurvey.pending.ZoomMaxX = 175;
  drag(0, 10);
  expect_lines(30, 160);
  drag(1, 199);
  expect_lines(30, 170);
}

TEST_F(LimitLinesTest, LetGoPairAsksForTheSameChannelOfTheOriginal) {
  NotingHost noting(shell, 96, 100000);
  open({});
  mark(3);
  model.Host = &noting;
  zoom(50, 60);
  noting.calls.clear();
  drag(1, 95);
  drop_limit_line(model);
  EXPECT_THAT(noting.calls, ElementsAre("1  " + folder.file("lauf.ME1"), "2 i16 0", "3  0", "4 i16 1",
                                        "5 i16 2", "6 i32 8500", "7 i32 1000", "capacity 1", "execute",
                                        "progress 2", "property 1 1 Kanal 2"));
}

TEST_F(LimitLinesTest, PointerBeyondTheDataLeavesTheLineAtTheirEnd) {
  open({});
  mark(2);
  zoom(20, 180);
  drag(0, -5);
  drop_limit_line(model);
  EXPECT_NEAR(model.ZoomXMin, 0, 1e-9);
  EXPECT_DOUBLE_EQ(model.ZoomXMax, 180);
  expect_lines(0, 180);
  EXPECT_EQ(box("ZoomPointsBox"), "18000");
  drag(1, 500);
  drop_limit_line(model);
  EXPECT_NEAR(model.ZoomXMin, 0, 1e-9);
  EXPECT_DOUBLE_EQ(model.ZoomXMax, end());
  EXPECT_EQ(box("ZoomPointsBox"), "19990");
}

}  // namespace
}  // namespace trendaro
