#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/commands.h"
#include "graph/zoom_end.h"
#include "support/zoom_fixture.h"

namespace trendaro {
namespace {

// Signals in three layers with a unit each, and a cursor over them: the readout beside the graph tells the
// units of the curves on show.
class ZoomCursorTest : public ZoomFixture {
 protected:
  ZoomCursorTest() {
    open({.channels = 4, .units = {"Upm", "Nm", "mm", "bar"}});
    mark(2, 1);
    mark(3, 2);
    mark(4, 3);
    click_tool(model, "TB_CURSOR");
  }
  void band(i16 lowest_layer, i16 highest_layer) {
    set_limits(50, 60);
    model.PESG.pending.ZoomAxisBottom = lowest_layer;
    model.PESG.pending.ZoomAxisTop = highest_layer;
    PEactions(model.PESG, kRedrawFromSettings);
    end_main_zoom(model);
  }
  // Units in the column of the readout; the first row tells x, and a line of dashes ends a layer.
  [[nodiscard]] std::vector<std::string> units() const {
    std::vector<std::string> found;
    for (const auto& [place, cell] : model.PESG.shown().tables[0].cells) {
      const auto blank = cell.text.rfind(' ');
      if (place.first > 0 && blank != std::string::npos) found.push_back(cell.text.substr(blank + 1));
    }
    return found;
  }
};

using Units = std::vector<std::string>;

TEST_F(ZoomCursorTest, BandInALayerTellsTheUnitsOfThatLayerAtOnce) {
  EXPECT_EQ(units(), (Units{"Upm", "Nm", "mm"}));
  click_tool(model, "TB_ZOOMVERT");
  band(1, 1);
  EXPECT_EQ(units(), Units{"Nm"});
  EXPECT_TRUE(undo());
  EXPECT_EQ(units(), Units{"Nm"});
  reset_zoom(model);
  EXPECT_EQ(units(), (Units{"Upm", "Nm", "mm"}));
}

TEST_F(ZoomCursorTest, RectangleOverTwoLayersTellsTheirUnits) {
  for (const char* bound : {"10000", "1"}) {  // into original samples, and in the reduced display
    SCOPED_TRACE(bound);
    box("PointsBox") = bound;
    click_tool(model, "TB_ZOOMRECT");
    band(1, 2);
    EXPECT_EQ(units(), (Units{"Nm", "mm"}));
    band(1, 1);
    EXPECT_EQ(units(), Units{"mm"});
    reset_zoom(model);
  }
}

TEST_F(ZoomCursorTest, CompressedSectionTellsItsUnits) {
  model.CompressThreshold = 1000;
  model.CompressTarget = 500;
  unmark(3);
  const i32 plain = add_plain(20000);
  mark(plain, 2);
  ASSERT_TRUE(model.DisplayCompression);
  click_tool(model, "TB_ZOOMRECT");
  band(1, 2);
  EXPECT_EQ(units(), (Units{"V", "mm"}));
}

TEST_F(ZoomCursorTest, SignalMarkedInAHiddenLayerLeavesTheUnits) {
  click_tool(model, "TB_ZOOMVERT");
  band(1, 2);
  mark(5, 1);
  ASSERT_TRUE(model.Zoomed);
  EXPECT_EQ(units(), (Units{"Nm", "mm"}));
  unmark(5);
  EXPECT_EQ(units(), (Units{"Nm", "mm"}));
}

}  // namespace
}  // namespace trendaro
