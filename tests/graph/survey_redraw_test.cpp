#include "graph/survey_redraw.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/memory_host.h"
#include "graph/main_redraw.h"
#include "support/plot_fixture.h"
#include "support/recorder_builder.h"

namespace trendaro {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr f32 kNull = -1000000;

class SurveyRedrawTest : public PlotFixture {
 protected:
  std::string write_pairs() {
    RecorderBuilder file{.id = 6012, .row_count = 2, .reduce_factor = 20, .entries = {{}, {.channel = 2}}};
    file.data.values({-1, -2, 3, 4});
    return write("Lauf.STO", file.build());
  }
  [[nodiscard]] const GraphProperties& shown() const { return model.PESGSurvey.shown(); }
  [[nodiscard]] std::vector<f32> y() const { return y_of(model.PESGSurvey); }
  [[nodiscard]] std::vector<f32> x() const { return x_of(model.PESGSurvey); }
};

TEST_F(SurveyRedrawTest, PairsAreDrawnWithoutTheirLastSample) {
  add_plot(write_pairs(), 1, kKindReducedPairs, 4);
  model.ChannelParams[1].SampleInterval = 10;
  RedrawSurvGraph(model, false);
  EXPECT_THAT(y(), ElementsAre(-1, 3, -2, kNull));
  EXPECT_THAT(x(), ElementsAre(0, 0.1f, 0.2f, 0.3f));
  EXPECT_EQ(model.PlotReduceFactor[1], 20);
  EXPECT_EQ(model.CompressedDXMax, 0);
  EXPECT_EQ(model.ActiveReduceFactor, 0);
  EXPECT_EQ(model.XTitle, "");
  EXPECT_THAT(shell.calls, Contains("status 1: Übersichtsgraphik wird aktualisiert..."));
  EXPECT_EQ(shell.wait_pointers, 0);
}

TEST_F(SurveyRedrawTest, PlainCurveKeepsItsLastSample) {
  add_plot(write("a.dat", curve_file({{.samples = {1, 2, 4}, .interval = 500}})), 1, kKindPlain, 3);
  add_plot(write("b.dat", curve_file({{.samples = {7, 8}}})), 1, kKindPlain, 2);
  RedrawSurvGraph(model, false);
  EXPECT_THAT(y(), ElementsAre(1, 2, 4, 7, 8, kNull));
  EXPECT_EQ(x()[2], 1);
}

TEST_F(SurveyRedrawTest, PlotOfAHiddenLayerIsDrawn) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2}}, {.samples = {8, 9}}}));
  add_plot(path, 1, kKindPlain, 2);
  add_plot(path, 2, kKindPlain, 2);
  model.SurveyPlots[1].Layer = model.Plots[1].Layer = 1;
  model.SurveyPlots[2].Layer = model.Plots[2].Layer = 3;
  model.FirstLayer = 2;
  RedrawSurvGraph(model, false);
  EXPECT_EQ(shown().SubsetCount, 2);
  EXPECT_THAT(y(), ElementsAre(1, 2, 8, 9));
}

TEST_F(SurveyRedrawTest, PointsAreCountedWithoutATimeBase) {
  add_plot(write("a.dat", curve_file({{.samples = {1, 2, 4}, .interval = 500}})), 1, kKindPlain, 3);
  model.SurveyPlots[1].TimeFromRate = 0;
  RedrawSurvGraph(model, false);
  EXPECT_THAT(x(), ElementsAre(0, 1, 2));
}

TEST_F(SurveyRedrawTest, UnknownLengthMakesTheSlotsGrow) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2}}, {.samples = {5, 6, 7, 8}}}));
  add_plot(path, 1, kKindPlain, 2);
  add_plot(path, 2, kKindPlain, -1);
  RedrawSurvGraph(model, false);
  EXPECT_EQ(model.Plots[2].Points, 4);
  EXPECT_EQ(shown().PointCount, 4);
  EXPECT_THAT(y(), ElementsAre(1, 2, kNull, kNull, 5, 6, 7, 8));
}

