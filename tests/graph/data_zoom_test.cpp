#include "graph/data_zoom.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/run_time_error.h"
#include "graph/zoom_end.h"
#include "support/noting_host.h"
#include "support/refusing_host.h"
#include "support/zoom_fixture.h"

namespace trendaro {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class DataZoomTest : public ZoomFixture {
 protected:
  // Two display points stand for ten samples: one for 5 samples, 0.05 s.
};

TEST_F(DataZoomTest, SmallSectionShowsTheOriginalSamples) {
  open({});
  mark(2);
  mark(3);
  zoom(50, 60);
  EXPECT_THAT(shell.messages(), IsEmpty());
  EXPECT_TRUE(model.Zoomed);
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_EQ(model.ZoomPoints, 200);
  EXPECT_EQ(model.PlotOffsetPoints[1], 5000);
  EXPECT_EQ(model.Plots[1].FileKind, kKindDatabase);
  EXPECT_EQ(model.Plots[1].ChannelIndex, 1);
  EXPECT_EQ(model.Plots[2].ChannelIndex, 2);
  expect_samples(model.Plots[1].DatabaseChannel, 1, 5000, 1000);
  expect_drawn(0, 1, 5000, 1000);
  expect_drawn(1, 2, 5000, 1000);
  EXPECT_EQ(box("ZoomPointsBox"), "1000");
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kGreen);
  EXPECT_EQ(model.PESG.shown().SubTitle, "originale Daten");
  EXPECT_EQ(host_text(host.GetChannelProperty(2, kChannelName)), "Kanal 2");
  EXPECT_EQ(shell.wait_pointers, 0);
}

TEST_F(DataZoomTest, SettingsOfAZoomAreLockedAndTheGraphDoesNotScrollItself) {
  open({});
  mark(2);
  model.PESG.pending.ScrollingHorzZoom = true;
  zoom(50, 60);
  EXPECT_FALSE(model.controls["mnuXUnit"].enabled);
  EXPECT_FALSE(model.controls["mnuDBOffset"].enabled);
  EXPECT_FALSE(model.PESG.pending.ScrollingHorzZoom);
}

TEST_F(DataZoomTest, SectionThatIsTooWideStaysCompressed) {
  open({});
  mark(2);
  box("PointsBox") = "10000";
  zoom(10, 150);  // 14000 samples
  EXPECT_FALSE(model.OriginalDataMode);
  EXPECT_EQ(model.Plots[1].FileKind, kKindReducedPairs);
  EXPECT_EQ(box("ZoomPointsBox"), "14000");
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kWhite);
  EXPECT_TRUE(model.PESG.shown().ZoomActive);
  EXPECT_EQ(model.PESG.shown().ZoomMinX, 10);
  EXPECT_FALSE(model.controls["mnuXUnit"].enabled);
  EXPECT_TRUE(model.controls["mnuDBOffset"].enabled);
}

TEST_F(DataZoomTest, SectionExactlyAsWideAsTheBoundGoesIn) {
  open({});
  mark(2);
  box("PointsBox") = "1000";
  zoom(50, 60);
  EXPECT_TRUE(model.OriginalDataMode);
}

TEST_F(DataZoomTest, OnePointMoreStaysCompressed) {
  open({});
  mark(2);
  box("PointsBox") = "1000";
  zoom(50, 60.05);
  EXPECT_FALSE(model.OriginalDataMode);
  EXPECT_EQ(box("ZoomPointsBox"), "1005");
}

TEST_F(DataZoomTest, PlotThatEndsAheadOfTheSectionIsCleared) {
  open({});
  open({.rows = 4000}, "kurz");
  mark(2);
  mark(5);
  zoom(50, 60);
  expect_samples(model.Plots[1].DatabaseChannel, 1, 5000, 1000);
  EXPECT_THAT(channel_samples(model.Plots[2].DatabaseChannel), IsEmpty());
  EXPECT_EQ(model.Plots[2].FileKind, kKindDatabase);
  expect_drawn(0, 1, 5000, 1000);
  expect_drawn(1, 1, 0, 0);
  EXPECT_THAT(shell.messages(), IsEmpty());
}

