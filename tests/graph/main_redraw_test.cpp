#include "graph/main_redraw.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/memory_host.h"
#include "graph/graph_layout.h"
#include "support/fixed_measure.h"
#include "support/plot_fixture.h"
#include "support/recorder_builder.h"

namespace trendaro {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

constexpr f32 kNull = -1000000;

class MainRedrawTest : public PlotFixture {
 protected:
  // Plots of the pairs of a recording whose rows stand 100 ms apart and for 20 samples each.
  std::string write_pairs() {
    RecorderBuilder file{.id = 6012, .row_count = 2, .reduce_factor = 20, .entries = {{}, {.channel = 2}}};
    file.data.values({-1, -2, 3, 4});
    return write("Lauf.STO", file.build());
  }

  [[nodiscard]] const GraphProperties& shown() const { return model.PESG.shown(); }
  [[nodiscard]] std::vector<f32> y() const { return y_of(model.PESG); }
  [[nodiscard]] std::vector<f32> x() const { return x_of(model.PESG); }
};

TEST_F(MainRedrawTest, EmptyListGivesAnEmptyGraph) {
  model.AxisUnits[2] = "bar";
  model.XUnit = "s";
  RedrawKMGraph(model, false);
  EXPECT_EQ(shown().SubsetCount, 0);
  EXPECT_EQ(model.AxisUnits[2], "");
  EXPECT_EQ(model.XUnit, "");
  EXPECT_EQ(model.ActiveReduceFactor, 0);
  EXPECT_TRUE(shown().YData == nullptr || shown().YData->empty());
  EXPECT_EQ(shell.wait_pointers, 0);
  EXPECT_THAT(shell.calls, ElementsAre("status 1: Hauptgraphik wird aktualisiert...", "status 1: "));
}

TEST_F(MainRedrawTest, PlainCurveIsDrawnOverItsTime) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2, 4}, .interval = 500}}));
  add_plot(path, 1, kKindPlain, 3).Color = 0x0000FF;
  RedrawKMGraph(model, false);
  EXPECT_THAT(x(), ElementsAre(0, 0.5f, 1));
  EXPECT_THAT(y(), ElementsAre(1, 2, 4));
  EXPECT_EQ(shown().SubsetCount, 1);
  EXPECT_EQ(shown().PointCount, 3);
  EXPECT_EQ(shown().PlottingMethod, 4);
  EXPECT_THAT(shown().SubsetLabels, ElementsAre("Signal 1"));
  EXPECT_THAT(shown().SubsetColors, ElementsAre(0x0000FF));
  EXPECT_THAT(shown().SubsetsToLegend, ElementsAre(0));
  EXPECT_EQ(model.XTitle, "Zeit/s");
  EXPECT_EQ(model.XUnit, "s");
  EXPECT_EQ(model.AxisUnits[0], "kN");
  EXPECT_EQ(model.Plots[1].Unit, "kN");
  EXPECT_EQ(model.ViewPoints, 3);
  EXPECT_EQ(model.LongestFullPoints, 3);
  EXPECT_TRUE(model.FileChannelValues.empty());
  EXPECT_THAT(shell.calls, Contains("status 1: Einlesen der Daten für Kurve 1......."));
}

TEST_F(MainRedrawTest, ShorterCurveIsPaddedWithNullValues) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2, 4}}, {.samples = {7}}}));
  add_plot(path, 1, kKindPlain, 3);
  add_plot(path, 2, kKindPlain, 1);
  RedrawKMGraph(model, false);
  EXPECT_THAT(y(), ElementsAre(1, 2, 4, 7, kNull, kNull));
}