// The length of a block curve in a hidden layer is known to no main plot.
TEST_F(SurveyRedrawTest, UnknownLengthOfABlockIsFoundAnewByEachRedraw) {
  add_plot(write("a.reb", curve_file({{.samples = {1, 5}}}, 40)), 1, kKindReducedBlock, 2);
  add_plot(write("b.reb", curve_file({{.samples = {3, 7, 4, 8}}}, 40)), 1, kKindReducedBlock, -1);
  for (int redraw = 0; redraw < 2; ++redraw) {
    RedrawSurvGraph(model, false);
    EXPECT_THAT(y(), ElementsAre(1, kNull, kNull, kNull, 3, 7, 4, kNull));
  }
  EXPECT_EQ(model.Plots[2].Points, -1);
}

TEST_F(SurveyRedrawTest, ZoomIntoOriginalsLeavesPairsReadableAndBlocksOut) {
  add_plot(write("b.reb", curve_file({{.samples = {1, 5, 2, 6}}}, 40)), 1, kKindReducedBlock, 4);
  add_plot(write_pairs(), 1, kKindReducedPairs, 4);
  model.Plots[1].FileKind = kKindDatabaseFromBlock;
  model.Plots[2].FileKind = kKindDatabase;
  RedrawSurvGraph(model, false);
  EXPECT_THAT(y(), ElementsAre(kNull, kNull, kNull, kNull, -1, 3, -2, kNull));
}

TEST_F(SurveyRedrawTest, SettingsAloneBringTheUnitOfAPlotWithoutPoints) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2}}}));
  add_plot(path, 1, kKindPlain, 2);
  add_plot(path, 1, kKindPlain, 0).Layer = 2;
  model.SurveyPlots[2].Layer = 2;
  RedrawSurvGraph(model, true);
  EXPECT_EQ(model.AxisUnits[0], "");
  EXPECT_EQ(model.AxisUnits[1], "kN");
  EXPECT_EQ(shown().YData, nullptr);
}

TEST_F(SurveyRedrawTest, PanelTellsOfTheUpdateUntilTheZoomBoxIsDrawn) {
  RedrawSurvGraph(model, true);
  EXPECT_THAT(shell.calls, ElementsAre("status 1: Übersichtsgraphik wird aktualisiert...", "status 1: "));
}

TEST_F(SurveyRedrawTest, BlocksAreReadAndPaddedWithTheNullValueOfTheMainGraph) {
  add_plot(write("b.reb", curve_file({{.samples = {1, 5, 2, 6}}}, 40)), 1, kKindReducedBlock, 4);
  model.PESG.pending.NullDataValue = -7;
  RedrawSurvGraph(model, false);
  EXPECT_THAT(y(), ElementsAre(1, 5, 2, -7));
  EXPECT_EQ(model.PlotReduceFactor[1], 40);
}

TEST_F(SurveyRedrawTest, DatabaseKindsAreSizedAndNotRead) {
  MemoryHost host(shell);
  model.Kernel = &host;
  const std::vector<f64> samples = {5, 6, 7};
  host.KSD_WriteToDatabaseEx(1, 2, samples, 0);
  add_plot("/nowhere/a.STO", 2, kKindDatabase, 9);
  i32 status_of_sizing = -1;
  shell.during_status = [&](const std::string& text) {
    if (text.starts_with("Einlesen der Daten")) status_of_sizing = model.LastDatabaseStatus;
  };
  RedrawSurvGraph(model, false);
  EXPECT_EQ(status_of_sizing, 3);  // the kernel's answer, here the length
  EXPECT_EQ(shown().PointCount, 3);
  EXPECT_THAT(y(), ElementsAre(kNull, kNull, kNull));
}

TEST_F(SurveyRedrawTest, ZoomBoxLimitsComeFromThePadding) {
  add_plot(write("a.dat", curve_file({{.samples = {0, 50, 100}, .interval = 1000}})), 1, kKindPlain, 3);
  model.CompressedDXMax = 3;
  model.ActiveReduceFactor = 20;
  RedrawSurvGraph(model, false);
  // 2 percent of 2 s and of 100 kN at each end.
  EXPECT_NEAR(model.SurveyMarginX, 0.04, 1e-9);
  EXPECT_NEAR(model.SurveyMarginY, 2, 1e-9);
  EXPECT_NEAR(model.ZoomYMin, -4, 1e-9);
  EXPECT_NEAR(model.ZoomYMax, 104, 1e-9);
  EXPECT_EQ(model.SurveySpanPoints, 120);  // 2 s times 3 times 20
}