TEST_F(DataZoomTest, SectionIsCutAtTheEndOfAPlot) {
  NotingHost noting(shell, 96, 100000);
  open({});
  mark(2);
  model.Host = &noting;
  zoom(195, 203);
  EXPECT_THAT(noting.calls, Contains("7 i32 500"));
  reset_zoom(model);
  model.Host = &host;
  zoom(195, 203);
  expect_samples(1, 1, 19500, 500);
  expect_drawn(0, 1, 19500, 500);
  EXPECT_EQ(box("ZoomPointsBox"), "800");
}

TEST_F(DataZoomTest, SectionLeftOfTheDataClearsEveryPlot) {
  open({});
  mark(2);
  zoom(-5, -1);
  EXPECT_LE(model.ReductionXmax, 0);
  EXPECT_THAT(channel_samples(1), IsEmpty());
  EXPECT_TRUE(model.OriginalDataMode);
}

TEST_F(DataZoomTest, SectionThatBeginsLeftOfTheDataShowsTheirBeginningInPlace) {
  open({});
  mark(2);
  zoom(-2, 8);
  expect_drawn(0, 1, 0, 800);
  EXPECT_EQ(model.PlotOffsetPoints[1], 0);
  EXPECT_EQ(box("ZoomPointsBox"), "1000");
}

TEST_F(DataZoomTest, FactorOfTwoMakesADisplayPointASample) {
  open({.rows = 4000, .factor = 2});
  mark(2);
  zoom(10, 12);
  EXPECT_EQ(model.ZoomPoints, 200);
  expect_drawn(0, 1, 1000, 200);
  EXPECT_EQ(box("ZoomPointsBox"), "200");
}

TEST_F(DataZoomTest, SectionWithoutWidthShowsOneBlockAndTakesItsLimitsFromTheScale) {
  open({});
  mark(2);
  zoom(50, 50);
  EXPECT_EQ(model.ZoomPoints, 1);
  expect_drawn(0, 1, 5000, 5);
  EXPECT_EQ(model.ZoomXMin, model.PESG.pending.ManualMinX);
  EXPECT_EQ(model.ZoomXMax, model.PESG.pending.ManualMaxX);
  EXPECT_EQ(box("ZoomPointsBox"), "5");
}

TEST_F(DataZoomTest, PlainPlotsStartNoImport) {
  open({});
  AddFileToGrid(model, folder.file("lauf.ME1"), false);
  mark(2);
  mark(5);
  ASSERT_TRUE(model.HasFullDataPlot);
  model.PESG.pending.ScrollingHorzZoom = true;
  for (const i16 source : {i16{0}, i16{1}}) {
    model.xSrc.ListIndex = source;
    zoom(50, 60);
    EXPECT_TRUE(model.Zoomed);
    EXPECT_FALSE(model.OriginalDataMode);
    EXPECT_TRUE(model.PESG.pending.ScrollingHorzZoom);
    EXPECT_THAT(channel_samples(1), IsEmpty());
  }
}

TEST_F(DataZoomTest, NarrowingOriginalDataImportsNothingNew) {
  open({});
  mark(2);
  zoom(50, 60);
  zoom(52, 53);
  EXPECT_EQ(model.PlotOffsetPoints[1], 5000);
  expect_samples(1, 1, 5000, 1000);
  EXPECT_EQ(box("ZoomPointsBox"), "100");
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kGreen);
  EXPECT_EQ(model.PESG.shown().ZoomMinX, 52);
  EXPECT_TRUE(model.PESG.shown().ZoomActive);
}

TEST_F(DataZoomTest, TwoDotsInTheNameKeepTheOriginalOfBefore) {
  open({}, "lauf.1");
  mark(2);
  ASSERT_EQ(model.Plots[1].FileKind, kKindPlain);  // such a file counts as plain
  model.Plots[1].FileKind = kKindReducedPairs;
  model.HasFullDataPlot = false;
  model.ActiveReduceFactor = 10;
  model.CompressedDXMax = 0.05;
  model.PlotReduceFactor[1] = 10;
  model.PlotStep[1] = 0.05;
  model.OriginalFileNames = {"lauf.ME1"};
  zoom(50, 60);
  EXPECT_EQ(model.OriginalFileNames[1], "lauf.ME1");
  EXPECT_TRUE(model.OriginalFileMissing);
}