TEST_F(MainRedrawTest, OffsetsAndInversionTurnIntoDisplayValues) {
  const auto path =
      write("a.dat", curve_file({{.samples = {1, 2}}, {.name = "Weg", .unit = "mm", .samples = {10, 20}}}));
  PlotRecord& plot = add_plot(path, 1, kKindPlain, 2);
  plot.YOffset = 0.5;
  plot.InvertFlag = 1;
  plot.XSource = 2;
  plot.TimeFromRate = 0;
  plot.XOffset = 3;
  RedrawKMGraph(model, false);
  EXPECT_THAT(y(), ElementsAre(-1.5f, -2.5f));
  EXPECT_THAT(x(), ElementsAre(13, 23));
  EXPECT_EQ(model.XTitle, "Weg");
  EXPECT_EQ(model.XUnit, "mm");
}

TEST_F(MainRedrawTest, StepOfZeroCountsPointsInTheUnit) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2, 3}, .interval = 0}}));
  add_plot(path, 1, kKindPlain, 3);
  model.TimeUnit = 0;
  RedrawKMGraph(model, false);
  EXPECT_THAT(x(), ElementsAre(0, 1, 2));
  EXPECT_EQ(model.XTitle, "Zeit/ms");
}

TEST_F(MainRedrawTest, UnknownLengthIsFoundAndKept) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2, 3, 4}}}));
  add_plot(path, 1, kKindPlain, -1);
  RedrawKMGraph(model, false);
  EXPECT_EQ(model.Plots[1].Points, 4);
  EXPECT_THAT(y(), ElementsAre(1, 2, 3, 4));
}

TEST_F(MainRedrawTest, CurvesDrawnInTheMemoryOfOthersShowNothingOfThem) {
  const std::vector<f64> sevens(8, 7);
  const auto full = write("voll.dat", curve_file({{.samples = sevens}}));
  for (int plot = 0; plot < 3; ++plot) add_plot(full, 1, kKindPlain, 8);
  RedrawKMGraph(model, false);
  const f32 *const memory_of_x = shown().XData->data(), *const memory_of_y = shown().YData->data();

  model.Plots.clear();
  model.SurveyPlots.clear();
  model.LayerPlotCount = {0, 0, 0};
  const auto mixed = write("a.dat", curve_file({{.samples = {1, 2, 3}}, {.samples = {4}, .interval = 1000}}));
  add_plot(write_pairs(), 1, kKindReducedPairs, 4);
  add_plot(mixed, 1, kKindPlain, 3);
  add_plot("/nowhere/gone.dat", 1, kKindPlain, 4);
  add_plot(mixed, 2, kKindPlain, 0);
  add_plot(mixed, 1, kKindPlain, 3).Layer = 3;
  add_plot(mixed, 2, kKindPlain, -1);
  add_plot(mixed, 1, kKindPlain, 4).TimeFromRate = 0;
  model.LastLayer = 1;
  model.ChannelParams[1].SampleInterval = 100;
  RedrawKMGraph(model, false);
  EXPECT_EQ(shown().XData->data(), memory_of_x);
  EXPECT_EQ(shown().YData->data(), memory_of_y);
  EXPECT_THAT(y(), ElementsAre(-1, 3, -2, 4,                //
                               1, 2, 3, kNull,              //
                               kNull, kNull, kNull, kNull,  //
                               kNull, kNull, kNull, kNull,  //
                               4, kNull, kNull, kNull,      //
                               1, 2, 3, kNull));
  // Pairs of 10 samples of 100 ms to a point, samples of 1 ms, and one sample.
  EXPECT_THAT(x(), ElementsAre(0, 1, 2, 3,            //
                               0, 0.001f, 0.002f, 0,  //
                               0, 0, 0, 0,            //
                               0, 0, 0, 0,            //
                               0, 0, 0, 0,            //
                               0, 0, 0, 0));
}

