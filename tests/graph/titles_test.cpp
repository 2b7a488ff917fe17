#include "graph/titles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/model.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TitlesTest : public testing::Test {
 protected:
  RecordingShell shell;
  Model model{shell};

  TitlesTest() {
    model.XTitle = "Zeit/s";
    model.AxisUnits = {"V", "A", "W", "N", "m", "K"};
    model.MainAxisTitles = {"L1", "L2", "L3", "R1", "R2", "R3"};
    model.SurveyAxisTitles = {"l1", "l2", "l3", "r1", "r2", "r3"};
  }
};

TEST_F(TitlesTest, SingleLayerTakesTheFirstTitle) {
  model.LayerPlotCount = {2, 0, 0};
  SetAxisTitles(model, model.PESG);
  EXPECT_EQ(model.PESG.shown().layers[0].YAxisLabel, "L1");
  EXPECT_EQ(model.PESG.shown().XAxisLabel, "");
  EXPECT_THAT(model.PESG.shown().MultiAxesSubsets, IsEmpty());
  EXPECT_FALSE(model.PESG.shown().layers[0].ShowRYAxis);
  SetAxisTitles(model, model.PESGSurvey);
  EXPECT_EQ(model.PESGSurvey.shown().layers[0].YAxisLabel, "l1");
}

TEST_F(TitlesTest, AutomaticTitlesAreTheUnits) {
  model.AxisAutoTitle = true;
  model.LayerPlotCount = {2, 0, 0};
  model.LayerRightPlotCount = {1, 0, 0};
  SetAxisTitles(model, model.PESG);
  EXPECT_EQ(model.PESG.shown().XAxisLabel, "Zeit/s");
  EXPECT_EQ(model.PESG.shown().layers[0].YAxisLabel, "V");
  EXPECT_TRUE(model.PESG.shown().layers[0].ShowRYAxis);
  EXPECT_EQ(model.PESG.shown().layers[0].RYAxisLabel, "N");
}

TEST_F(TitlesTest, NoYTitlesStillLetTheXTitleFollow) {
  model.AxisAutoTitle = true;
  model.NoYTitle = true;
  model.LayerPlotCount = {1, 0, 0};
  model.PESG.pending.layers[0].YAxisLabel = "alt";
  SetAxisTitles(model, model.PESG);
  EXPECT_EQ(model.PESG.shown().XAxisLabel, "Zeit/s");
  EXPECT_EQ(model.PESG.shown().layers[0].YAxisLabel, "");
}

TEST_F(TitlesTest, MainGraphCountsItsLayersFromTheFirstOnShow) {
  model.LayerPlotCount = {4, 1, 2};
  model.LayerRightPlotCount = {1, 0, 1};
  model.FirstLayer = 1;
  SetAxisTitles(model, model.PESG);
  const GraphProperties& shown = model.PESG.shown();
  EXPECT_THAT(shown.MultiAxesSubsets, ElementsAre(1, 2));
  EXPECT_EQ(shown.layers[0].YAxisLabel, "L2");
  EXPECT_EQ(shown.layers[1].YAxisLabel, "L3");
  EXPECT_FALSE(shown.layers[0].ShowRYAxis);
  EXPECT_TRUE(shown.layers[1].ShowRYAxis);
  EXPECT_EQ(shown.layers[1].RYAxisLabel, "R3");
}

TEST_F(TitlesTest, SurveyGraphShowsAllLayersUnderTheirNumbers) {
  model.LayerPlotCount = {4, 0, 2};
  model.FirstLayer = 1;
  SetAxisTitles(model, model.PESGSurvey);
  const GraphProperties& shown = model.PESGSurvey.shown();
  EXPECT_THAT(shown.MultiAxesSubsets, ElementsAre(4, 0, 2));
  EXPECT_EQ(shown.layers[0].YAxisLabel, "l1");
  EXPECT_EQ(shown.layers[1].YAxisLabel, "");
  EXPECT_EQ(shown.layers[2].YAxisLabel, "l3");
}

TEST_F(TitlesTest, SubtitleTellsTheKindOfData) {
  SetGraphTitles(model, model.PESG);
  EXPECT_EQ(model.PESG.pending.SubTitle, "komprimierte Daten");
  model.OriginalDataMode = true;
  SetGraphTitles(model, model.PESG);
  EXPECT_EQ(model.PESG.pending.SubTitle, "originale Daten");
  model.HasFullDataPlot = true;
  SetGraphTitles(model, model.PESG);
  EXPECT_EQ(model.PESG.pending.SubTitle, "unkomprimierte Daten");
  EXPECT_EQ(model.MainTitles[1], "unkomprimierte Daten");
}

TEST_F(TitlesTest, ZoomedSurveySaysSoAndKeepsItsText) {
  model.SurveyTitles[0] = "Übersicht";
  model.SurveyTitles[1] = "Prüfstand 3";
  model.SurveyZoom = true;
  SetGraphTitles(model, model.PESGSurvey);
  EXPECT_EQ(model.PESGSurvey.pending.MainTitle, "Übersicht");
  EXPECT_EQ(model.PESGSurvey.pending.SubTitle, "Zoom");
  EXPECT_EQ(model.SurveyTitles[1], "Prüfstand 3");
  model.SurveyZoom = false;
  SetGraphTitles(model, model.PESGSurvey);
  EXPECT_EQ(model.PESGSurvey.pending.SubTitle, "Prüfstand 3");
}

TEST_F(TitlesTest, LinesWithoutABarAreFramedOnce) {
  model.MainTitles[2] = "oben";
  model.MainTitles[4] = "links|rechts";
  model.MainTitles[11] = "letzte";
  model.MainTitles[12] = "unten";
  model.MainTitles[22] = "keine Zeile";
  model.PESG.pending.MultiSubTitles = {"alt", "alt"};
  for (int round = 0; round < 2; ++round) {
    SetGraphTitles(model, model.PESG);
    EXPECT_THAT(model.PESG.pending.MultiSubTitles,
                ElementsAre("|oben|", "", "links|rechts", "", "", "", "", "", "", "|letzte|"));
    EXPECT_THAT(model.PESG.pending.MultiBottomTitles, ElementsAre("|unten|"));
    EXPECT_EQ(model.MainTitles[2], "|oben|");
  }
}

}  // namespace
}  // namespace trendaro