TEST_F(DataZoomTest, MissingOriginalIsToldOnceUntilItIsFound) {
  open_envelope({});
  mark(2);
  zoom(50, 60);
  EXPECT_THAT(shell.messages(), ElementsAre("Trendaro: Meßwertfile nicht vorhanden!"));
  EXPECT_EQ(shell.calls.back(), "status 1: Meßwertfile nicht vorhanden!");
  EXPECT_THAT(shell.icons, ElementsAre(MessageIcon::None));
  EXPECT_THAT(channel_samples(1), IsEmpty());
  reset_zoom(model);
  zoom(50, 60);
  EXPECT_EQ(shell.messages().size(), 1u);
  reset_zoom(model);
  write_file(folder.file("lauf.ME1"), ZoomRecording{}.original().bytes());
  zoom(50, 60);
  expect_samples(1, 1, 5000, 1000);
  reset_zoom(model);
  std::filesystem::remove(folder.file("lauf.ME1"));
  zoom(50, 60);
  EXPECT_EQ(shell.messages().size(), 2u);
}

TEST_F(DataZoomTest, OriginalShorterThanPromisedShowsWhatIsThere) {
  open({});
  write_file(folder.file("lauf.ME1"), ZoomRecording{.rows = 5300}.original().bytes());
  mark(2);
  zoom(50, 60);
  const auto values = channel_samples(1);
  ASSERT_GE(values.size(), 300u);
  EXPECT_NEAR(values[299], ZoomRecording::known_sample(1, 5299), 0.01);
  EXPECT_THAT(shell.messages(), IsEmpty());
}

TEST_F(DataZoomTest, DateAxisCountsFromTheStartOfTheRecording) {
  open({});
  mark(2);
  click_tool(model, "TB_ZOOMHORZ");
  model.TimeUnit = 4;
  model.DateAxis = true;
  reset_zoom(model);  // redraws with dates
  const f64 start = 44260 + (12 * 3600 + 34 * 60 + 56) / 86400.0;
  zoom(start + 50 / 86400.0, start + 60 / 86400.0);
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_EQ(model.PlotOffsetPoints[1], 5000);
  EXPECT_EQ(model.ZoomPoints, 200);
  ASSERT_TRUE(model.PESG.shown().XDataII);
  EXPECT_NEAR((*model.PESG.shown().XDataII)[0], start + 50 / 86400.0, 1e-9);
}

TEST_F(DataZoomTest, OriginalOfOtherCaseIsFound) {
  write_file(folder.file("lauf.me1"), ZoomRecording{}.original().bytes());
  open_envelope({});
  mark(2);
  zoom(50, 60);
  EXPECT_EQ(model.OriginalFileNames[1], folder.file("lauf.me1"));
  expect_samples(1, 1, 5000, 1000);
}

class SmallHostZoomTest : public DataZoomTest {
 protected:
  SmallHostZoomTest() {
    model.Host = &small;
    model.Kernel = &small;
  }
  MemoryHost small{shell, 96, 600};
};

TEST_F(SmallHostZoomTest, ChannelThatIsTooShortCutsTheSection) {
  open({});
  mark(2);
  box("PointsBox") = "10000";
  shell.calls.clear();
  shell.icons.clear();
  zoom(50, 60);
  EXPECT_THAT(
      shell.messages(),
      ElementsAre("Trendaro: Datenbasiskanal zu kurz, um alle Zoomwerte zu importieren. Es wurden nur "
                  "Werte bis zum Kanalende importiert."));
  EXPECT_THAT(shell.icons, ElementsAre(MessageIcon::Stop));
  EXPECT_EQ(box("ZoomPointsBox"), "600");
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kGreen);
  EXPECT_NEAR(model.ZoomXMax, 56, 1e-9);
  expect_drawn(0, 1, 5000, 600);
  EXPECT_NEAR(model.PESGSurvey.shown().VertLineAnnotation[1], 56, 1e-9);
}

