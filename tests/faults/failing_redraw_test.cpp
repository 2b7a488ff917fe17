#include <algorithm>

#include <gtest/gtest.h>

#include "faults/fault_injection.h"
#include "graph/main_redraw.h"
#include "graph/survey_redraw.h"
#include "support/plot_fixture.h"
#include "support/recorder_builder.h"

namespace trendaro {
namespace {

constexpr i32 kRows = 40000;
constexpr i32 kSignals = 3;
constexpr i32 kRowBytes = kSignals * 2 * static_cast<i32>(sizeof(i16));

struct Curves {
  std::vector<f32> x, y, survey_x, survey_y;

  friend bool operator==(const Curves&, const Curves&) = default;
};

class FailingRedrawTest : public PlotFixture {
 protected:
  // Envelopes of long runs of samples, none of them 0.
  std::string write_envelopes() {
    RecorderBuilder file{.id = 6002, .row_count = kRows, .reduce_factor = 20};
    file.entries.assign(kSignals, {.scale = 1000, .mask = 3});
    FileBuilder bytes = file.build();
    data_begin_ = static_cast<long long>(bytes.size());
    for (i32 sample = 0; sample < kRows * kSignals * 2; ++sample)
      bytes.i16_field(static_cast<i16>(sample * 37 % 30000 + 1));
    return write("lauf.STO", bytes);
  }
  // The byte of a row, for reads to fail from.
  [[nodiscard]] long long place_of(i32 row) const { return data_begin_ + i64{row} * kRowBytes; }

  static void add_envelope(Model& model, const std::string& path, i16 signal, i32 points, i16 x_source) {
    PlotRecord plot;
    plot.Title = "Signal@" + path;
    plot.ChannelIndex = static_cast<i16>(2 * signal + 1);
    plot.FileKind = kKindReducedPairs;
    plot.Points = points;
    plot.XSource = x_source;
    plot.TimeFromRate = x_source == 0;
    plot.DatabaseChannel = static_cast<i16>(signal + 1);
    model.Plots.push_back(plot);
    model.SurveyPlots.push_back(plot);
    ++model.NofPlots;
    ++model.LayerPlotCount[1];
  }
  static void add_envelopes(Model& model, const std::string& path) {
    add_envelope(model, path, 0, 2 * kRows, 0);
    add_envelope(model, path, 1, kRows, 5);
    add_envelope(model, path, 2, 2 * kRows, 0);
    model.PlotReduceFactor.resize(model.Plots.size());
    model.PlotDateTexts.resize(model.Plots.size());
  }
  static Curves redraw(Model& model, FaultPlan plan = {}) {
    {
      const FaultsAtWork faults(plan);
      RedrawKMGraph(model, false);
      RedrawSurvGraph(model, false);
    }
    return {x_of(model.PESG), y_of(model.PESG), x_of(model.PESGSurvey), y_of(model.PESGSurvey)};
  }

 private:
  long long data_begin_ = 0;
};

TEST_F(FailingRedrawTest, ReadsThatFailLeaveNothingOfTheCurvesBefore) {
  const auto path = write_envelopes();
  add_envelopes(model, path);
  const Curves sound = redraw(model);
  for (const i32 row : {0, 10, 17000, 35000}) {
    const FaultPlan plan{.bad_place = place_of(row)};
    Model first(shell);
    add_envelopes(first, path);
    const Curves expected = redraw(first, plan);
    ASSERT_NE(expected.y, sound.y) << row;
    ASSERT_NE(expected.survey_y, sound.survey_y) << row;
    EXPECT_TRUE(redraw(model, plan) == expected) << row;
    EXPECT_TRUE(redraw(model) == sound) << row;
  }
}

}  // namespace
}  // namespace trendaro
