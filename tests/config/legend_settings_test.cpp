#include "config/legend_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/commands.h"
#include "graph/legend_layout.h"
#include "support/plot_fixture.h"

namespace trendaro {
namespace {

using testing::ElementsAre;

class LegendSettingsTest : public PlotFixture {
 protected:
  LegendSettingsTest() {
    for (GraphSurface* graph : {&model.PESG, &model.PESGSurvey}) {
      graph->pending.SubsetCount = 2;
      graph->pending.SubsetsToLegend = {0, 1};
    }
  }
  const GraphProperties& shown = model.PESG.shown();
  const GraphProperties& survey = model.PESGSurvey.shown();
};

TEST_F(LegendSettingsTest, BothGraphsTakeThePlace) {
  run_command(model, "mnuLegendPos(3)");
  for (const GraphProperties* graph : {&shown, &survey}) {
    EXPECT_EQ(graph->LegendLocation, kLegendRight);
    EXPECT_EQ(graph->LegendStyle, kLegendList);
  }
  EXPECT_TRUE(model.controls["mnuLegendPos(3)"].ticked);
  run_command(model, "mnuLegendPos(0)");
  EXPECT_EQ(survey.LegendLocation, kLegendTop);
  EXPECT_FALSE(model.controls["mnuLegendPos(3)"].ticked);
  EXPECT_TRUE(model.controls["mnuLegendPos(0)"].ticked);
}

TEST_F(LegendSettingsTest, NoneEmptiesItAndAPlaceBringsAllCurvesBack) {
  run_command(model, "mnuLegendPos(5)");
  EXPECT_TRUE(model.NoLegend);
  EXPECT_TRUE(legend_subsets(shown).empty());
  EXPECT_TRUE(legend_subsets(survey).empty());
  EXPECT_TRUE(model.controls["mnuLegendPos(5)"].ticked);
  run_command(model, "mnuLegendPos(0)");
  EXPECT_FALSE(model.NoLegend);
  EXPECT_THAT(shown.SubsetsToLegend, ElementsAre(0, 1));
  EXPECT_THAT(survey.SubsetsToLegend, ElementsAre(0, 1));
  EXPECT_FALSE(model.controls["mnuLegendPos(5)"].ticked);
}

TEST_F(LegendSettingsTest, OneLineTurnsAndItsTickFollows) {
  run_command(model, "mnuLegendPos(7)");
  EXPECT_EQ(shown.LegendStyle, kLegendOneLine);
  EXPECT_TRUE(model.controls["mnuLegendPos(7)"].ticked);
  run_command(model, "mnuLegendPos(1)");
  EXPECT_EQ(survey.LegendStyle, kLegendOneLine);
  run_command(model, "mnuLegendPos(7)");
  EXPECT_EQ(shown.LegendStyle, kLegendList);
  EXPECT_FALSE(model.controls["mnuLegendPos(7)"].ticked);
}

TEST_F(LegendSettingsTest, InTheLayersTheOneLineTickWaits) {
  run_command(model, "mnuLegendPos(7)");
  run_command(model, "mnuLegendPos(4)");
  EXPECT_EQ(survey.LegendStyle, kLegendInLayers);
  EXPECT_TRUE(model.controls["mnuLegendPos(4)"].ticked);
  EXPECT_TRUE(model.controls["mnuLegendPos(7)"].ticked);
  run_command(model, "mnuLegendPos(2)");
  EXPECT_EQ(shown.LegendStyle, kLegendOneLine);
  EXPECT_FALSE(model.controls["mnuLegendPos(4)"].ticked);
}

}  // namespace
}  // namespace trendaro
