// Curves that are drawn while their samples pass must give the very graph that kept samples give.
#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "graph/curve_cache.h"
#include "graph/main_redraw.h"
#include "support/plot_fixture.h"

namespace trendaro {
namespace {

using testing::ElementsAre;

class PassingRedrawTest : public PlotFixture {
 protected:
  PassingRedrawTest() {
    model.controls["mnuUseCompression"].ticked = true;
    model.CompressThreshold = 50;
    model.CompressTarget = 20;
  }

  // What the detail graph shows after a redraw, bit for bit, with the words of the user and of the axes.
  struct Drawn {
    std::string y, x;
    std::vector<std::string> messages, units;
    std::string x_title, date;
    LoadStatus status = LoadStatus::Done;

    friend bool operator==(const Drawn&, const Drawn&) = default;
  };
  template <typename Array>
  static std::string bytes_of(const Array& array) {
    if (array == nullptr) return {};
    return {reinterpret_cast<const char*>(array->data()), array->size() * sizeof(*array->data())};
  }
  Drawn draw(bool passing) {
    shell.calls.clear();
    free_curve_caches(model);
    model.CurveCacheOff = passing;
    model.PlotDateTexts[1].clear();
    RedrawKMGraph(model, false);
    const GraphProperties& shown = model.PESG.shown();
    return {.y = bytes_of(shown.YData),
            .x = model.DateAxis ? bytes_of(shown.XDataII) : bytes_of(shown.XData),
            .messages = shell.messages(),
            .units = {model.AxisUnits.begin(), model.AxisUnits.end()},
            .x_title = model.XTitle,
            .date = model.PlotDateTexts[1],
            .status = static_cast<LoadStatus>(model.LastDatabaseStatus)};
  }
};

std::vector<f64> random_samples(std::mt19937& random, std::size_t count) {
  std::vector<f64> samples(count);
  for (f64& sample : samples) sample = static_cast<f64>(random() % 30);
  if (random() % 2 == 0) samples[random() % count] = std::nan("");
  if (random() % 2 == 0) samples[random() % count] = std::numeric_limits<f64>::infinity();
  if (random() % 2 == 0) samples[0] = std::nan("");
  return samples;
}

TEST_F(PassingRedrawTest, RandomCurvesAreDrawnAsThoseThatAreKept) {
  std::mt19937 random(23);
  for (int round = 0; round < 150; ++round) {
    model.Plots.clear();
    model.SurveyPlots.clear();
    const std::size_t count = 60 + random() % 3000;
    const auto path =
        write(random() % 2 == 0 ? "a.dat" : "a.bin",
              curve_file({{.samples = {1, 2}},
                          {.samples = random_samples(random, count), .interval = 0.5, .start = 40000.25}}));
    PlotRecord& plot = add_plot(path, 2, kKindPlain, static_cast<i32>(count - random() % 10));
    plot.YOffset = static_cast<f32>(random() % 3);
    plot.XOffset = static_cast<f64>(random() % 3);
    plot.InvertFlag = static_cast<i16>(random() % 2);
    plot.TimeFromRate = static_cast<u8>(random() % 2);
    model.TimeUnit = static_cast<i16>(random() % 5);
    model.DateAxis = model.TimeUnit == 4;
    model.CompressTarget = static_cast<i32>(1 + random() % 200);
    model.controls["mnuUseCompression"].ticked = random() % 3 != 0;
    model.DisplayCompression = false;
    ASSERT_EQ(draw(true), draw(false)) << "round " << round;
  }
}

TEST_F(PassingRedrawTest, CurveLongerThanARunHasNoSeams) {
  std::mt19937 random(5);
  const std::size_t count = 300'007;
  add_plot(write("a.dat", curve_file({{.samples = random_samples(random, count)}})), 1, kKindPlain,
           static_cast<i32>(count));
  model.CompressTarget = 37;
  EXPECT_EQ(draw(true), draw(false));
}

TEST_F(PassingRedrawTest, UncompressedCurveOfManyRunsIsThereAsAWhole) {
  std::vector<f64> samples(300'007);
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = static_cast<f64>(i % 9973);
  add_plot(write("a.dat", curve_file({{.samples = samples}})), 1, kKindPlain, 300'007);
  model.controls["mnuUseCompression"].ticked = false;
  const Drawn passed = draw(true);
  const FlatArray& y = *model.PESG.shown().YData;
  ASSERT_EQ(y.size(), samples.size());
  EXPECT_TRUE(std::ranges::equal(y, samples));
  EXPECT_EQ(passed, draw(false));
}

TEST_F(PassingRedrawTest, UncompressedCurvesOfDifferentLengthEndInNullValues) {
  add_plot(write("a.dat", curve_file({{.samples = {1, 2, 3, 4, 5}}})), 1, kKindPlain, 5);
  add_plot(write("b.dat", curve_file({{.samples = {7, 8, 9}}})), 1, kKindPlain, 2);
  model.controls["mnuUseCompression"].ticked = false;
  const Drawn passed = draw(true);
  const FlatArray& y = *model.PESG.shown().YData;
  const auto null = static_cast<f32>(model.PESG.shown().NullDataValue);
  EXPECT_THAT(y, ElementsAre(1, 2, 3, 4, 5, 7, 8, null, null, null));
  EXPECT_EQ(passed, draw(false));
}

TEST_F(PassingRedrawTest, NothingIsKept) {
  add_plot(write("a.dat", curve_file({{.samples = std::vector<f64>(100, 2)}})), 1, kKindPlain, 100);
  draw(true);
  EXPECT_TRUE(model.FileChannelValues.empty());
  EXPECT_EQ(model.Plots[1].Cached, 0);
}

TEST_F(PassingRedrawTest, CutAndMissingFilesAreToldAndDrawnAlike) {
  for (const bool compressed : {true, false}) {
    model.Plots.clear();
    model.controls["mnuUseCompression"].ticked = compressed;
    model.DisplayCompression = false;
    const auto path = write("a.dat", curve_file({{.samples = std::vector<f64>(100, 2)}}));
    add_plot(path, 1, kKindPlain, 100);
    std::filesystem::resize_file(path, std::filesystem::file_size(path) - 300);
    const Drawn cut = draw(true);
    EXPECT_EQ(cut, draw(false));
    EXPECT_THAT(cut.messages, ElementsAre("Trendaro: Fehler beim Lesen der Daten aufgetreten!"));
    std::filesystem::remove(path);
    const Drawn missing = draw(true);
    EXPECT_EQ(missing, draw(false));
    EXPECT_THAT(missing.messages, ElementsAre("Trendaro: Fehler beim Öffnen der Datei " + path));
  }
}

TEST_F(PassingRedrawTest, CurvesThatNeedTheirSamplesAreReadAsAWhole) {
  const std::vector<f64> samples = {4, 1, 8, 2, 9, 3};
  add_plot(write("a.dat", curve_file({{.samples = samples}, {.samples = {6, 5, 4, 3, 2, 1}}})), 1, kKindPlain,
           6);
  model.CompressThreshold = 3;
  model.CompressTarget = 3;
  model.Plots[1].XSource = 2;
  EXPECT_EQ(draw(true), draw(false));
  model.Plots[1].XSource = 0;
  model.Zoomed = true;
  model.ZoomScaleLimits[0] = {0.001, 0.004, 0, 0};
  EXPECT_EQ(draw(true), draw(false));
}

}  // namespace
}  // namespace trendaro
