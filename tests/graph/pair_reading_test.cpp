#include "graph/pair_reading.h"

#include <algorithm>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/loader.h"
#include "graph/main_redraw.h"
#include "graph/survey_redraw.h"
#include "support/plot_fixture.h"
#include "support/recorder_builder.h"

namespace trendaro {
namespace {

using testing::ElementsAre;

constexpr f32 kNull = -1000000;

class PairReadingTest : public PlotFixture {
 protected:
  // A reduced recording of raw samples: `signals` envelopes, column after column telling itself apart.
  std::string write_recording(const std::string& name, i32 signals, i32 rows) {
    RecorderBuilder file{.id = 6002, .row_count = rows, .reduce_factor = 20};
    for (i32 signal = 0; signal < signals; ++signal)
      file.entries.push_back(
          {.channel = signal % 16 + 1, .scale = static_cast<f32>(1000 + signal), .mask = 3});
    for (i32 sample = 0; sample < rows * signals * 2; ++sample)
      file.data.i16_field(static_cast<i16>(sample * 37 % 30000));
    return write(name, file.build());
  }
  // What two loads of the channels of a plot give, minima and maxima in turn.
  std::vector<f32> read_alone(const PlotRecord& plot, std::size_t slot_length) {
    std::vector<f32> slot(slot_length, kNull);
    const auto pairs = static_cast<std::size_t>(plot.Points / 2);
    const std::string path = plot.Title.substr(plot.Title.find('@') + 1);
    for (std::size_t half = 0; half < 2; ++half) {
      const auto channel = static_cast<i16>(plot.ChannelIndex + static_cast<i16>(half));
      EXPECT_EQ(LoadMeasurementFile(model, 1, path, channel, 0), LoadStatus::Done);
      for (std::size_t k = 0; k < std::min(pairs, model.FileChannelValues.size()); ++k)
        slot[2 * k + half] =
            static_cast<f32>((model.FileChannelValues[k] + plot.YOffset) * (plot.InvertFlag == 1 ? -1 : 1));
    }
    return slot;
  }
};

TEST_F(PairReadingTest, EnvelopesReadTogetherAreThoseReadAlone) {
  const auto first = write_recording("a.STO", 16, 900), second = write_recording("b.STO", 3, 300);
  for (i16 signal = 0; signal < 19; ++signal) {
    const bool is_first = signal % 6 != 2;
    const i16 channel =
        is_first ? static_cast<i16>(signal % 16 * 2 + 1) : static_cast<i16>(signal % 3 * 2 + 1);
    PlotRecord& plot = add_plot(is_first ? first : second, channel, kKindReducedPairs,
                                is_first ? 1800 - signal % 2 * 301 : 600);
    plot.YOffset = signal;
    plot.InvertFlag = signal % 2;
    plot.Layer = signal == 4 ? i16{3} : i16{1};
    model.SurveyPlots[model.NofPlots] = plot;
  }
  model.LastLayer = 1;
  RedrawKMGraph(model, false);
  RedrawSurvGraph(model, false);
  const std::vector<f32> main = y_of(model.PESG), survey = y_of(model.PESGSurvey);
  ASSERT_EQ(main.size(), 18u * 1800);
  ASSERT_EQ(survey.size(), 19u * 1800);
  std::ptrdiff_t curve = 0;
  for (i16 number = 1; number <= 19; ++number) {
    std::vector<f32> expected = read_alone(model.Plots[number], 1800);
    if (number != 5) {
      EXPECT_TRUE(std::equal(expected.begin(), expected.end(), main.begin() + curve * 1800)) << number;
      ++curve;
    }
    // The survey leaves the last point of an envelope out.
    std::fill(expected.begin() + model.Plots[number].Points - 1, expected.end(), kNull);
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), survey.begin() + (number - 1) * 1800)) << number;
  }
}

TEST_F(PairReadingTest, PlotsOverAnXChannelHaveTheXThatIsReadAlone) {
  const auto first = write_recording("a.STO", 4, 700), second = write_recording("b.STO", 3, 90);
  for (i16 number = 1; number <= 7; ++number) {
    const bool is_first = number % 3 != 0;
    PlotRecord& plot = add_plot(is_first ? first : second, static_cast<i16>(number % 3 * 2 + 1),
                                kKindReducedPairs, is_first ? 1400 - number % 2 * 301 : 180);
    plot.XSource = number == 5 ? i16{0} : i16{3};
    plot.TimeFromRate = number == 5 ? u8{1} : u8{0};
    plot.XOffset = number * 0.5;
    plot.InvertFlag = number % 2;
  }
  RedrawKMGraph(model, false);
  const std::vector<f32> x = x_of(model.PESG);
  ASSERT_EQ(x.size(), 7u * 1400);
  for (i16 number = 1; number <= 7; ++number) {
    if (number == 5) continue;
    const PlotRecord& plot = model.Plots[number];
    PlotRecord as_y = plot;
    as_y.ChannelIndex = 3;
    as_y.YOffset = static_cast<f32>(plot.XOffset);
    as_y.InvertFlag = 0;
    std::vector<f32> expected = read_alone(as_y, 1400);
    std::replace(expected.begin(), expected.end(), kNull, 0.0F);
    // The sign of the curve turns the second half of each pair alone.
    if (plot.InvertFlag == 1)
      for (std::size_t i = 1; i < expected.size(); i += 2) expected[i] = -expected[i];
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), x.begin() + (number - 1) * 1400)) << number;
  }
}

