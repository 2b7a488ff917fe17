// Files that change while a redraw is on its way: between the pass that sizes and the one that reads.
#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "graph/main_redraw.h"
#include "graph/survey_redraw.h"
#include "support/plot_fixture.h"
#include "support/recorder_builder.h"

namespace trendaro {
namespace {

using testing::Each;
using testing::ElementsAre;

constexpr f32 kNull = -1000000;

class ChangingFilesTest : public PlotFixture {
 protected:
  // Runs `change` once, when the curves are about to be read.
  template <typename Change>
  void before_reading(Change change) {
    shell.during_status = [change, done = false](const std::string& text) mutable {
      if (done || text.rfind("Einlesen der Daten für Kurve 1.", 0) != 0) return;
      done = true;
      change();
    };
  }
  static void rewrite(const std::string& path, const std::vector<f64>& samples, i32 reduce_block = 0) {
    write_file(path, curve_file({{.samples = samples}}, reduce_block).bytes());
  }
};

TEST_F(ChangingFilesTest, LongerCurveOfUnknownLengthGetsALargerSlot) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2}}}));
  const auto other = write("b.dat", curve_file({{.samples = {8, 9}}}));
  add_plot(path, 1, kKindPlain, -1);
  add_plot(other, 1, kKindPlain, 2);
  before_reading([&] { rewrite(path, {1, 2, 3, 4}); });
  RedrawKMGraph(model, false);
  EXPECT_THAT(y_of(model.PESG), ElementsAre(1, 2, 3, 4, 8, 9, kNull, kNull));
  EXPECT_EQ(model.PESG.shown().PointCount, 4);
  EXPECT_EQ(model.ViewPoints, 4);
  EXPECT_EQ(model.LongestFullPoints, 4);
  EXPECT_EQ(model.Plots[1].Points, 4);
}

TEST_F(ChangingFilesTest, LongerCompressedCurveIsSizedAgain) {
  std::vector<f64> samples(100);
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = static_cast<f64>(i);
  const auto path = write("a.dat", curve_file({{.samples = samples}}));
  add_plot(path, 1, kKindPlain, -1);
  model.controls["mnuUseCompression"].ticked = true;
  model.CompressThreshold = 50;
  model.CompressTarget = 10;
  samples.resize(400, 7);
  before_reading([&] { rewrite(path, samples); });
  RedrawKMGraph(model, false);
  // 400 samples for 10 points are 40 to a half and 80 to a pair.
  EXPECT_EQ(model.CompressFactor, 40);
  EXPECT_EQ(model.ViewPoints, 10);
  EXPECT_THAT(y_of(model.PESG), ElementsAre(0, 79, 99, 7, 7, 7, 7, 7, 7, 7));
}

TEST_F(ChangingFilesTest, CompressedCurveOfUnknownLengthKeepsWhatWasWorkedOutAtFirst) {
  std::vector<f64> samples(100);
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = static_cast<f64>(i);
  add_plot(write("a.dat", curve_file({{.samples = samples}})), 1, kKindPlain, -1);
  model.controls["mnuUseCompression"].ticked = true;
  model.CompressThreshold = 50;
  model.CompressTarget = 10;
  RedrawKMGraph(model, false);
  EXPECT_EQ(model.CompressFactor, 10);
  EXPECT_THAT(y_of(model.PESG), ElementsAre(0, 19, 20, 39, 40, 59, 60, 79, 80, 99));
}

TEST_F(ChangingFilesTest, LongerBlockReducedCurveGetsALargerSlot) {
  const auto path = write("a.reb", curve_file({{.samples = {1, 5}}}, 40));
  add_plot(path, 1, kKindReducedBlock, -1);
  before_reading([&] { rewrite(path, {1, 5, 2, 6}, 40); });
  RedrawKMGraph(model, false);
  EXPECT_THAT(y_of(model.PESG), ElementsAre(1, 5, 2, 6));
  EXPECT_EQ(model.Plots[1].Points, 4);
  EXPECT_EQ(model.ViewPoints, 4);
}

TEST_F(ChangingFilesTest, ShorterFileLeavesNullValuesBehindItsEnd) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2, 3, 4}}}));
  add_plot(path, 1, kKindPlain, 4);
  before_reading([&] { std::filesystem::resize_file(path, std::filesystem::file_size(path) - 20); });
  RedrawKMGraph(model, false);
  EXPECT_THAT(y_of(model.PESG), ElementsAre(1, kNull, kNull, kNull));
  EXPECT_THAT(shell.messages(), ElementsAre("Trendaro: Fehler beim Lesen der Daten aufgetreten!"));
}

