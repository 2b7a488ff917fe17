#include "graph/scrolling.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/commands.h"
#include "graph/data_zoom.h"
#include "support/noting_host.h"
#include "support/refusing_host.h"
#include "support/zoom_fixture.h"

namespace trendaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Sections of a recording of 200 s, 100 samples a second; a display point stands for 5 samples.
class ScrollingTest : public ZoomFixture {
 protected:
  ScrollingTest() { box("PointsBox") = "10000"; }

  void scroll(bool right, const char* step) {
    box("StepBox") = step;
    click_tool(model, right ? "TB_SCROLLRIGHT" : "TB_SCROLLLEFT");
  }
  void expect_section(f64 low, f64 high) {
    EXPECT_NEAR(model.ZoomXMin, low, 1e-9);
    EXPECT_NEAR(model.ZoomXMax, high, 1e-9);
    EXPECT_NEAR(model.PESG.pending.ZoomMinX, low, 1e-9);
    EXPECT_NEAR(model.PESG.pending.ZoomMaxX, high, 1e-9);
    const auto& lines = model.PESGSurvey.shown().VertLineAnnotation;
    ASSERT_GE(lines.size(), 2u);
    EXPECT_NEAR(lines[0], low, 1e-9);
    EXPECT_NEAR(lines[1], high, 1e-9);
  }
};

TEST_F(ScrollingTest, NothingMovesWithoutAZoom) {
  scroll(true, "100");
  open({});
  mark(2);
  scroll(true, "100");
  EXPECT_FALSE(model.PESG.pending.ZoomActive);
  EXPECT_DOUBLE_EQ(model.ZoomXMin, 0);
}

TEST_F(ScrollingTest, CompressedSectionMovesWithoutImport) {
  open({});
  mark(2);
  zoom(10, 150);
  scroll(true, "500");
  expect_section(15, 155);
  EXPECT_EQ(model.ScrollInterval, 500);
  EXPECT_TRUE(model.PESG.shown().ZoomActive);
  EXPECT_NEAR(model.PESG.shown().ZoomMinX, 15, 1e-9);
  scroll(false, "1000");
  expect_section(5, 145);
  EXPECT_THAT(channel_samples(1), IsEmpty());
}

TEST_F(ScrollingTest, SectionStopsAtTheEndsWithItsWidth) {
  open({});
  mark(2);
  zoom(10, 150);
  const f64 end = model.PESGSurvey.pending.ManualMaxX - model.SurveyMarginX;
  EXPECT_NEAR(end, 199.9, 1e-4);  // the last pair
  scroll(true, "1000000");
  expect_section(end - 140, end);
  scroll(true, "5");
  expect_section(end - 140, end);
  scroll(false, "1000000");
  expect_section(0, 140);
  scroll(false, "5");
  expect_section(0, 140);
}

TEST_F(ScrollingTest, OriginalSectionBringsTheNextSamplesIn) {
  open({});
  mark(2);
  mark(3);
  zoom(50, 60);
  scroll(true, "100");
  expect_section(51, 61);
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_EQ(model.PlotOffsetPoints[2], 5100);
  expect_samples(model.Plots[1].DatabaseChannel, 1, 5100, 1000);
  expect_drawn(0, 1, 5100, 1000);
  expect_drawn(1, 2, 5100, 1000);
  EXPECT_EQ(model.Plots[2].ChannelIndex, 2);
  scroll(false, "300");
  expect_drawn(1, 2, 4800, 1000);
  EXPECT_EQ(box("ZoomPointsBox"), "1000");
}

TEST_F(ScrollingTest, FirstImportedSampleIsOneAtLeast) {
  open({});
  mark(2);
  zoom(1, 11);
  scroll(false, "1000");
  expect_section(0, 10);
  EXPECT_EQ(model.PlotOffsetPoints[1], 1);
  expect_drawn(0, 1, 1, 1000);
}

TEST_F(ScrollingTest, PlotThatEndsIsCutAndThenCleared) {
  open({});
  open({.rows = 6000}, "kurz");
  mark(2);
  mark(5);
  zoom(50, 60);
  scroll(true, "400");
  expect_samples(model.Plots[2].DatabaseChannel, 1, 5400, 600);
  expect_drawn(0, 1, 5400, 1000);
  expect_drawn(1, 1, 5400, 600);
  scroll(true, "600");
  EXPECT_THAT(channel_samples(model.Plots[2].DatabaseChannel), IsEmpty());
  expect_drawn(0, 1, 6000, 1000);
  scroll(false, "1000");
  expect_drawn(1, 1, 5000, 1000);
}

TEST_F(ScrollingTest, ZoomInYOutlivesTheStep) {
  open({});
  mark(2);
  zoom(50, 60);
  LayerProperties& layer = model.PESG.pending.layers[0];
  layer.ZoomMinY = model.ZoomYMin = -200;
  layer.ZoomMaxY = model.ZoomYMax = 300;
  scroll(true, "100");
  EXPECT_TRUE(model.PESG.shown().ZoomActive);
  EXPECT_EQ(model.PESG.shown().layers[0].ZoomMinY, -200);
  EXPECT_EQ(model.PESG.shown().layers[0].ZoomMaxY, 300);
}