TEST_F(MainRedrawTest, PlotOfAHiddenLayerTakesNoSlot) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2}}, {.samples = {8, 9}}}));
  add_plot(path, 1, kKindPlain, 2).Layer = 1;
  add_plot(path, 2, kKindPlain, 2).Layer = 2;
  model.LayerPlotCount = {1, 1, 0};
  model.FirstLayer = 1;
  RedrawKMGraph(model, false);
  EXPECT_EQ(shown().SubsetCount, 1);
  EXPECT_THAT(y(), ElementsAre(8, 9));
  EXPECT_THAT(shown().SubsetLabels, ElementsAre("Signal 2"));
  EXPECT_EQ(model.LayerShift, 1);
  EXPECT_THAT(shell.calls, Not(Contains("status 1: Einlesen der Daten für Kurve 1.......")));
}

TEST_F(MainRedrawTest, RightAxisIsAThousandAboveTheMethod) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2}}}));
  PlotRecord& plot = add_plot(path, 1, kKindPlain, 2);
  plot.RightAxis = 1;
  plot.PlotMethod = 3;
  plot.DisplayStyle = 1;
  model.LayerRightPlotCount[1] = 1;
  model.AxisAutoTitle = true;
  RedrawKMGraph(model, false);
  EXPECT_THAT(shown().SubsetPlotMethods, ElementsAre(1003));
  EXPECT_EQ(shown().SpecialSubsetCount, 1);
  EXPECT_EQ(model.AxisUnits[3], "kN");
  EXPECT_EQ(model.MainAxisTitles[3], "kN");
  EXPECT_TRUE(shown().layers[0].ShowRYAxis);
  EXPECT_EQ(shown().layers[0].RYAxisLabel, "kN");
}

TEST_F(MainRedrawTest, RightAxisShowsWhereRightCurvesAreAndTheFirstLayersAreHidden) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2}}, {.samples = {8, 9}}}));
  add_plot(path, 1, kKindPlain, 2).Layer = 1;
  PlotRecord& right = add_plot(path, 2, kKindPlain, 2);
  right.Layer = 2;
  right.RightAxis = 1;
  model.LayerPlotCount = {1, 1, 0};
  model.LayerRightPlotCount[2] = 1;
  const auto sides = [&] {
    std::string shows;
    for (const LayerLayout& layer : graph_layout(shown(), 600, 400, FixedMeasure()).layers)
      shows += layer.shows_right ? 'r' : layer.has_left ? 'l' : '-';
    return shows;
  };
  RedrawKMGraph(model, false);
  EXPECT_EQ(sides(), "lr");
  model.FirstLayer = 1;
  RedrawKMGraph(model, false);
  EXPECT_EQ(sides(), "r");
}

TEST_F(MainRedrawTest, PairsAreInterleavedMinimumFirst) {
  const auto path = write_pairs();
  add_plot(path, 1, kKindReducedPairs, 4);
  model.ChannelParams[1].SampleInterval = 10;
  RedrawKMGraph(model, false);
  EXPECT_THAT(y(), ElementsAre(-1, 3, -2, 4));
  // 20 samples of 10 ms behind a pair: 0.1 s from point to point.
  EXPECT_THAT(x(), ElementsAre(0, 0.1f, 0.2f, 0.3f));
  EXPECT_EQ(model.PlotReduceFactor[1], 20);
  EXPECT_EQ(model.ActiveReduceFactor, 20);
  EXPECT_EQ(model.LongestOriginalPoints, 40);
  EXPECT_DOUBLE_EQ(model.PlotStep[1], 0.1);
  EXPECT_DOUBLE_EQ(model.CompressedDXMax, 0.1);
  EXPECT_EQ(model.MainTitles[1], "komprimierte Daten");
}