TEST_F(SurveyRedrawTest, WithoutPaddingTheMarginsStand) {
  model.SurveyMarginX = 5;
  model.SurveyMarginY = 6;
  model.PESGSurvey.pending.AutoPadPercent = 0;
  RedrawSurvGraph(model, true);
  EXPECT_EQ(model.SurveyMarginX, 5);
  EXPECT_EQ(model.SurveyMarginY, 6);
}

TEST_F(SurveyRedrawTest, SeveralLayersLeaveTheZoomInYAlone) {
  add_plot(write("a.dat", curve_file({{.samples = {0, 50}}})), 1, kKindPlain, 2);
  model.gMultiLayer = true;
  model.ZoomYMin = 11;
  model.xSrc.ListIndex = 1;
  RedrawSurvGraph(model, false);
  EXPECT_EQ(model.ZoomYMin, 11);
  EXPECT_EQ(model.SurveySpanPoints, 0);
}

TEST_F(SurveyRedrawTest, DateAxisSwitchesDatesOnAndNothingSwitchesThemOff) {
  add_plot(write("a.dat", curve_file({{.samples = {1, 2}}})), 1, kKindPlain, 2);
  model.DateAxis = true;
  model.TimeUnit = 4;
  RedrawSurvGraph(model, false);
  EXPECT_EQ(shown().DateTimeMode, 1);
  EXPECT_EQ(shown().XDataII->size(), 2u);
  model.DateAxis = false;
  model.TimeUnit = 1;
  RedrawSurvGraph(model, false);
  EXPECT_EQ(shown().DateTimeMode, 1);
  EXPECT_FALSE(shown().UsingXDataII);
}

TEST_F(SurveyRedrawTest, DateOfAPlainRecordingInAHiddenLayerIsTaken) {
  RecorderBuilder file{.id = 6011, .row_count = 2, .entries = {{}}};
  file.data.values({1, 2});
  add_plot(write("Lauf.MEA", file.build()), 1, kKindPlain, 2);
  model.FirstLayer = 2;
  model.DateAxis = true;
  model.TimeUnit = 4;
  RedrawSurvGraph(model, false);
  EXPECT_EQ(model.PlotDateTexts[1], "Mar 05 2021 12:34:56");
  // 5 March 2021 is day 44260.
  EXPECT_EQ(std::floor((*shown().XDataII)[0]), 44260);
}

TEST_F(SurveyRedrawTest, EmptyListEmptiesTheUnits) {
  model.AxisUnits[4] = "bar";
  RedrawSurvGraph(model, false);
  EXPECT_EQ(model.AxisUnits[4], "");
  EXPECT_EQ(shown().SubsetCount, 0);
}

TEST_F(SurveyRedrawTest, UnreadableFileIsToldAndLeavesNullValues) {
  add_plot("/nowhere/gone.dat", 1, kKindPlain, 2);
  RedrawSurvGraph(model, false);
  EXPECT_THAT(shell.messages(), ElementsAre("Trendaro: Fehler beim Öffnen der Datei /nowhere/gone.dat"));
  EXPECT_THAT(y(), ElementsAre(kNull, kNull));
}

TEST_F(SurveyRedrawTest, SettingsAloneReadNothing) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2}}}));
  add_plot(path, 1, kKindPlain, 2);
  RedrawSurvGraph(model, false);
  const auto data = shown().YData;
  model.SurveyPlots[1].Color = 0x00FF00;
  RedrawSurvGraph(model, true);
  EXPECT_EQ(shown().YData, data);
  EXPECT_THAT(shown().SubsetColors, ElementsAre(0x00FF00));
}

}  // namespace
}  // namespace trendaro
