#include <gtest/gtest.h>

#include "app/commands.h"
#include "graph/limit_lines.h"
#include "graph/main_redraw.h"
#include "graph/zoom_end.h"
#include "graph/zoom_scroll.h"
#include "support/zoom_fixture.h"

namespace trendaro {
namespace {

// An envelope of 200 s and a plain signal of the same length, whose mark comes and goes: what is on show then
// is what was on show before.
class LastPlainMarkTest : public ZoomFixture {
 protected:
  LastPlainMarkTest() {
    open({});
    box("PointsBox") = "100";
    plain = add_plain(20000, ".MEA");
  }
  void band(f64 low, f64 high) {
    set_limits(low, high);
    PEactions(model.PESG, kRedrawFromSettings);
    end_main_zoom(model);
  }
  // A band in y over all of x that the graph shows.
  void vertical_band() {
    click_tool(model, "TB_ZOOMVERT");
    const GraphProperties& shown = model.PESG.shown();
    LayerProperties& layer = model.PESG.pending.layers[0];
    layer.ZoomMinY = layer.ZoomMinRY = -100;
    layer.ZoomMaxY = layer.ZoomMaxRY = 5000;
    band(shown.ManualMinX, shown.ManualMaxX);
  }
  void compress() {
    model.controls["mnuUseCompression"].ticked = true;
    model.CompressThreshold = 1000;
    model.CompressTarget = 400;
    RedrawKMGraph(model, false);
    ASSERT_TRUE(model.DisplayCompression);
  }
  // In seconds; the envelope is drawn, and model and graph agree.
  void expect_section(f64 low, f64 high, f64 second = 1) {
    const GraphProperties& shown = model.PESG.shown();
    EXPECT_TRUE(model.Zoomed);
    EXPECT_TRUE(shown.ZoomActive);
    EXPECT_NEAR(shown.ZoomMinX, low * second, 0.01 * second);
    EXPECT_NEAR(shown.ZoomMaxX, high * second, 0.01 * second);
    EXPECT_EQ(model.ZoomXMin, shown.ZoomMinX);
    EXPECT_EQ(model.ZoomXMax, shown.ZoomMaxX);
    expect_envelope();
  }
  void expect_envelope() {
    const GraphProperties& shown = model.PESG.shown();
    EXPECT_EQ(shown.SubsetCount, 1);
    EXPECT_EQ(shown.PointCount, 4000);  // two a block of ten
    EXPECT_FALSE(model.OriginalDataMode);
  }
  void expect_y_band() {
    EXPECT_EQ(model.PESG.shown().AllowZooming, 2);
    EXPECT_EQ(model.PESG.shown().layers[0].ZoomMinY, -100);
    EXPECT_EQ(model.PESG.shown().layers[0].ZoomMaxY, 5000);
  }
  void expect_whole() {
    EXPECT_FALSE(model.Zoomed);
    EXPECT_FALSE(model.PESG.shown().ZoomActive);
    EXPECT_LE(model.PESG.shown().ManualMinX, 0);
    EXPECT_GE(model.PESG.shown().ManualMaxX, 199.9);
    EXPECT_EQ(box("ZoomPointsBox"), "19990");  // the last display point is left out
    expect_envelope();
  }