TEST_F(PairReadingTest, OnADateAxisAPlotHasTheValuesOfOneXChannel) {
  const auto path = write_recording("a.STO", 2, 6);
  add_plot(path, 1, kKindReducedPairs, 4).XOffset = 100;
  add_plot(path, 3, kKindReducedPairs, 12);
  for (PlotRecord* plot : {&model.Plots[1], &model.Plots[2]}) {
    plot->XSource = 3;
    plot->TimeFromRate = 0;
  }
  model.TimeUnit = 4;
  model.DateAxis = true;
  ASSERT_EQ(LoadMeasurementFile(model, 1, path, 3, 0), LoadStatus::Done);
  const SampleArray values = model.FileChannelValues;
  ASSERT_EQ(values.size(), 6u);
  std::vector<f64> expected(24, 0);
  for (std::size_t i = 0; i < 4; ++i) expected[i] = values[i] + 100;
  std::copy(values.begin(), values.end(), expected.begin() + 12);
  RedrawKMGraph(model, false);
  EXPECT_THAT(*model.PESG.shown().XDataII, testing::ElementsAreArray(expected));
}

TEST_F(PairReadingTest, NameAndUnitOfXAreThoseOfItsChannel) {
  const auto path = write_recording("a.STO", 2, 6);
  PlotRecord& plot = add_plot(path, 1, kKindReducedPairs, 12);
  plot.XSource = 3;
  plot.TimeFromRate = 0;
  ASSERT_EQ(LoadMeasurementFile(model, 0, path, 3, 0), LoadStatus::Done);
  const std::string name = model.FileChannelNames[3], unit = model.FileChannelUnits[3];
  RedrawKMGraph(model, false);
  EXPECT_EQ(model.XTitle, name);
  EXPECT_EQ(model.XUnit, unit);
}

TEST_F(PairReadingTest, AnXChannelThatTheFileLacksLeavesTheCurvesThere) {
  const auto path = write_recording("a.STO", 2, 2);
  for (const i16 channel : {i16{1}, i16{3}}) {
    PlotRecord& plot = add_plot(path, channel, kKindReducedPairs, 4);
    plot.XSource = 9;
    plot.TimeFromRate = 0;
  }
  std::vector<f32> expected = read_alone(model.Plots[1], 4);
  const std::vector<f32> second = read_alone(model.Plots[2], 4);
  expected.insert(expected.end(), second.begin(), second.end());
  RedrawKMGraph(model, false);
  EXPECT_EQ(y_of(model.PESG), expected);
  EXPECT_THAT(x_of(model.PESG), testing::Each(0));
}

TEST_F(PairReadingTest, FileThatLacksTheMaximaOfOnePlotIsReadChannelByChannel) {
  const auto path = write_recording("a.STO", 2, 2);
  add_plot(path, 1, kKindReducedPairs, 4);
  add_plot(path, 4, kKindReducedPairs, 4);
  const std::vector<f32> expected = read_alone(model.Plots[1], 4);
  RedrawKMGraph(model, false);
  const std::vector<f32> y = y_of(model.PESG);
  ASSERT_EQ(y.size(), 8u);
  EXPECT_EQ(std::vector<f32>(y.begin(), y.begin() + 4), expected);
  EXPECT_EQ(y[5], kNull);
  EXPECT_NE(y[4], kNull);
}

TEST_F(PairReadingTest, EachPlotOfAMissingFileIsTold) {
  const auto path = folder.file("a.STO");
  add_plot(path, 1, kKindReducedPairs, 4);
  add_plot(path, 3, kKindReducedPairs, 4);
  RedrawKMGraph(model, false);
  const std::string message = "Trendaro: Fehler beim Öffnen der Datei " + path;
  EXPECT_THAT(shell.messages(), ElementsAre(message, message));
  EXPECT_THAT(y_of(model.PESG), testing::Each(kNull));
}

TEST_F(PairReadingTest, SlotsThatGrowMeanwhileKeepWhatWasRead) {
  const auto path = write_recording("a.STO", 2, 2);
  const auto plain = write("b.dat", curve_file({{.samples = {1, 2}}}));
  add_plot(path, 1, kKindReducedPairs, 4);
  add_plot(plain, 1, kKindPlain, -1);
  add_plot(path, 3, kKindReducedPairs, 4);
  const std::vector<f32> last = read_alone(model.Plots[3], 6);
  shell.during_status = [&](const std::string& text) {
    if (text.rfind("Einlesen der Daten für Kurve 2.", 0) == 0)
      write_file(plain, curve_file({{.samples = {1, 2, 3, 4, 5, 6}}}).bytes());
  };
  RedrawKMGraph(model, false);
  const std::vector<f32> y = y_of(model.PESG);
  ASSERT_EQ(y.size(), 18u);
  EXPECT_EQ(std::vector<f32>(y.begin() + 12, y.end()), last);
}

TEST_F(PairReadingTest, OneRedrawAfterAnotherReadsAnew) {
  const auto path = write_recording("a.STO", 1, 2);
  add_plot(path, 1, kKindReducedPairs, 4);
  RedrawKMGraph(model, false);
  const std::vector<f32> before = y_of(model.PESG);
  RecorderBuilder other{.id = 6002, .row_count = 2, .reduce_factor = 20, .entries = {{.mask = 3}}};
  other.data.i16_field(5).i16_field(6).i16_field(7).i16_field(8);
  write_file(path, other.build().bytes());
  RedrawKMGraph(model, false);
  EXPECT_NE(y_of(model.PESG), before);
  EXPECT_EQ(y_of(model.PESG), read_alone(model.Plots[1], 4));
}

}  // namespace
}  // namespace trendaro
