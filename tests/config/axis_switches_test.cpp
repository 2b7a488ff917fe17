#include "config/axis_switches.h"

#include <gtest/gtest.h>

#include "app/commands.h"
#include "graph/main_redraw.h"
#include "support/plot_fixture.h"

namespace trendaro {
namespace {

class AxisSwitchesTest : public PlotFixture {
 protected:
  AxisSwitchesTest() {
    add_plot(write("a.dat", curve_file({{.samples = {1, 2, 4}, .interval = 500}})), 1, kKindPlain, 3);
    model.AxisAutoTitle = true;
    model.controls["mnuAxAutoTitle"].ticked = true;
    RedrawKMGraph(model, false);
  }
  [[nodiscard]] std::string title() const { return model.PESG.shown().layers[0].YAxisLabel; }
};

TEST_F(AxisSwitchesTest, WithoutTitlesTheYAxisHasNone) {
  EXPECT_EQ(title(), "kN");
  run_command(model, "mnuNoYTitle");
  EXPECT_TRUE(model.controls["mnuNoYTitle"].ticked);
  EXPECT_EQ(title(), "");
  EXPECT_EQ(model.PESG.shown().XAxisLabel, "Zeit/s");
  run_command(model, "mnuNoYTitle");
  EXPECT_EQ(title(), "kN");
}

TEST_F(AxisSwitchesTest, WithoutAutomaticTitlesTheUsersComeBack) {
  model.MainAxisTitles[0] = "Kraft";
  run_command(model, "mnuAxAutoTitle");
  EXPECT_FALSE(model.AxisAutoTitle);
  EXPECT_EQ(title(), "Kraft");
  run_command(model, "mnuAxAutoTitle");
  EXPECT_TRUE(model.controls["mnuAxAutoTitle"].ticked);
  EXPECT_EQ(title(), "kN");
}

TEST_F(AxisSwitchesTest, DataScalingIsForBothGraphsUntilTheNextSetUp) {
  run_command(model, "mnuAutoScaleData");
  EXPECT_TRUE(model.PESG.shown().AutoScaleData);
  EXPECT_TRUE(model.PESGSurvey.shown().AutoScaleData);
  RedrawKMGraph(model, false);
  EXPECT_FALSE(model.PESG.shown().AutoScaleData);
  EXPECT_TRUE(model.controls["mnuAutoScaleData"].ticked);
}

}  // namespace
}  // namespace trendaro