// A host that remembers what the user saw while its imports ran.
class WatchedHost : public MemoryHost {
 public:
  explicit WatchedHost(RecordingShell& shell) : MemoryHost(shell, 96, 100000), shell_(shell) {}
  std::vector<std::string> panels;
  std::vector<int> wait_pointers;

  void ExecuteImport() override {
    panels.push_back(shell_.panels[1]);
    wait_pointers.push_back(shell_.wait_pointers);
    MemoryHost::ExecuteImport();
  }

 private:
  RecordingShell& shell_;
};

TEST_F(DataZoomTest, UserIsToldForAsLongAsAnImportTakes) {
  WatchedHost watched(shell);
  model.Host = &watched;
  open({});
  mark(2);
  mark(3);
  zoom(50, 60);
  EXPECT_THAT(watched.panels, ElementsAre("Zoom in Originaldaten!", "Zoom in Originaldaten!"));
  EXPECT_THAT(watched.wait_pointers, ElementsAre(1, 1));
  EXPECT_EQ(shell.panels[1], "");
  EXPECT_EQ(shell.wait_pointers, 0);
}

TEST_F(DataZoomTest, SectionAheadOfTheRecordingIsEmptyAndBeginsAtItsFirstSample) {
  open({});
  mark(2);
  zoom(-5, -1);
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_EQ(model.PlotOffsetPoints[1], 0);
  EXPECT_THAT(channel_samples(1), IsEmpty());
}

TEST_F(DataZoomTest, FailingHostIsToldAndNothingIsRolledBack) {
  RefusingHost refusing(shell, 96, 100000);
  open({});
  mark(2);
  model.Host = &refusing;
  zoom(50, 60);
  EXPECT_THAT(shell.messages(),
              ElementsAre("Trendaro: Mervan-ActiveX-Server nicht mehr vorhanden. Trendaro muss "
                          "beendet werden!"));
  EXPECT_THAT(shell.icons, ElementsAre(MessageIcon::Stop));
  EXPECT_EQ(shell.wait_pointers, 0);
  EXPECT_EQ(shell.panels[1], "");
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_EQ(model.Plots[1].FileKind, kKindReducedPairs);
  model.Host = &host;
  reset_zoom(model);
  EXPECT_FALSE(model.OriginalDataMode);
  EXPECT_EQ(model.Plots[1].ChannelIndex, 1);
  model.Host = nullptr;
  zoom(50, 60);
  EXPECT_EQ(shell.messages().size(), 2u);
}

TEST_F(DataZoomTest, HostIsAskedForExactlyTheSection) {
  NotingHost noting(shell, 96, 100000);
  open({});
  mark(3);
  model.Host = &noting;
  zoom(50, 60);
  EXPECT_THAT(noting.calls, ElementsAre("1  " + folder.file("lauf.ME1"), "2 i16 0", "3  0", "4 i16 1",
                                        "5 f64 2", "6 i32 5000", "7 i32 1000", "capacity 1", "execute",
                                        "progress 2", "property 1 1 Kanal 2"));
}

TEST_F(DataZoomTest, HostIsAskedToClearAChannelOutsideOfTheSection) {
  NotingHost noting(shell, 96, 100000);
  open({});
  mark(2);
  model.Host = &noting;
  zoom(-5, -1);
  EXPECT_THAT(noting.calls, ElementsAre("clear 1"));
}

TEST_F(DataZoomTest, MarkInAZoomOfTwoLayersBringsTheSectionOfAllPlots) {
  open({.channels = 3});
  mark(2, 1);
  mark(3, 2);
  set_limits(50, 60);
  model.PESG.pending.ZoomAxisTop = 1;
  end_main_zoom(model);
  ASSERT_TRUE(model.OriginalDataMode);
  mark(4, 2, 2);
  EXPECT_TRUE(model.Zoomed);
  EXPECT_TRUE(model.OriginalDataMode);
  ASSERT_EQ(model.NofPlots, 3);
  for (i16 n = 1; n <= 3; ++n) {
    EXPECT_EQ(model.Plots[n].FileKind, kKindDatabase) << n;
    EXPECT_EQ(model.Plots[n].ChannelIndex, n) << n;
    expect_samples(model.Plots[n].DatabaseChannel, n, 5000, 1000);
  }
}

}  // namespace
}  // namespace trendaro
