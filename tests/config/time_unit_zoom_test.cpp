#include <gtest/gtest.h>

#include "app/commands.h"
#include "graph/zoom_end.h"
#include "support/zoom_fixture.h"

namespace trendaro {
namespace {

// A zoom in a plain recording of 200 s, 100 samples a second; its section is carried into another unit.
class TimeUnitZoomTest : public ZoomFixture {
 protected:
  void open_plain() {
    write_file(folder.file("lauf.MEA"), ZoomRecording{}.original().bytes());
    AddFileToGrid(model, folder.file("lauf.MEA"), false);
    mark(2);
    click_tool(model, "TB_ZOOMHORZ");
  }
  void open_compressed() {
    model.controls["mnuUseCompression"].ticked = true;
    model.CompressThreshold = 1000;
    model.CompressTarget = 500;
    open_plain();
    ASSERT_TRUE(model.DisplayCompression);
  }
  void band(f64 low, f64 high) {
    set_limits(low, high);
    end_main_zoom(model);
  }
  void expect_shown(f64 low, f64 high) {
    const GraphProperties& shown = model.PESG.shown();
    EXPECT_TRUE(shown.ZoomActive);
    EXPECT_DOUBLE_EQ(shown.ZoomMinX, low);
    EXPECT_DOUBLE_EQ(shown.ZoomMaxX, high);
    EXPECT_DOUBLE_EQ(model.ZoomXMin, low);
    EXPECT_DOUBLE_EQ(model.ZoomXMax, high);
  }
};

TEST_F(TimeUnitZoomTest, PlainSectionIsOnShowInTheNewUnit) {
  open_plain();
  band(50, 60);
  run_command(model, "mnuTUnit(0)");
  expect_shown(50000, 60000);
  run_command(model, "mnuTUnit(2)");
  expect_shown(50.0 / 60, 1);
}

TEST_F(TimeUnitZoomTest, CompressedSectionIsComputedForTheNewUnit) {
  open_compressed();
  model.PESG.pending.ManualScaleControlX = 3;
  model.PESG.pending.ManualMinX = -1;
  model.PESG.pending.ManualMaxX = 201;
  band(50, 60);
  const auto y = *model.PESG.shown().YData;
  run_command(model, "mnuTUnit(0)");
  const GraphProperties& shown = model.PESG.shown();
  EXPECT_DOUBLE_EQ(shown.ManualMinX, 50000);
  EXPECT_DOUBLE_EQ(shown.ManualMaxX, 60000);
  EXPECT_EQ(*shown.YData, y);  // the same samples
  EXPECT_GT((*shown.XData)[0], 50000);
  EXPECT_LT((*shown.XData)[0], 50500);
  reset_zoom(model);
  EXPECT_DOUBLE_EQ(shown.ManualMinX, -1000);
  EXPECT_DOUBLE_EQ(shown.ManualMaxX, 201000);
}

TEST_F(TimeUnitZoomTest, CompressedSectionIsComputedForDates) {
  open_compressed();
  band(50, 60);
  const auto y = *model.PESG.shown().YData;
  run_command(model, "mnuTUnit(4)");
  const f64 start = 44260 + (12 * 3600 + 34 * 60 + 56) / 86400.0;
  ASSERT_TRUE(model.PESG.shown().XDataII);
  EXPECT_EQ(*model.PESG.shown().YData, y);
  EXPECT_NEAR(((*model.PESG.shown().XDataII)[0] - start) * 86400, 50, 0.5);
}

TEST_F(TimeUnitZoomTest, SignalAsXIsNoTime) {
  open_plain();
  activate_row(model, 3);
  run_command(model, "mnuSetX");
  ASSERT_EQ(model.xSrc.ListIndex, 1);
  band(-500, 500);
  run_command(model, "mnuTUnit(0)");
  expect_shown(-500, 500);
}

}  // namespace
}  // namespace trendaro
