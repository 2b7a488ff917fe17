#include "datasource/plot_list.h"

#include "app/toolbar.h"
#include "datasource/list_fixture.h"

namespace trendaro {
namespace {

using PlotListTest = ListFixture;
using Texts = std::vector<std::string>;

AnnotationRecord annotation_on(i16 plot) {
  AnnotationRecord record;
  record.Plot = plot;
  return record;
}

std::vector<i16> annotated_plots(const Model& model) {
  std::vector<i16> found;
  for (const AnnotationRecord& record : model.Annotations) found.push_back(record.Plot);
  return found;
}

TEST_F(PlotListTest, OrderIsLayerThenSideThenRow) {
  add_file("run.BIN", 5);
  write_mark(2, 3, 1);
  write_mark(3, 1, 2);
  write_mark(4, 1, 1);
  write_mark(5, 1, 2);
  write_mark(6, 1, 1);
  RebuildPlotList(model);
  EXPECT_EQ(signals(), (Texts{"run.BIN 3", "run.BIN 5", "run.BIN 2", "run.BIN 4", "run.BIN 1"}));
  EXPECT_EQ(model.NofPlots, 5);
  EXPECT_EQ(model.LayerPlotCount, (OneBased<i16>{4, 0, 1}));
  EXPECT_EQ(model.LayerRightPlotCount, (OneBased<i16>{2, 0, 0}));
  EXPECT_EQ(model.Plots[3].RightAxis, 1);
  EXPECT_EQ(model.Plots[5].Layer, 3);
  EXPECT_EQ(model.ActiveLayers, 2);
  EXPECT_TRUE(model.ActiveLayersChanged);
  EXPECT_TRUE(model.gMultiLayer);
}

TEST_F(PlotListTest, SameLayersAgainAreNoChange) {
  add_file("run.BIN", 2);
  write_mark(2);
  RebuildPlotList(model);
  write_mark(3);
  RebuildPlotList(model);
  EXPECT_FALSE(model.ActiveLayersChanged);
  EXPECT_FALSE(model.gMultiLayer);
  EXPECT_EQ(model.ActiveLayers, 1);
}

TEST_F(PlotListTest, ColoursRunThroughThePalette) {
  add_file("run.BIN", 8);
  for (i32 row = 2; row <= 9; ++row) write_mark(row);
  RebuildPlotList(model);
  std::vector<i32> colors;
  for (const PlotRecord& plot : model.Plots) colors.push_back(plot.Color);
  // Red, blue, magenta, green, cyan, yellow, as 0x00BBGGRR, and from the start again.
  EXPECT_EQ(colors, (std::vector<i32>{0x0000FF, 0xFF0000, 0xFF00FF, 0x00FF00, 0xFFFF00, 0x00FFFF, 0x0000FF,
                                      0xFF0000}));
}

TEST_F(PlotListTest, SignalIsDescribedByItsRow) {
  const std::string path = add_file("run.BIN", 2);
  write_mark(3);
  RebuildPlotList(model);
  const PlotRecord& plot = model.Plots[1];
  EXPECT_EQ(plot.Title, "run.BIN 2@" + path);
  EXPECT_EQ(plot.ChannelIndex, 2);
  EXPECT_EQ(plot.FileKind, kKindPlain);
  EXPECT_EQ(plot.Points, 4);
  EXPECT_EQ(plot.XSource, 0);
  EXPECT_EQ(plot.TimeFromRate, 1);
  EXPECT_TRUE(model.HasFullDataPlot);
}

TEST_F(PlotListTest, EachExtensionIsKnownInOnePlaceOnly) {
  add_file("a.ST1", 2);
  add_file("b.STO", 2);
  add_file("c.ST2", 2);
  add_file("d.x.ST2", 1);
  add_file("e.reb", 1, 8);
  for (const i32 row : {2, 4, 6, 8, 10}) write_mark(row);
  RebuildPlotList(model);
  ASSERT_EQ(model.NofPlots, 5);
  EXPECT_EQ(model.Plots[1].FileKind, kKindReducedPairs);
  EXPECT_EQ(model.Plots[1].Points, 8);
  EXPECT_EQ(model.Plots[2].FileKind, kKindPlain);
  EXPECT_EQ(model.Plots[2].Points, 4);
  EXPECT_EQ(model.Plots[3].FileKind, kKindPlain);
  EXPECT_EQ(model.Plots[4].FileKind, kKindReducedPairs);
  EXPECT_EQ(model.Plots[5].FileKind, kKindReducedBlock);
  EXPECT_EQ(model.Plots[5].Points, 4);
}

TEST_F(PlotListTest, OnlyReducedFilesLeaveNoFullData) {
  add_file("a.ST1", 2);
  add_file("e.REB", 1, 8);
  write_mark(2);
  write_mark(4);
  model.HasFullDataPlot = true;
  RebuildPlotList(model);
  EXPECT_FALSE(model.HasFullDataPlot);
}

TEST_F(PlotListTest, PointsThatCannotBeDoubledStayAsTheyAre) {
  add_file("a.ST1", 2);
  model.Grid.rows[2].points = 0x50000000;
  write_mark(2);
  RebuildPlotList(model);
  EXPECT_EQ(model.Plots[1].Points, 0x50000000);
}

TEST_F(PlotListTest, DatabaseChannelsStartAtTheScratchChannel) {
  add_file("run.BIN", 2);
  model.XScratchChannel = 7;
  write_mark(2);
  write_mark(3);
  RebuildPlotList(model);
  EXPECT_EQ(model.Plots[1].DatabaseChannel, 7);
  EXPECT_EQ(model.Plots[2].DatabaseChannel, 8);
  EXPECT_EQ(model.HighestDatabaseChannel, 8);
}

TEST_F(PlotListTest, XChannelTakesTheFirstDatabaseChannel) {
  add_file("run.BIN", 2);
  model.XScratchChannel = 7;
  model.xSrc.ListIndex = 1;
  model.xSrc.entries[1].item_data = 2;
  write_mark(2);
  RebuildPlotList(model);
  EXPECT_EQ(model.Plots[1].DatabaseChannel, 8);
  EXPECT_EQ(model.Plots[1].XSource, 2);
  EXPECT_EQ(model.Plots[1].TimeFromRate, 0);
}

TEST_F(PlotListTest, EndOfTheDatabaseStartsAgainAtOne) {
  add_file("run.BIN", 4);
  model.XScratchChannel = 95;
  for (i32 row = 2; row <= 5; ++row) write_mark(row);
  RebuildPlotList(model);
  std::vector<i16> channels;
  for (const PlotRecord& plot : model.Plots) channels.push_back(plot.DatabaseChannel);
  EXPECT_EQ(channels, (std::vector<i16>{95, 96, 1, 4}));
  EXPECT_EQ(model.XScratchChannel, 1);
  EXPECT_EQ(
      shell.messages(),
      (Texts{"Trendaro: Alle Datenbasiskanäle sind belegt. Es wird ab dem ersten Kanal importiert, alte "
             "Daten werden überschrieben."}));
  EXPECT_EQ(shell.icons, (std::vector{MessageIcon::Stop}));
}

TEST_F(PlotListTest, FailureInsideOfAPlotCostsNoneOfItsLaterSteps) {
  const std::string path = add_file("run.BIN", 2);
  model.XScratchChannel = 96;
  write_mark(2);
  write_mark(3);
  shell.during_message = [] { throw RunTimeError{kHostCallFailed}; };
  RebuildPlotList(model);
  ASSERT_EQ(model.NofPlots, 2);
  EXPECT_EQ(model.Plots[2].DatabaseChannel, 1);
  EXPECT_EQ(model.Plots[2].Title, "run.BIN 2@" + path);
  EXPECT_EQ(model.Plots[2].Color, 0xFF0000);
  EXPECT_EQ(model.SurveyPlots[2].Title, model.Plots[2].Title);
}

TEST_F(PlotListTest, ShortDatabaseChannelIsToldOnce) {
  add_file("run.BIN", 2);
  model.controls["PointsBox"].text = "500";
  host.set_capacity(1, 499);
  host.set_capacity(2, 499);
  write_mark(2);
  write_mark(3);
  RebuildPlotList(model);
  RebuildPlotList(model);
  EXPECT_EQ(shell.messages(),
            (Texts{"Trendaro: Datenbasiskanal 1 ist zu kurz um alle Zoomwerte zu importieren. Sie können "
                   "entweder die Datenbasis vergrößern oder die Anzahl der Zoomwerte verringern."}));
  EXPECT_EQ(shell.icons, (std::vector{MessageIcon::Stop}));
  EXPECT_TRUE(model.ZoomLengthWarned);
  EXPECT_EQ(model.MaxZoomPoints, 500);
}

TEST_F(PlotListTest, ShortDatabaseChannelIsToldOnceOverAllRedraws) {
  add_file("run.BIN", 2);
  model.controls["PointsBox"].text = "500";
  host.set_capacity(1, 499);
  host.set_capacity(2, 499);
  mark(2);
  mark(3);
  EXPECT_EQ(shell.messages().size(), 1U);
}

TEST_F(PlotListTest, ChannelOfExactlyTheZoomPointsIsLongEnough) {
  add_file("run.BIN", 1);
  model.controls["PointsBox"].text = "500";
  host.set_capacity(1, 500);
  write_mark(2);
  RebuildPlotList(model);
  EXPECT_TRUE(shell.messages().empty());
  EXPECT_FALSE(model.ZoomLengthWarned);
}

TEST_F(PlotListTest, RefusalOfTheHostIsPassedOver) {
  add_file("run.BIN", 2);
  host.refuses = true;
  write_mark(2);
  write_mark(3);
  RebuildPlotList(model);
  EXPECT_EQ(model.NofPlots, 2);
  EXPECT_EQ(model.Plots[2].Color, 0xFF0000);
  EXPECT_TRUE(shell.messages().empty());
}

TEST_F(PlotListTest, ParametersLieUnderTheDatabaseChannel) {
  add_file("run.BIN", 3);
  model.XScratchChannel = 20;
  write_mark(3);
  write_mark(4);
  RebuildPlotList(model);
  EXPECT_EQ(model.ChannelParams[20].HardwareChannel, 2);
  EXPECT_EQ(model.ChannelParams[20].SampleInterval, 4);
  EXPECT_EQ(model.ChannelParams[21].HardwareChannel, 3);
}

TEST_F(PlotListTest, VanishedFileLeavesThePlotWithoutParameters) {
  const std::string path = add_file("run.BIN", 1);
  write_mark(2);
  RebuildPlotList(model);
  EXPECT_TRUE(model.ChannelParams.contains(1));
  std::filesystem::remove(path);
  RebuildPlotList(model);
  EXPECT_EQ(model.NofPlots, 1);
  EXPECT_FALSE(model.ChannelParams.contains(1));
}

TEST_F(PlotListTest, FileReplacedByAShorterOneLeavesThePlotWithoutParameters) {
  add_file("run.BIN", 2);
  write_mark(3);
  RebuildPlotList(model);
  make_file("run.BIN", 1);
  RebuildPlotList(model);
  EXPECT_FALSE(model.ChannelParams.contains(1));
}

TEST_F(PlotListTest, SettingsOfACurveAreCarriedOver) {
  add_file("run.BIN", 2);
  write_mark(3);
  RebuildPlotList(model);
  PlotRecord& before = model.Plots[1];
  before.PlotMethod = 3;
  before.LineType = 4;
  before.PointType = 5;
  before.Color = 0x123456;
  before.Cached = 1;
  before.YOffset = 9;
  model.CurveCache[1] = {1, 2, 3};
  const f64* samples = model.CurveCache[1].data();
  write_mark(2);
  RebuildPlotList(model);
  const PlotRecord& plot = model.Plots[2];
  EXPECT_EQ(plot_signal(plot), "run.BIN 2");
  EXPECT_EQ(plot.PlotMethod, 3);
  EXPECT_EQ(plot.LineType, 4);
  EXPECT_EQ(plot.PointType, 5);
  EXPECT_EQ(plot.Cached, 1);
  EXPECT_EQ(plot.YOffset, 0);
  EXPECT_EQ(plot.Color, 0xFF0000);  // the palette again
  EXPECT_EQ(model.CurveCache[2].data(), samples);
  EXPECT_TRUE(model.CurveCache[1].empty());
  EXPECT_EQ(model.Plots[1].Cached, 0);
}

TEST_F(PlotListTest, UnknownPointsComeFromTheFormerPlot) {
  add_file("run.BIN", 1);
  model.Grid.rows[2].points = -1;
  write_mark(2);
  RebuildPlotList(model);
  EXPECT_EQ(model.Plots[1].Points, -1);
  model.Plots[1].Points = 777;
  RebuildPlotList(model);
  EXPECT_EQ(model.Plots[1].Points, 777);
}

TEST_F(PlotListTest, SameFileTwiceSharesTheSamplesOfTheLastPlot) {
  const std::string path = add_file("run.BIN", 1);
  AddFileToGrid(model, path, false);
  write_mark(2);
  write_mark(4);
  RebuildPlotList(model);
  model.Plots[2].Cached = 1;
  model.CurveCache[2] = {5, 6};
  RebuildPlotList(model);
  EXPECT_EQ(model.CurveCache[1], (SampleArray{5, 6}));
  EXPECT_EQ(model.CurveCache[2], (SampleArray{5, 6}));
  EXPECT_EQ(model.Plots[1].Cached, 1);
}

TEST_F(PlotListTest, AnnotationsOfASignalThatIsListedTwiceGoToItsFirstPlot) {
  const std::string path = add_file("run.BIN", 1);
  AddFileToGrid(model, path, false);
  write_mark(2);
  write_mark(4);
  RebuildPlotList(model);
  model.Annotations.push_back(annotation_on(1));
  model.Annotations.push_back(annotation_on(2));
  model.AnnotationCount = 2;
  RebuildPlotList(model);
  EXPECT_EQ(annotated_plots(model), (std::vector<i16>{1, 1}));
}

TEST_F(PlotListTest, OriginalChannelsMatchTheirPairs) {
  add_file("run.ST1", 4);
  write_mark(3);
  RebuildPlotList(model);
  EXPECT_EQ(model.Plots[1].ChannelIndex, 3);
  model.OriginalDataMode = true;
  model.Plots[1].FileKind = kKindDatabase;
  model.Plots[1].ChannelIndex = 2;  // (3 + 1) / 2, the channel of the original file
  model.Plots[1].LineType = 6;
  RebuildPlotList(model);
  EXPECT_EQ(model.Plots[1].ChannelIndex, 3);
  EXPECT_EQ(model.Plots[1].LineType, 6);
}

TEST_F(PlotListTest, PairsAreMatchedByWhatTheFormerPlotsShowWhateverTheMode) {
  add_file("run.ST1", 6);
  for (const i32 row : {2, 3, 4}) write_mark(row);
  RebuildPlotList(model);
  ASSERT_EQ(model.NofPlots, 3);
  for (i16 n = 1; n <= 3; ++n) model.Plots[n].LineType = n;
  model.OriginalDataMode = true;  // the host has failed ahead of the first import
  RebuildPlotList(model);
  for (i16 n = 1; n <= 3; ++n) EXPECT_EQ(model.Plots[n].LineType, n) << n;
  model.OriginalDataMode = false;  // a bound was refused with the samples on show
  for (i16 n = 1; n <= 3; ++n) {
    model.Plots[n].FileKind = kKindDatabase;
    model.Plots[n].ChannelIndex = n;
  }
  RebuildPlotList(model);
  for (i16 n = 1; n <= 3; ++n) EXPECT_EQ(model.Plots[n].LineType, n) << n;
}

TEST_F(PlotListTest, BlockRecordingsKeepTheirChannelNumbersInOriginalData) {
  add_file("run.REB", 4);
  for (i32 row = 2; row <= 5; ++row) write_mark(row);
  RebuildPlotList(model);
  model.OriginalDataMode = true;
  for (i16 n = 1; n <= 4; ++n) {
    model.Plots[n].FileKind = kKindDatabaseFromBlock;
    model.Plots[n].LineType = static_cast<i16>(n + 2);
  }
  RebuildPlotList(model);
  for (i16 n = 1; n <= 4; ++n) {
    EXPECT_EQ(model.Plots[n].ChannelIndex, n);
    EXPECT_EQ(model.Plots[n].LineType, n + 2);
  }
}

TEST_F(PlotListTest, UnknownPointsOfPairsAreTakenFromTheFormerPlot) {
  add_file("run.ST1", 2);
  model.Grid.rows[2].points = -1;
  write_mark(2);
  RebuildPlotList(model);
  EXPECT_EQ(model.Plots[1].Points, -1);
  model.Plots[1].Points = 777;
  RebuildPlotList(model);
  EXPECT_EQ(model.Plots[1].Points, 777);
}

TEST_F(PlotListTest, DatabaseChannelsAreNeverTakenForEachOther) {
  model.IOChannelCount = 2;
  InitDataSourceGrid(model);
  write_mark(2);
  RebuildPlotList(model);
  model.Plots[1].LineType = 7;
  model.Annotations.push_back(annotation_on(1));
  model.AnnotationCount = 1;
  clear_mark(model.Grid, 2);
  write_mark(3);
  RebuildPlotList(model);
  ASSERT_EQ(model.NofPlots, 1);
  EXPECT_EQ(model.Plots[1].LineType, 0);
  EXPECT_EQ(model.AnnotationCount, 0);
}

TEST_F(PlotListTest, SurveyTakesTheCurveWithoutUnitAndCache) {
  add_file("run.BIN", 2);
  write_mark(2);
  RebuildPlotList(model);
  model.Plots[1].Cached = 1;
  model.Plots[1].PlotMethod = 2;
  write_mark(3);
  RebuildPlotList(model);
  ASSERT_EQ(model.SurveyPlots.size(), 2U);
  const PlotRecord& survey = model.SurveyPlots[1];
  EXPECT_EQ(survey.Title, model.Plots[1].Title);
  EXPECT_EQ(survey.Color, model.Plots[1].Color);
  EXPECT_EQ(survey.DatabaseChannel, model.Plots[1].DatabaseChannel);
  EXPECT_EQ(survey.PlotMethod, 2);
  EXPECT_EQ(survey.Points, 4);
  EXPECT_EQ(survey.Cached, 0);
}

TEST_F(PlotListTest, AnnotationsFollowTheirPlotToAnotherLayer) {
  add_file("run.BIN", 2);
  write_mark(2);
  write_mark(3);
  RebuildPlotList(model);
  for (const i16 plot : std::initializer_list<i16>{1, 0, 2, 1})
    model.Annotations.push_back(annotation_on(plot));
  model.AnnotationCount = 4;
  write_mark(2, 2, 1);
  RebuildPlotList(model);
  EXPECT_EQ(signals(), (Texts{"run.BIN 2", "run.BIN 1"}));
  EXPECT_EQ(annotated_plots(model), (std::vector<i16>{2, 0, 1, 2}));
  EXPECT_EQ(model.Annotations[1].Color, 0xFF0000);
  EXPECT_EQ(model.Annotations[3].Color, 0x0000FF);
  EXPECT_FALSE(model.Annotations[1].Moved);
}

TEST_F(PlotListTest, AnnotationsOfAPlotThatHasGoneAreDeleted) {
  add_file("run.BIN", 3);
  for (i32 row = 2; row <= 4; ++row) write_mark(row);
  RebuildPlotList(model);
  for (const i16 plot : std::initializer_list<i16>{2, 1, 2, 3, 0})
    model.Annotations.push_back(annotation_on(plot));
  model.AnnotationCount = 5;
  clear_mark(model.Grid, 3);
  RebuildPlotList(model);
  EXPECT_EQ(annotated_plots(model), (std::vector<i16>{1, 2, 0}));
  EXPECT_EQ(model.AnnotationCount, 3);
  EXPECT_TRUE(shell.calls.empty()) << "nothing is asked";
  EXPECT_EQ(model.PESG.pending.GraphAnnotationColor, (std::vector<i32>{0x0000FF, 0xFF0000, 0}));
  for (const i32 row : {2, 4}) clear_mark(model.Grid, row);
  model.Annotations[3].Plot = 1;
  RebuildPlotList(model);
  EXPECT_EQ(model.AnnotationCount, 0);
  EXPECT_TRUE(model.PESG.pending.GraphAnnotationColor.empty());
}

TEST_F(PlotListTest, UnmarkedPlotGivesItsSamplesBack) {
  add_file("run.BIN", 2);
  write_mark(2);
  write_mark(3);
  RebuildPlotList(model);
  model.Plots[1].Cached = 1;
  model.CurveCache[1] = {1, 2};
  clear_mark(model.Grid, 2);
  RebuildPlotList(model);
  ASSERT_EQ(model.CurveCache.size(), 1U);
  EXPECT_TRUE(model.CurveCache[1].empty());
}

TEST_F(PlotListTest, NoMarksGoBackToTheFirstLayer) {
  add_file("run.BIN", 1);
  write_mark(2, 3, 1);
  RebuildPlotList(model);
  model.CurrentLayer = 3;
  model.Annotations.push_back(annotation_on(1));
  model.AnnotationCount = 1;
  clear_mark(model.Grid, 2);
  RebuildPlotList(model);
  EXPECT_EQ(model.NofPlots, 0);
  EXPECT_EQ(model.AnnotationCount, 0);
  EXPECT_EQ(model.CurrentLayer, 1);
  EXPECT_EQ(model.controls["TB_AXIS1"].tag, "1");
  EXPECT_EQ(model.controls["TB_AXIS1"].image, "Y1_DN");
  EXPECT_EQ(model.controls["TB_AXIS2"].image, "Y2_UP");
  EXPECT_EQ(model.controls["TB_AXIS3"].image, "Y3_UP");
  EXPECT_EQ(model.ActiveLayers, 0);
  EXPECT_TRUE(model.ActiveLayersChanged);
}

TEST_F(PlotListTest, CompanionsAreSizedToThePlots) {
  add_file("run.BIN", 2);
  write_mark(2);
  RebuildPlotList(model);
  model.PlotReduceFactor[1] = 40;
  write_mark(3);
  RebuildPlotList(model);
  EXPECT_EQ(model.PlotReduceFactor.size(), 2U);
  EXPECT_EQ(model.PlotReduceFactor[1], 40);
  EXPECT_EQ(model.PlotStep.size(), 2U);
  EXPECT_EQ(model.PlotOffsetPoints.size(), 2U);
  EXPECT_EQ(model.OriginalFileNames.size(), 2U);
  EXPECT_EQ(model.PlotUnits.size(), 2U);
  EXPECT_EQ(model.PlotScale.size(), 2U);
  EXPECT_EQ(model.PlotDateTexts.size(), 2U);
  EXPECT_EQ(model.CurveCache.size(), 2U);
}

TEST_F(PlotListTest, ClearedGraphKeepsTheListWithoutMarks) {
  add_file("run.BIN", 2);
  mark(2, 2, 2);
  mark(3);
  shell.calls.clear();
  ClearGraph(model);
  EXPECT_EQ(model.NofPlots, 0);
  EXPECT_TRUE(model.Plots.empty());
  EXPECT_TRUE(model.SurveyPlots.empty());
  EXPECT_TRUE(model.CurveCache.empty());
  EXPECT_EQ(model.Grid.rows[1].check, 1);
  EXPECT_EQ(model.Grid.rows[2].check, 0);
  EXPECT_EQ(model.Grid.rows[2].mark, "1");
  EXPECT_EQ(model.Grid.rows[3].mark, "2");
  EXPECT_FALSE(model.ButtonLock);
  EXPECT_EQ(main_redraws(), 1);
  EXPECT_EQ(survey_redraws(), 1);
}

TEST_F(PlotListTest, ClearedGraphForgetsUncompressedChannels) {
  add_file("run.BIN", 3);
  mark(2, 1, 1);
  mark(3, 3, 2);
  ASSERT_TRUE(model.HasFullDataPlot);
  ASSERT_EQ(model.ActiveLayers, 2);
  ASSERT_FALSE(model.controls["mnuShowSurvGraph"].enabled);
  ClearGraph(model);
  EXPECT_FALSE(model.HasFullDataPlot);
  EXPECT_EQ(model.ActiveLayers, 0);
  EXPECT_FALSE(model.gMultiLayer);
  EXPECT_EQ(model.LayerPlotCount, OneBased<i16>(3));
  EXPECT_EQ(model.LayerRightPlotCount, OneBased<i16>(3));
  EXPECT_TRUE(model.controls["mnuShowSurvGraph"].enabled);
  EXPECT_TRUE(model.controls["mnuShowSurvGraph"].ticked);
  shell.calls.clear();
  show_plot_status(model);
  EXPECT_EQ(shell.calls, (std::vector<std::string>{"status 2: ", "status 1: "}));
}

TEST_F(PlotListTest, ClearedGraphHasNoReadoutAndNoPressedZoom) {
  for (const char* name : {"run.BIN", "run.REB"}) {
    add_file(name, 1, 8);
    mark(model.Grid.MaxRows());
    click_tool(model, "TB_ZOOMHORZ");
    model.controls["ZoomPointsBox"].back_color = kYellow;
    model.controls["ZoomPointsBox"].text = "4711";
    ClearGraph(model);
    EXPECT_EQ(model.controls["ZoomPointsBox"].text, "0");
    EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kWhite);
    EXPECT_EQ(model.controls["TB_ZOOMHORZ"].tag, "");
    EXPECT_EQ(model.PESG.pending.AllowZooming, 0);
    EXPECT_EQ(model.PESGSurvey.pending.AllowZooming, 0);
  }
}

TEST_F(PlotListTest, ClearedGraphHasNoAnnotationsOfPlots) {
  add_file("run.BIN", 1);
  mark(2);
  AnnotationRecord of_plot;
  of_plot.Plot = 1;
  AnnotationRecord free_one;
  free_one.Plot = 0;
  for (const AnnotationRecord& annotation : {of_plot, free_one}) model.Annotations.push_back(annotation);
  model.AnnotationCount = 2;
  ClearGraph(model);
  ASSERT_EQ(model.AnnotationCount, 1);
  EXPECT_EQ(model.Annotations[1].Plot, 0);
}

TEST_F(PlotListTest, RemovedPlotsStayInTheList) {
  add_file("run.BIN", 2);
  mark(2);
  mark(3);
  model.PESG.pending.ManualScaleControlX = 3;
  shell.calls.clear();
  RemovePlots(model);
  EXPECT_EQ(model.NofPlots, 2);
  EXPECT_EQ(model.Plots.size(), 2U);
  EXPECT_EQ(model.Grid.rows[2].mark, "1_1_1");
  EXPECT_EQ(main_redraws(), 1);
  EXPECT_EQ(survey_redraws(), 1);
  EXPECT_EQ(model.PESG.pending.ManualScaleControlX, 0);
}

}  // namespace
}  // namespace trendaro