TEST_F(ChangingFilesTest, ShorterReducedRecordingGivesZerosAsTheReaderDoes) {
  RecorderBuilder file{.id = 6012, .row_count = 2, .reduce_factor = 20, .entries = {{}, {.channel = 2}}};
  file.data.values({-1, -2, 3, 4});
  const auto path = write("Lauf.STO", file.build());
  add_plot(path, 1, kKindReducedPairs, 4);
  before_reading([&] { std::filesystem::resize_file(path, std::filesystem::file_size(path) - 16); });
  RedrawKMGraph(model, false);
  EXPECT_THAT(y_of(model.PESG), ElementsAre(-1, 0, -2, 0));
}

// Two envelopes of raw samples of which the second gives x.
RecorderBuilder envelopes(i32 rows) {
  RecorderBuilder file{.id = 6002,
                       .row_count = rows,
                       .reduce_factor = 20,
                       .entries = {{.scale = 1000, .mask = 3}, {.channel = 2, .scale = 1000, .mask = 3}}};
  for (i32 sample = 1; sample <= rows * 4; ++sample) file.data.i16_field(static_cast<i16>(sample * 100));
  return file;
}

TEST_F(ChangingFilesTest, ShorterRecordingUnderAnXChannelGivesZerosInBoth) {
  const auto path = write("Lauf.STO", envelopes(3).build());
  PlotRecord& plot = add_plot(path, 1, kKindReducedPairs, 6);
  plot.XSource = 3;
  plot.TimeFromRate = 0;
  RedrawKMGraph(model, false);
  const std::vector<f32> whole_y = y_of(model.PESG), whole_x = x_of(model.PESG);
  EXPECT_THAT(whole_y, Each(testing::Ne(0)));
  // Of the last two rows nothing is left but the minimum of y.
  before_reading([&] { std::filesystem::resize_file(path, std::filesystem::file_size(path) - 14); });
  RedrawKMGraph(model, false);
  EXPECT_THAT(y_of(model.PESG), ElementsAre(whole_y[0], whole_y[1], whole_y[2], 0, 0, 0));
  EXPECT_THAT(x_of(model.PESG), ElementsAre(whole_x[0], whole_x[1], 0, 0, 0, 0));
}

TEST_F(ChangingFilesTest, VanishedRecordingUnderAnXChannelIsTold) {
  const auto path = write("Lauf.STO", envelopes(3).build());
  PlotRecord& plot = add_plot(path, 1, kKindReducedPairs, 6);
  plot.XSource = 3;
  plot.TimeFromRate = 0;
  before_reading([&] { std::filesystem::remove(path); });
  RedrawKMGraph(model, false);
  EXPECT_THAT(shell.messages(), ElementsAre("Trendaro: Fehler beim Öffnen der Datei " + path));
  EXPECT_THAT(y_of(model.PESG), Each(kNull));
}

TEST_F(ChangingFilesTest, ShorterFileLeavesTheWindowOfAPictureWhatIsThere) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2, 3, 4, 5, 6}}}));
  add_plot(path, 1, kKindPlain, 6);
  model.CurveCacheOff = true;
  model.TimeUnit = 0;
  model.picture_window = PictureWindow{.edges = {1, 4}, .most_samples = 100};
  before_reading([&] { std::filesystem::resize_file(path, std::filesystem::file_size(path) - 24); });
  RedrawKMGraph(model, false);
  EXPECT_THAT(y_of(model.PESG), ElementsAre(1, 2, 3));
  EXPECT_THAT(shell.messages(), ElementsAre("Trendaro: Fehler beim Lesen der Daten aufgetreten!"));
}

TEST_F(ChangingFilesTest, VanishedFileIsToldAndItsUnknownLengthStaysOpen) {
  const auto path = write("a.dat", curve_file({{.samples = {1, 2, 3}}}));
  const auto block = write("b.reb", curve_file({{.samples = {1, 5}}}, 40));
  add_plot(path, 1, kKindPlain, -1);
  add_plot(block, 1, kKindReducedBlock, -1);
  before_reading([&] {
    std::filesystem::remove(path);
    std::filesystem::remove(block);
  });
  RedrawKMGraph(model, false);
  EXPECT_THAT(shell.messages(), ElementsAre("Trendaro: Fehler beim Öffnen der Datei " + path,
                                            "Trendaro: Fehler beim Öffnen der Datei " + block));
  EXPECT_THAT(y_of(model.PESG), Each(kNull));
  EXPECT_EQ(model.Plots[1].Points, -1);
  EXPECT_EQ(model.Plots[2].Points, -1);
  rewrite(path, {7, 8});
  rewrite(block, {3, 4}, 40);
  RedrawKMGraph(model, false);
  EXPECT_EQ(model.Plots[1].Points, 2);
  EXPECT_EQ(y_of(model.PESG)[0], 7);
  EXPECT_THAT(y_of(model.PESG), testing::Contains(4));
}