TEST_F(MainRedrawTest, DateAxisStartsAtTheDateOfTheRecording) {
  const auto path = write_pairs();
  add_plot(path, 1, kKindReducedPairs, 4);
  model.ChannelParams[1].SampleInterval = 10;
  model.TimeUnit = 4;
  model.DateAxis = true;
  RedrawKMGraph(model, false);
  EXPECT_EQ(model.FirstDateText, "Mar 05 2021 12:34:56");
  ASSERT_NE(shown().XDataII, nullptr);
  // 5 March 2021 is day 44260; 12:34:56 are 45296 seconds.
  const f64 start = 44260 + 45296.0 / 86400;
  ASSERT_EQ(shown().XDataII->size(), 4u);
  for (int k = 0; k < 4; ++k)
    EXPECT_NEAR((*shown().XDataII)[static_cast<std::size_t>(k)], start + k * 0.1 / 86400, 1e-9);
  EXPECT_TRUE(shown().UsingXDataII);
  EXPECT_EQ(shown().DateTimeMode, 1);
  EXPECT_EQ(model.XTitle, "Zeit");
  EXPECT_EQ(model.XUnit, "");
}

TEST_F(MainRedrawTest, DateModeGoesOffWithTheDateAxis) {
  model.PESG.pending.DateTimeMode = 1;
  add_plot(write("a.dat", curve_file({{.samples = {1}}})), 1, kKindPlain, 1);
  RedrawKMGraph(model, false);
  EXPECT_EQ(shown().DateTimeMode, 0);
}

TEST_F(MainRedrawTest, BlockReducedFileIsDrawnAsItIsStored) {
  const auto path = write("a.reb", curve_file({{.samples = {1, 5, 2, 6}}}, 40));
  add_plot(path, 1, kKindReducedBlock, 4);
  model.ChannelParams[1].SampleInterval = 0.5;
  model.TimeUnit = 0;
  RedrawKMGraph(model, false);
  EXPECT_THAT(y(), ElementsAre(1, 5, 2, 6));
  EXPECT_THAT(x(), ElementsAre(0, 10, 20, 30));
  EXPECT_EQ(model.PlotReduceFactor[1], 40);
  EXPECT_EQ(model.LongestOriginalPoints, 80);
}

TEST_F(MainRedrawTest, OriginalSamplesComeOutOfTheDatabase) {
  MemoryHost host(shell);
  model.Host = &host;
  const std::vector<f64> samples = {5, 6, 7};
  host.KSD_WriteToDatabaseEx(1, 1, samples, 0);
  add_plot("/nowhere/a.STO", 1, kKindDatabase, 100).Unit = "V";
  add_plot("/nowhere/a.STO", 2, kKindDatabase, 100);  // its channel is empty
  model.OriginalDataMode = true;
  model.ViewPoints = 500;
  model.ChannelParams[1].SampleInterval = 2;
  model.PlotOffsetPoints.resize(2);
  model.PlotReduceFactor.resize(2);
  model.PlotOffsetPoints[1] = 10;
  model.PlotReduceFactor[1] = 8;
  model.TimeUnit = 0;
  RedrawKMGraph(model, false);
  EXPECT_EQ(shown().PointCount, 3);
  EXPECT_THAT(y(), ElementsAre(5, 6, 7, kNull, kNull, kNull));
  EXPECT_THAT(x(), ElementsAre(20, 22, 24, kNull, kNull, kNull));
  EXPECT_EQ(model.AxisUnits[0], "");  // that of the last plot
  EXPECT_DOUBLE_EQ(model.PlotStep[1], 8);
  EXPECT_EQ(model.MainTitles[1], "originale Daten");
}

TEST_F(MainRedrawTest, DatabaseCurveWithoutATimeBaseTakesTheLineOfTheCurveBefore) {
  MemoryHost host(shell);
  model.Host = &host;
  const std::vector<f64> samples = {5, 6};
  for (i32 channel : {1, 2}) host.KSD_WriteToDatabaseEx(1, channel, samples, 0);
  add_plot("/nowhere/a.STO", 1, kKindDatabase, 2);
  add_plot("/nowhere/a.STO", 2, kKindDatabase, 2).TimeFromRate = 0;
  model.OriginalDataMode = true;
  model.ChannelParams[1].SampleInterval = 3;
  model.TimeUnit = 0;
  RedrawKMGraph(model, false);
  EXPECT_THAT(x(), ElementsAre(0, 3, 0, 3));
}