  i32 plain = 0;
};

TEST_F(LastPlainMarkTest, VerticalBandAheadOfTheFirstSurveyKeepsTheWholeRecordingAndItsY) {
  mark(plain);
  mark(2);
  vertical_band();
  unmark(plain);
  expect_section(0, 199.9);
  expect_y_band();
  EXPECT_EQ(box("ZoomPointsBox"), "19990");
}

TEST_F(LastPlainMarkTest, VerticalBandOverAnAxisThatEndsWithTheLastBlockHoldsTheWholeRecording) {
  mark(2);
  mark(plain);
  model.PESG.pending.ManualScaleControlX = 3;
  model.PESG.pending.ManualMinX = 0;
  model.PESG.pending.ManualMaxX = 200;
  RedrawKMGraph(model, false);
  vertical_band();
  unmark(plain);
  expect_section(0, 199.9);
  expect_y_band();
}

TEST_F(LastPlainMarkTest, VerticalBandInAnotherUnitKeepsTheWholeRecording) {
  mark(2);
  mark(plain);
  run_command(model, "mnuTUnit(0)");
  reset_zoom(model);
  vertical_band();
  unmark(plain);
  expect_section(0, 199.9, 1000);
  expect_y_band();
}

TEST_F(LastPlainMarkTest, SectionOfTheScrollBarStays) {
  for (const bool compressed : {false, true}) {
    SCOPED_TRACE(compressed);
    model.controls["mnuUseCompression"].ticked = false;
    mark(2);
    mark(plain);
    click_tool(model, "TB_ZOOMHORZ");
    band(50, 60);
    scroll_horizontally(model.PESG, 0.5);  // to the middle of 0..199.99 and its padding
    if (compressed) compress();
    unmark(plain);
    expect_section(94.995, 104.995);
    reset_zoom(model);
  }
}

TEST_F(LastPlainMarkTest, ZoomTakenBackIsLeft) {
  for (const bool compressed : {false, true}) {
    SCOPED_TRACE(compressed);
    model.controls["mnuUseCompression"].ticked = false;
    mark(2);
    mark(plain);
    if (compressed) compress();
    click_tool(model, "TB_ZOOMHORZ");
    band(50, 60);
    ASSERT_TRUE(undo());
    unmark(plain);
    expect_whole();
  }
}

TEST_F(LastPlainMarkTest, VerticalBandBehindAZoomTakenBackHoldsTheWholeRecording) {
  mark(2);
  mark(plain);
  click_tool(model, "TB_ZOOMHORZ");
  band(50, 60);
  ASSERT_TRUE(undo());
  vertical_band();
  unmark(plain);
  expect_section(0, 199.9);
  expect_y_band();
}

// A plain signal that is not compressed joins a section whose mode was released.
class ReleasedSectionTest : public LastPlainMarkTest {
 protected:
  void expect_plain_section(f64 low, f64 high) {
    const GraphProperties& shown = model.PESG.shown();
    ASSERT_FALSE(model.DisplayCompression);
    EXPECT_TRUE(model.Zoomed);
    EXPECT_TRUE(shown.ZoomActive);
    EXPECT_EQ(shown.ZoomMinX, low);
    EXPECT_EQ(shown.ZoomMaxX, high);
    EXPECT_EQ(shown.SubsetCount, model.NofPlots);
  }
};

TEST_F(ReleasedSectionTest, PlainSignalShowsInASectionOfTheLimitLines) {
  mark(2);
  grip_limit_line(model, 0);
  drag_limit_line(model, 150, 0);
  drop_limit_line(model);
  const f64 end = model.ZoomXMax;
  click_tool(model, "TB_ZOOMHORZ");
  ASSERT_FALSE(model.PESG.pending.ZoomActive);
  mark(plain);
  expect_plain_section(150, end);
}

TEST_F(ReleasedSectionTest, SecondPlainSignalComesAndGoesInTheSection) {
  mark(plain);
  click_tool(model, "TB_ZOOMHORZ");
  band(50, 60);
  click_tool(model, "TB_ZOOMHORZ");
  const i32 second = add_plain(30000, ".MEA");
  mark(second);
  expect_plain_section(50, 60);
  unmark(plain);
  expect_plain_section(50, 60);
}

TEST_F(ReleasedSectionTest, SectionBesideWhatIsLeftIsNotShown) {
  mark(plain);
  const i32 second = add_plain(12000, ".MEA");
  mark(second);
  click_tool(model, "TB_ZOOMHORZ");
  band(150, 160);
  click_tool(model, "TB_ZOOMHORZ");
  unmark(plain);
  EXPECT_FALSE(model.PESG.shown().ZoomActive);
  EXPECT_LE(model.PESG.shown().ManualMinX, 0);
  EXPECT_LT(model.PESG.shown().ManualMaxX, 150);
}

TEST_F(ReleasedSectionTest, VerticalBandHoldsNothingOfXBackForALongerSignal) {
  mark(plain);
  vertical_band();
  click_tool(model, "TB_ZOOMVERT");
  mark(add_plain(30000, ".MEA"));
  EXPECT_FALSE(model.PESG.shown().ZoomActive);
  EXPECT_GE(model.PESG.shown().ManualMaxX, 299.9);
}

TEST_F(ReleasedSectionTest, ZoomTakenBackIsNotBroughtBack) {
  mark(plain);
  click_tool(model, "TB_ZOOMHORZ");
  band(50, 60);
  ASSERT_TRUE(undo());
  mark(add_plain(30000, ".MEA"));
  EXPECT_FALSE(model.PESG.shown().ZoomActive);
  EXPECT_GE(model.PESG.shown().ManualMaxX, 299.9);
}

}  // namespace
}  // namespace trendaro
