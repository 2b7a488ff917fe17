#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/model.h"
#include "app/toolbar.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

class ResetZoomTest : public testing::Test {
 protected:
  RecordingShell shell;
  Model model{shell};

  void SetUp() override {
    model.Zoomed = true;
    model.SurveyZoom = true;
    model.PESG.pending.AllowZooming = 1;
    model.PESG.pending.ZoomActive = true;
    model.PESGSurvey.pending.AllowZooming = 1;
    model.PESGSurvey.pending.ZoomActive = true;
    model.PESGSurvey.pending.ManualMinX = -10;
    model.PESGSurvey.pending.ManualMaxX = 110;
    model.PESGSurvey.pending.SubTitle = "Zoom";
    model.SurveyMarginX = 10;
    model.CompressedDXMax = 0.5;
    model.ActiveReduceFactor = 8;
    model.MaxViewPoints = 200;
    model.MaxPlotPoints = 5000;
    model.controls["ZoomPointsBox"].text = "12";
    model.controls["ZoomPointsBox"].back_color = kGreen;
    press_tool(model, "TB_ZOOMRECT", true);
  }

  PlotRecord& add_plot(i16 kind, i16 channel) {
    PlotRecord plot;
    plot.Title = "Signal@/no/such/file.STO";
    plot.FileKind = kind;
    plot.ChannelIndex = channel;
    model.Plots.push_back(plot);
    model.SurveyPlots.push_back(plot);
    model.PlotReduceFactor.push_back(0);
    model.PlotScale.push_back(0);
    model.PlotOffsetPoints.push_back(0);
    model.OriginalFileNames.push_back("");
    model.PlotUnits.push_back("");
    model.PlotStep.push_back(0);
    model.PlotDateTexts.push_back("");
    model.CurveCache.push_back({});
    model.NofPlots = static_cast<i16>(model.Plots.size());
    return model.Plots[model.NofPlots];
  }
};

TEST_F(ResetZoomTest, DoesNothingWithoutPlots) {
  reset_zoom(model);
  EXPECT_TRUE(model.Zoomed);
  EXPECT_EQ(model.controls["ZoomPointsBox"].text, "12");
  EXPECT_EQ(model.controls["TB_ZOOMRECT"].tag, "1");
}

TEST_F(ResetZoomTest, ShowsTheWholeRecording) {
  add_plot(kKindReducedPairs, 1);
  reset_zoom(model);
  EXPECT_FALSE(model.Zoomed);
  EXPECT_FALSE(model.SurveyZoom);
  EXPECT_EQ(model.ZoomXMin, 0);
  EXPECT_EQ(model.ZoomXMax, 100);
  EXPECT_EQ(model.ZoomPoints, 200);
  EXPECT_EQ(model.PESGSurvey.pending.ZoomMinX, -10);
  EXPECT_EQ(model.PESGSurvey.pending.ZoomMaxX, 110);
  EXPECT_EQ(model.PESGSurvey.pending.SubTitle, "");
  EXPECT_EQ(model.PESGSurvey.pending.AllowZooming, 0);
  EXPECT_FALSE(model.PESGSurvey.pending.ZoomActive);
  EXPECT_FALSE(model.PESG.pending.ZoomActive);
  EXPECT_EQ(model.controls["TB_ZOOMRECT"].tag, "");
  // 100 / 0.5 steps of 8 / 2 samples.
  EXPECT_EQ(model.controls["ZoomPointsBox"].text, "800");
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kWhite);
}

TEST_F(ResetZoomTest, PlainPlotsShowTheirPointsOnYellow) {
  add_plot(kKindPlain, 1).Points = 4000;
  add_plot(kKindPlain, 2).Points = 6000;
  model.HasFullDataPlot = true;
  reset_zoom(model);
  EXPECT_EQ(model.controls["ZoomPointsBox"].text, "6000");
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kYellow);
}

TEST_F(ResetZoomTest, PlotsGoBackToTheirReducedState) {
  add_plot(kKindDatabase, 2);
  add_plot(kKindDatabaseFromBlock, 2);
  model.OriginalDataMode = true;
  reset_zoom(model);
  EXPECT_FALSE(model.OriginalDataMode);
  EXPECT_EQ(model.Plots[1].FileKind, kKindReducedPairs);
  EXPECT_EQ(model.Plots[1].ChannelIndex, 3);
  EXPECT_EQ(model.Plots[2].FileKind, kKindReducedBlock);
  EXPECT_EQ(model.Plots[2].ChannelIndex, 2);
}

TEST_F(ResetZoomTest, DateAxisBeginsAtTheDateOfTheFirstPlot) {
  add_plot(kKindReducedPairs, 1);
  model.DateAxis = true;
  model.FirstDateText = "05.03.2021 12:00:00";
  model.PESGSurvey.pending.ManualMaxX = 44262;
  model.SurveyMarginX = 0.5;
  reset_zoom(model);
  EXPECT_EQ(model.ZoomXMin, 44260.5);
  EXPECT_EQ(model.ZoomXMax, 44261.5);
}

TEST_F(ResetZoomTest, UnknownStepLeavesTheReadout) {
  add_plot(kKindReducedPairs, 1);
  model.CompressedDXMax = 0;
  reset_zoom(model);
  EXPECT_EQ(model.controls["ZoomPointsBox"].text, "12");
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kWhite);
}

TEST_F(ResetZoomTest, BringsBackAllLayersAndTheSettingsThatAZoomLocks) {
  add_plot(kKindReducedPairs, 1);
  model.FirstZoomLayer = 1;
  model.LastZoomLayer = 1;
  model.controls["mnuXUnit"].enabled = false;
  reset_zoom(model);
  EXPECT_EQ(model.FirstZoomLayer, 0);
  EXPECT_EQ(model.LastZoomLayer, 2);
  EXPECT_TRUE(model.controls["mnuXUnit"].enabled);
}

}  // namespace
}  // namespace trendaro