TEST_F(MainRedrawTest, DatabaseCurveOverAChannelTakesItsNameAndUnit) {
  MemoryHost host(shell);
  model.Host = &host;
  const std::vector<f64> samples = {5, 6, 7};
  const std::vector<f64> places = {1, 2};
  host.KSD_WriteToDatabaseEx(1, 2, samples, 0);
  host.KSD_WriteToDatabaseEx(1, 1, places, 0);
  host.KSD_SetDatabaseChanText(1, kChanName, " Weg ");
  host.KSD_SetDatabaseChanText(1, kChanUnit, " mm ");
  PlotRecord& plot = add_plot("/nowhere/a.STO", 1, kKindDatabase, 3);
  plot.DatabaseChannel = 2;
  plot.XSource = 3;
  plot.TimeFromRate = 0;
  plot.XOffset = 10;
  model.OriginalDataMode = true;
  RedrawKMGraph(model, false);
  EXPECT_THAT(x(), ElementsAre(11, 12, 10));
  EXPECT_EQ(model.XTitle, "Weg");
  EXPECT_EQ(model.XUnit, "mm");
}

TEST_F(MainRedrawTest, UnreadableFileIsToldAndLeavesNullValues) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2}}}));
  add_plot("/nowhere/gone.dat", 1, kKindPlain, 2);
  add_plot(path, 1, kKindPlain, 2);
  RedrawKMGraph(model, false);
  EXPECT_THAT(shell.messages(), ElementsAre("Trendaro: Fehler beim Öffnen der Datei /nowhere/gone.dat"));
  EXPECT_THAT(shell.icons, ElementsAre(MessageIcon::Stop));
  EXPECT_THAT(y(), ElementsAre(kNull, kNull, 1, 2));
}

TEST_F(MainRedrawTest, PlotWithoutPointsTakesItsUnitAndASlotOfNullValues) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2}}, {.unit = "Pa"}}));
  add_plot(path, 1, kKindPlain, 2);
  add_plot(path, 2, kKindPlain, 0).RightAxis = 1;
  RedrawKMGraph(model, false);
  EXPECT_THAT(y(), ElementsAre(1, 2, kNull, kNull));
  EXPECT_EQ(model.AxisUnits[3], "Pa");
}

TEST_F(MainRedrawTest, ClaimedLengthDoesNotSizeMemory) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2}}}));
  add_plot(path, 1, kKindPlain, 2147483647);
  RedrawKMGraph(model, false);
  EXPECT_LE(shown().PointCount, 1000000);
  EXPECT_EQ(y()[1], 2);
}

TEST_F(MainRedrawTest, SettingsAloneReadNothing) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2}}}));
  add_plot(path, 1, kKindPlain, 2);
  RedrawKMGraph(model, false);
  const auto data = shown().YData;
  write_file(path, "");
  model.Plots[1].Color = 0xFF0000;
  model.NoLegend = true;
  RedrawKMGraph(model, true);
  EXPECT_EQ(shown().YData, data);
  EXPECT_THAT(shown().SubsetColors, ElementsAre(0xFF0000));
  EXPECT_THAT(shown().SubsetsToLegend, ElementsAre(-1));
  EXPECT_EQ(model.XUnit, "s");
  EXPECT_TRUE(shell.messages().empty());
}

