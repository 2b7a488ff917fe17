#include "config/look_settings.h"

#include <gtest/gtest.h>

#include "app/commands.h"
#include "graph/grid_styles.h"
#include "support/plot_fixture.h"

namespace trendaro {
namespace {

class LookSettingsTest : public PlotFixture {
 protected:
  [[nodiscard]] std::string ticked(const std::string& menu, int entries) const {
    std::string list;
    for (int i = 0; i < entries; ++i)
      if (model.controls[menu + "(" + std::to_string(i) + ")"].ticked) list += std::to_string(i);
    return list;
  }

  const GraphProperties& shown = model.PESG.shown();
  const GraphProperties& survey = model.PESGSurvey.shown();
};

TEST_F(LookSettingsTest, SmallLettersAreTheLastClass) {
  run_command(model, "mnuFSize(0)");
  EXPECT_EQ(shown.FontSizeClass, 2);
  EXPECT_EQ(survey.FontSizeClass, 2);
  EXPECT_EQ(ticked("mnuFSize", 3), "0");
  run_command(model, "mnuFSize(2)");
  EXPECT_EQ(shown.FontSizeClass, 0);
  EXPECT_EQ(ticked("mnuFSize", 3), "2");
}

TEST_F(LookSettingsTest, SymbolsTakeTheSizeOfTheEntry) {
  run_command(model, "mnuSym(3)");
  EXPECT_EQ(shown.DataPointSize, 3);
  EXPECT_EQ(survey.DataPointSize, 3);
  EXPECT_EQ(ticked("mnuSym", 4), "3");
}

TEST_F(LookSettingsTest, EveryGridHasItsStyle) {
  constexpr i32 kStyles[] = {0, 0, 3, 2, 4, 1};  // by entry; the first leaves the style
  for (int entry = 1; entry < 6; ++entry) {
    run_command(model, ("mnuGridStyle(" + std::to_string(entry) + ")").c_str());
    EXPECT_EQ(shown.GridLineControl, 0);
    EXPECT_EQ(shown.GridStyle, kStyles[entry]);
    EXPECT_EQ(survey.GridStyle, kStyles[entry]);
    EXPECT_EQ(ticked("mnuGridStyle", 6), std::to_string(entry));
  }
}

TEST_F(LookSettingsTest, NoGridLeavesTheStyleAsItWas) {
  run_command(model, "mnuGridStyle(2)");
  run_command(model, "mnuGridStyle(0)");
  EXPECT_EQ(shown.GridLineControl, 3);
  EXPECT_EQ(shown.GridStyle, kGridDashed);
  EXPECT_EQ(ticked("mnuGridStyle", 6), "0");
}

TEST_F(LookSettingsTest, MinorGridGoesWithTheTicksOfThreeLayers) {
  run_command(model, "mnuTicks(0)");
  for (const GraphProperties* graph : {&shown, &survey}) {
    EXPECT_FALSE(graph->TicksOn);
    for (std::size_t layer = 0; layer < 3; ++layer) EXPECT_FALSE(graph->layers[layer].AxisTicksOn);
    EXPECT_TRUE(graph->layers[3].AxisTicksOn);
  }
  EXPECT_EQ(ticked("mnuTicks", 5), "0");
  constexpr i32 kStyles[] = {0, 5, 3, 2, 4};  // by entry
  for (int entry = 1; entry < 5; ++entry) {
    run_command(model, ("mnuTicks(" + std::to_string(entry) + ")").c_str());
    EXPECT_TRUE(shown.TicksOn);
    EXPECT_TRUE(survey.layers[2].AxisTicksOn);
    EXPECT_EQ(survey.TickSetting, kStyles[entry]);
    EXPECT_EQ(ticked("mnuTicks", 5), std::to_string(entry));
  }
}

TEST_F(LookSettingsTest, AGraphWithoutMinorLinesTicksNone) {
  ASSERT_TRUE(model.PESG.pending.TicksOn);
  tick_look(model);
  EXPECT_EQ(ticked("mnuTicks", 5), "0");
}

TEST_F(LookSettingsTest, ALookThatNoEntryHasTicksNone) {
  model.PESG.pending.GridStyle = 17;
  model.PESG.pending.TickSetting = 17;
  model.PESG.pending.FontSizeClass = 40;
  tick_look(model);
  EXPECT_EQ(ticked("mnuGridStyle", 6), "");
  EXPECT_EQ(ticked("mnuTicks", 5), "");
  EXPECT_EQ(ticked("mnuFSize", 3), "");
}

}  // namespace
}  // namespace trendaro