TEST_F(ChangingFilesTest, SurveyKeepsAnUnknownLengthOpenToo) {
  const auto path = folder.file("a.dat");
  add_plot(path, 1, kKindPlain, -1);
  add_plot(path, 1, kKindReducedBlock, -1);
  RedrawSurvGraph(model, false);
  const std::string message = "Trendaro: Fehler beim Öffnen der Datei " + path;
  EXPECT_THAT(shell.messages(), ElementsAre(message, message));
  EXPECT_EQ(model.SurveyPlots[1].Points, -1);
  EXPECT_EQ(model.SurveyPlots[2].Points, -1);
  rewrite(path, {7, 8});
  RedrawSurvGraph(model, false);
  EXPECT_THAT(y_of(model.PESGSurvey), ElementsAre(7, 8, 7, kNull));
  EXPECT_EQ(model.Plots[1].Points, 2);
}

// How much more memory may stand in RAM, in KiB. The address sanitizer holds freed blocks back.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr i64 kSlack = 400 << 10;
#else
constexpr i64 kSlack = 2 << 10;
#endif
#else
constexpr i64 kSlack = 2 << 10;
#endif

// The memory of this process that stands in RAM, in KiB.
i64 resident_memory() {
  std::ifstream status("/proc/self/status");
  std::string word;
  i64 kibibytes = 0;
  while (status >> word)
    if (word == "VmRSS:") status >> kibibytes;
  return kibibytes;
}

// A thousand rounds hold no more memory than the first few; `redraw(times)` runs so many.
template <typename Redraw>
void expect_steady_memory(Redraw redraw) {
  redraw(50);
  const i64 before = resident_memory();
  redraw(950);
  EXPECT_LT(resident_memory() - before, kSlack);
}

TEST_F(ChangingFilesTest, ThousandRedrawsHoldNoMoreMemoryThanAFew) {
  std::vector<f64> samples(2000);
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = static_cast<f64>(i % 97);
  const auto path = write("a.dat", curve_file({{.samples = samples}, {.samples = samples}}));
  PlotRecord& plot = add_plot(path, 1, kKindPlain, 2000);
  plot.XSource = 2;
  plot.TimeFromRate = 0;
  const auto redraw = [&](int times) {
    for (int round = 0; round < times; ++round) {
      model.controls["mnuUseCompression"].ticked = round % 2 == 0;
      model.CompressThreshold = 1000;
      RedrawKMGraph(model, false);
      RedrawSurvGraph(model, false);
      shell.calls.clear();
    }
  };
  expect_steady_memory(redraw);
}

TEST_F(ChangingFilesTest, ThousandRedrawsOverAnXChannelHoldNoMoreMemoryThanAFew) {
  const auto path = write("Lauf.STO", envelopes(200).build());
  for (int plots = 0; plots < 2; ++plots) {
    PlotRecord& plot = add_plot(path, 1, kKindReducedPairs, 400);
    plot.XSource = 3;
    plot.TimeFromRate = 0;
    model.SurveyPlots[model.NofPlots] = plot;
  }
  const auto redraw = [&](int times) {
    for (int round = 0; round < times; ++round) {
      RedrawKMGraph(model, false);
      RedrawSurvGraph(model, false);
      shell.calls.clear();
    }
  };
  expect_steady_memory(redraw);
}

TEST_F(ChangingFilesTest, TwoHundredPlotsAreDrawnInTheOrderOfTheList) {
  std::vector<CurveChannel> channels(200);
  for (std::size_t i = 0; i < channels.size(); ++i) channels[i].samples = {static_cast<f64>(i), 1000};
  const auto path = write("a.dat", curve_file(channels));
  for (i16 channel = 1; channel <= 200; ++channel) add_plot(path, channel, kKindPlain, 2);
  RedrawKMGraph(model, false);
  RedrawSurvGraph(model, false);
  const auto main = y_of(model.PESG), survey = y_of(model.PESGSurvey);
  ASSERT_EQ(main.size(), 400U);
  ASSERT_EQ(survey.size(), 400U);
  for (std::size_t i = 0; i < 200; ++i) {
    EXPECT_EQ(main[2 * i], static_cast<f32>(i));
    EXPECT_EQ(survey[2 * i], static_cast<f32>(i));
    EXPECT_EQ(main[2 * i + 1], 1000);
  }
}

}  // namespace
}  // namespace trendaro
