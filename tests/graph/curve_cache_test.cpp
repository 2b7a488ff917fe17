#include "graph/curve_cache.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "graph/cache_handlers.h"
#include "graph/main_redraw.h"
#include "support/plot_fixture.h"

namespace trendaro {
namespace {

using testing::ElementsAre;

class CurveCacheTest : public PlotFixture {};

TEST_F(CurveCacheTest, KeptSamplesAreDrawnWhenTheFileHasChanged) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2, 4}}}));
  add_plot(path, 1, kKindPlain, 3);
  RedrawKMGraph(model, false);
  EXPECT_EQ(model.Plots[1].Cached, 1);
  EXPECT_EQ(model.CurveCache[1].size(), 3u);
  write_file(path, curve_file({{.samples = {7, 8, 9}}}).bytes());
  RedrawKMGraph(model, false);
  EXPECT_THAT(y_of(model.PESG), ElementsAre(1, 2, 4));
}

TEST_F(CurveCacheTest, WithoutCachingTheFileIsReadAgain) {
  model.CurveCacheOff = true;
  const auto path = write("a.dat", curve_file({{.samples = {1, 2, 4}}}));
  add_plot(path, 1, kKindPlain, 3);
  RedrawKMGraph(model, false);
  EXPECT_EQ(model.Plots[1].Cached, 0);
  write_file(path, curve_file({{.samples = {7, 8, 9}}}).bytes());
  RedrawKMGraph(model, false);
  EXPECT_THAT(y_of(model.PESG), ElementsAre(7, 8, 9));
}

TEST_F(CurveCacheTest, MissingFileIsTriedAgain) {
  const auto path = folder.file("a.dat");
  add_plot(path, 1, kKindPlain, 3);
  RedrawKMGraph(model, false);
  EXPECT_EQ(model.Plots[1].Cached, 0);
  write_file(path, curve_file({{.samples = {7, 8, 9}}}).bytes());
  RedrawKMGraph(model, false);
  EXPECT_THAT(y_of(model.PESG), ElementsAre(7, 8, 9));
}

TEST_F(CurveCacheTest, AllPlotsShareTheXChannelThatWasReadFirst) {
  const auto first = write("a.dat", curve_file({{.samples = {1, 2, 3}}, {.samples = {10, 20, 30}}}));
  const auto second = write("b.dat", curve_file({{.samples = {4, 5, 6}}, {.samples = {70, 80, 90}}}));
  for (const auto& path : {first, second}) {
    PlotRecord& plot = add_plot(path, 1, kKindPlain, 3);
    plot.XSource = 2;
    plot.TimeFromRate = 0;
  }
  RedrawKMGraph(model, false);
  EXPECT_THAT(x_of(model.PESG), ElementsAre(10, 20, 30, 10, 20, 30));
  EXPECT_TRUE(model.XCacheValid);
  EXPECT_EQ(model.XCachePoints, 3);
  free_x_cache(model);
  EXPECT_FALSE(model.XCacheValid);
  EXPECT_TRUE(model.XCacheBlock.empty());
}

TEST_F(CurveCacheTest, LongerXChannelKeepsItsOwnRest) {
  const auto path = write("b.dat", curve_file({{.samples = {4, 5, 6}}, {.samples = {70, 80, 90}}}));
  PlotRecord& plot = add_plot(path, 1, kKindPlain, 3);
  plot.XSource = 2;
  model.XCacheValid = true;
  model.XCacheBlock = {1, 2};
  RedrawKMGraph(model, false);
  EXPECT_THAT(x_of(model.PESG), ElementsAre(1, 2, 90));
}

TEST_F(CurveCacheTest, CompressedCurveOverAChannelKeepsItsSamplesWithoutCaching) {
  for (const bool cache_off : {false, true}) {
    model.CurveCacheOff = cache_off;
    free_curve_caches(model);
    model.Plots.clear();
    model.SurveyPlots.clear();
    model.controls["mnuUseCompression"].ticked = true;
    model.CompressThreshold = 3;
    model.CompressTarget = 2;
    const auto path = write("a.dat", curve_file({{.samples = {1, 2, 3, 9}}, {.samples = {10, 20, 30, 40}}}));
    add_plot(path, 1, kKindPlain, 4).XSource = 2;
    RedrawKMGraph(model, false);
    EXPECT_THAT(y_of(model.PESG), ElementsAre(1, 9));
    EXPECT_THAT(x_of(model.PESG), ElementsAre(10, 40));
  }
}

TEST_F(CurveCacheTest, SwitchingOffFreesAllBlocks) {
  add_plot(write("a.dat", curve_file({{.samples = {1, 2}}})), 1, kKindPlain, 2);
  model.controls["mnuCurveCache"].ticked = true;
  RedrawKMGraph(model, false);
  model.XCacheValid = true;
  mnuCurveCache(model);
  EXPECT_TRUE(model.CurveCacheOff);
  EXPECT_FALSE(model.controls["mnuCurveCache"].ticked);
  EXPECT_TRUE(model.CurveCache.empty());
  EXPECT_EQ(model.Plots[1].Cached, 0);
  EXPECT_FALSE(model.XCacheValid);
  mnuCurveCache(model);
  EXPECT_FALSE(model.CurveCacheOff);
  EXPECT_TRUE(model.controls["mnuCurveCache"].ticked);
}

// The entry is ticked at the start while nothing is compressed yet.
TEST_F(CurveCacheTest, CompressionEntryTurnsTickAndCompressionEachForItself) {
  model.controls["mnuUseCompression"].ticked = true;
  mnuUseCompression(model);
  EXPECT_TRUE(model.DisplayCompression);
  EXPECT_FALSE(model.controls["mnuUseCompression"].ticked);
}

TEST_F(CurveCacheTest, CompressionEntryTogglesAndDrawsNothing) {
  mnuUseCompression(model);
  EXPECT_TRUE(model.DisplayCompression);
  EXPECT_TRUE(model.controls["mnuUseCompression"].ticked);
  mnuUseCompression(model);
  EXPECT_FALSE(model.DisplayCompression);
  EXPECT_FALSE(model.controls["mnuUseCompression"].ticked);
  EXPECT_TRUE(shell.calls.empty());
}

struct TargetRow {
  const char* answer;
  i32 target;
};

class CompressTargetTest : public testing::TestWithParam<TargetRow> {};

TEST_P(CompressTargetTest, AnswerIsReadAsANumber) {
  RecordingShell shell;
  Model model(shell);
  model.CompressTarget = 500;
  shell.texts = {GetParam().answer};
  mnuCompressMin(model);
  EXPECT_EQ(model.CompressTarget, GetParam().target);
  EXPECT_THAT(shell.calls, ElementsAre("text: Auto-Komprimierung: Anzahl Datenpunkte auf die bei aktivierter "
                                       "Graphikkomprimierung die Daten komprimiert werden sollen: [500]"));
}

INSTANTIATE_TEST_SUITE_P(Answers, CompressTargetTest,
                         testing::Values(TargetRow{"9", 10000}, TargetRow{"10", 10}, TargetRow{"", 10000},
                                         TargetRow{"2500,5", 2500}, TargetRow{"-3", 10000},
                                         TargetRow{"viel", 10000}));

}  // namespace
}  // namespace trendaro