TEST_F(ScrollingTest, SeveralLayersShowTheirWholeYRange) {
  open({});
  mark(2, 1);
  mark(3, 2);
  ASSERT_TRUE(model.gMultiLayer);
  zoom(50, 60);
  scroll(true, "100");
  EXPECT_FALSE(model.PESG.shown().ZoomActive);
  EXPECT_NEAR(model.PESG.shown().ManualMinX, 51, 0.5);
  expect_drawn(0, 1, 5100, 1000);
  expect_drawn(1, 2, 5100, 1000);
}

TEST_F(ScrollingTest, ZoomedSurveyNarrowsTheBounds) {
  open({});
  mark(2);
  zoom(50, 60);
  model.SurveyZoom = true;
  model.SurveyZoomMarginX = 2;
  model.PESGSurvey.pending.ZoomMinX = 43;
  model.PESGSurvey.pending.ZoomMaxX = 67;
  scroll(true, "5000");
  EXPECT_NEAR(model.ZoomXMax, 65, 1e-9);
  scroll(false, "5000");
  EXPECT_NEAR(model.ZoomXMin, 45, 1e-9);
  expect_drawn(0, 1, 4500, 1000);
}

TEST_F(ScrollingTest, StepThatIsNoNumberLeavesTheSection) {
  open({});
  mark(2);
  zoom(50, 60);
  scroll(true, "weiter");
  expect_section(50, 60);
}

TEST_F(ScrollingTest, DatesCountFromTheStartOfTheRecording) {
  open({});
  mark(2);
  run_command(model, "mnuTUnit(4)");
  const f64 start = 44260 + (12 * 3600 + 34 * 60 + 56) / 86400.0;
  zoom(start + 10 / 86400.0, start + 20 / 86400.0);
  scroll(true, "100");
  EXPECT_NEAR((model.ZoomXMin - start) * 86400, 11, 1e-4);
  EXPECT_EQ(model.PlotOffsetPoints[1], 1100);
  scroll(false, "100000");
  EXPECT_NEAR(model.ZoomXMin, start, 1e-9);
}

TEST_F(ScrollingTest, ArrowKeysScrollOnlyWithoutACursor) {
  press_scroll_key(model, true);  // nothing is open
  open({});
  mark(2);
  zoom(50, 60);
  box("StepBox") = "100";
  press_scroll_key(model, true);
  expect_section(51, 61);
  model.PESG.pending.CursorMode = 1;
  press_scroll_key(model, true);
  expect_section(51, 61);
  model.PESG.pending.CursorMode = 0;
  press_scroll_key(model, false);
  expect_section(50, 60);
  model.Zoomed = false;
  press_scroll_key(model, false);
  EXPECT_NEAR(model.PESG.pending.ZoomMinX, 50, 1e-9);
}

TEST_F(ScrollingTest, StepThatTheHostRefusesLeavesTheSection) {
  RefusingHost refusing(shell, 96, 100000);
  model.Host = &refusing;
  model.Kernel = &refusing;
  open({});
  mark(2);
  mark(3);
  refusing.imports = 3;
  zoom(50, 60);
  EXPECT_THROW(scroll(true, "100"), RunTimeError);
  expect_section(50, 60);
  EXPECT_NEAR(model.ReductionXmin, 1000, 1e-6);  // display points of 5 samples
  EXPECT_NEAR(model.ReductionXmax, 1200, 1e-6);
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_EQ(shell.wait_pointers, 0);
  refusing.imports = 2;
  scroll(true, "200");
  expect_section(52, 62);
  expect_drawn(0, 1, 5200, 1000);
  expect_drawn(1, 2, 5200, 1000);
}

TEST_F(ScrollingTest, FullDataAreLeftToTheGraph) {
  write_file(folder.file("lauf.ME1"), ZoomRecording{.rows = 2000}.original().bytes());
  AddFileToGrid(model, folder.file("lauf.ME1"), false);
  mark(2);
  zoom(5, 6);
  scroll(true, "100");
  EXPECT_DOUBLE_EQ(model.PESG.pending.ZoomMinX, 5);
}

// The channel number is that of the original by then. File and append mode stand from the zoom.
TEST_F(ScrollingTest, HostIsAskedForTheNextSectionOfTheSameChannel) {
  NotingHost noting(shell, 96, 100000);
  open({});
  mark(3);
  model.Host = &noting;
  zoom(50, 60);
  noting.calls.clear();
  scroll(true, "500");
  EXPECT_THAT(noting.calls, ElementsAre("1  " + folder.file("lauf.ME1"), "4 i16 1", "5 i16 2", "6 i32 5500",
                                        "7 i32 1000", "execute", "progress 2"));
}

}  // namespace
}  // namespace trendaro