TEST_F(MainRedrawTest, AnnotationsOutliveTheSetUpOfTheGraph) {
  add_plot(write("a.dat", curve_file({{.samples = {1, 2, 4}, .interval = 500}})), 1, kKindPlain, 3);
  model.AnnotationCount = 1;
  model.Annotations.resize(1);
  model.Annotations[1] = {.Type = 1, .Y = {3, 0}, .Text = "Grenze", .LineStyle = 1};
  for (int redraw = 0; redraw < 2; ++redraw) {
    RedrawKMGraph(model, false);
    EXPECT_THAT(shown().HorzLineAnnotation, ElementsAre(3));
    EXPECT_THAT(shown().HorzLineAnnotationText, ElementsAre("Grenze"));
    EXPECT_TRUE(shown().ShowAnnotations);
  }
}

TEST_F(MainRedrawTest, LiveUseHandsNoDataOver) {
  add_plot(write("a.dat", curve_file({{.samples = {1, 2}}})), 1, kKindPlain, 2);
  model.IsRealTime = true;
  RedrawKMGraph(model, false);
  EXPECT_EQ(shown().YData, nullptr);
  EXPECT_THAT(shown().SubsetLabels, ElementsAre("Signal 1"));
}

TEST_F(MainRedrawTest, LongPlainCurveIsCompressed) {
  std::vector<f64> samples(1000);
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = static_cast<f64>(i % 10);
  samples[503] = 99;
  add_plot(write("a.dat", curve_file({{.samples = samples}})), 1, kKindPlain, 1000);
  model.controls["mnuUseCompression"].ticked = true;
  model.CompressThreshold = 999;
  model.CompressTarget = 100;
  RedrawKMGraph(model, false);
  EXPECT_TRUE(model.DisplayCompression);
  EXPECT_EQ(model.CompressFactor, 10);
  EXPECT_EQ(shown().PointCount, 100);
  const auto values = y();
  EXPECT_EQ(values[0], 0);
  EXPECT_EQ(values[1], 9);
  EXPECT_THAT(values, Contains(99));
}

// Blocks of two samples, or of three: 124 and 168 samples of 1000 give more points than the 100 of all.
TEST_F(MainRedrawTest, ZoomedCurveIsNotCutAtTheSlotOfTheWholeCurve) {
  std::vector<f64> samples(1000);
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = static_cast<f64>(i);
  add_plot(write("a.dat", curve_file({{.samples = samples, .interval = 1000}})), 1, kKindPlain, 1000);
  add_plot(write("b.dat", curve_file({{.samples = samples, .interval = 1000}})), 1, kKindPlain, 1000);
  model.controls["mnuUseCompression"].ticked = true;
  model.CompressThreshold = 999;
  model.CompressTarget = 100;
  model.Zoomed = true;
  struct Row {
    f64 high;
    f32 last;
    std::size_t slot;
  };
  for (const Row& row : {Row{223.5, 223, 124}, Row{268.5, 267, 124}}) {
    model.ZoomScaleLimits[0] = {99.5, row.high, 0, 0};
    RedrawKMGraph(model, false);
    ASSERT_EQ(y().size(), 2 * row.slot) << row.high;
    EXPECT_EQ(y()[0], 100) << row.high;
    for (const std::size_t first : {std::size_t{0}, row.slot}) {
      f32 last = 0;
      for (std::size_t i = first; i < first + row.slot; ++i) last = std::max(last, y()[i]);
      EXPECT_EQ(last, row.last) << row.high;
    }
  }
}

TEST_F(MainRedrawTest, ThresholdItselfKeepsTheCompressionAsItWas) {
  add_plot(write("a.dat", curve_file({{.samples = {1, 2, 3, 4}}})), 1, kKindPlain, 4);
  model.controls["mnuUseCompression"].ticked = true;
  model.CompressThreshold = 4;
  RedrawKMGraph(model, false);
  EXPECT_FALSE(model.DisplayCompression);
  model.DisplayCompression = true;
  RedrawKMGraph(model, false);
  EXPECT_TRUE(model.DisplayCompression);
  model.CompressThreshold = 5;
  RedrawKMGraph(model, false);
  EXPECT_FALSE(model.DisplayCompression);
}

}  // namespace
}  // namespace trendaro
