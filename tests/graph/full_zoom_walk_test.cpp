#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <tuple>
#include <utility>

#include <gtest/gtest.h>

#include "app/commands.h"
#include "config/time_unit.h"
#include "graph/main_redraw.h"
#include "graph/zoom_scroll.h"
#include "support/zoom_fixture.h"

namespace trendaro {
namespace {

// Plain signals that are compressed for their section, with an envelope that comes and goes beside them. What
// the detail graph shows is held against the recordings after each of many random steps of a user.
class FullZoomWalkTest : public ZoomFixture, public testing::WithParamInterface<u32> {
 protected:
  static constexpr i32 kLongRows = 20000, kShortRows = 12000;
  static constexpr f64 kNone = std::numeric_limits<f64>::infinity();
  static constexpr i32 kEnvelopeRow = 2;
  static constexpr std::array<const char*, 3> kModes = {"TB_ZOOMHORZ", "TB_ZOOMVERT", "TB_ZOOMRECT"};

  void SetUp() override {
    model.CompressThreshold = 15000;
    model.CompressTarget = 400;
    open({});
    // The envelope alone shows its own points in every section, or in narrow ones original samples.
    box("PointsBox") = GetParam() % 3 != 0 ? "1" : "3000";
    long_row = add_plain(kLongRows, ".MEA");
    short_row = add_plain(kShortRows, ".MEA");
    toggle(long_row);
  }

  i32 draw(i32 from, i32 to) { return std::uniform_int_distribution<i32>(from, to)(random); }

  [[nodiscard]] f64 second() const {
    constexpr std::array<f64, 5> kSecond = {1000, 1, 1 / 60.0, 1 / 3600.0, 1 / 86400.0};
    return kSecond[static_cast<std::size_t>(model.TimeUnit)];
  }
  [[nodiscard]] f64 start() const {
    return model.TimeUnit == 4 ? 44260 + (12 * 3600 + 34 * 60 + 56) / 86400.0 : 0;
  }
  [[nodiscard]] f64 x_of(f64 seconds) const { return start() + seconds * second(); }
  [[nodiscard]] f64 seconds_of(f64 x) const { return (x - start()) / second(); }

  [[nodiscard]] bool compressed() const { return model.DisplayCompression && model.HasFullDataPlot; }
  [[nodiscard]] bool marked(i32 row) const { return model.Grid.marked.contains(row); }
  void toggle(i32 row) { click_check_cell(model, row, marked(row) ? 0 : 1); }

  // As the rubber band of a pressed mode leaves it.
  std::string band() {
    const auto mode = static_cast<std::size_t>(draw(0, 2));
    const f64 width = high - low;
    if (width < 0.5) return "";
    if (model.controls[kModes[mode]].tag != "1") click_tool(model, kModes[mode]);
    if (mode != 1) {
      const f64 new_low = std::round((low + width * draw(0, 60) / 100.0) * 100) / 100 + 0.005;
      high = std::round((new_low + width * draw(20, 40) / 100.0) * 100) / 100 + 0.005;
      low = new_low;
    }
    zoomed = true;
    LayerProperties& layer = model.PESG.pending.layers[0];
    std::tie(layer.ZoomMinY, layer.ZoomMaxY) = shown_y();
    if (mode == 0) {
      if (!compressed()) whole_y();
    } else {
      y_known = true;
      least = draw(-9000, 0);
      most = least + draw(1000, 8000);
      std::tie(layer.ZoomMinY, layer.ZoomMaxY) = std::pair(least, most);
    }
    set_limits(x_of(low), x_of(high));
    PEactions(model.PESG, kRedrawFromSettings);
    end_main_zoom(model);
    return std::string("band ") + std::to_string(mode);
  }
  std::string take_back() {
    if (model.OriginalDataMode || !undo()) return "";
    whole();
    return "undo";
  }
  std::string change_marks() {
    const std::array<i32, 3> rows = {kEnvelopeRow, long_row, short_row};
    const i32 row = rows[static_cast<std::size_t>(draw(0, 2))];
    if (model.NofPlots == 1 && marked(row)) return "";
    toggle(row);
    if (!zoomed) whole();
    return row == kEnvelopeRow ? "envelope" : row == long_row ? "long" : "short";
  }
  std::string change_unit() {
    if (model.OriginalDataMode) return "";  // the menu is off
    choose_time_unit(model, static_cast<i16>(draw(0, 4)));
    return "unit";
  }
  std::string compress() {
    run_command(model, "mnuUseCompression");
    RedrawKMGraph(model, false);
    return "compression";
  }
  // Compressed curves are redrawn in their section; plain ones and envelopes by the next mark.
  std::string release() {
    const auto pressed =
        std::ranges::find_if(kModes, [&](const char* mode) { return model.controls[mode].tag == "1"; });
    if (pressed == kModes.end()) return "";
    click_tool(model, *pressed);
    if (compressed()) {
      RedrawKMGraph(model, false);
      return "release";
    }
    if (zoomed && std::isfinite(least)) y_known = false;
    std::string change;
    while (change.empty()) change = change_marks();
    const f64 end = (marked(long_row) || marked(kEnvelopeRow) ? kLongRows : kShortRows) * kStep;
    if (!zoomed || low < end || model.PESG.shown().ZoomActive) return "release, " + change;
    return "release, " + change + ", " + reset();
  }
  std::string scroll() {
    if (!horizontal_scroll(model.PESG).needed) return "";
    const GraphProperties& graph = model.PESG.shown();
    const f64 least_x = seconds_of(graph.ManualMinX), most_x = seconds_of(graph.ManualMaxX);
    const f64 width = high - low;
    const f64 position = draw(20, 80) / 100.0;
    low = least_x + position * (most_x - least_x - width);
    high = low + width;
    scroll_horizontally(model.PESG, position);
    return "scroll";
  }
  std::string reset() {
    click_tool(model, "TB_ZOOMFIX");
    whole();
    return "reset";
  }
  void whole_y() {
    least = -kNone;
    most = kNone;
    y_known = true;
  }
  void whole() {
    zoomed = false;
    low = 0;
    high = std::max(marked(short_row) ? kShortRows : 0,
                    marked(long_row) || marked(kEnvelopeRow) ? kLongRows : 0) *
           kStep;
    whole_y();
  }

  std::string step() {
    const i32 chosen = draw(0, 12);
    if (chosen < 4) return band();
    if (chosen < 5) return take_back();
    if (chosen < 8) return change_marks();
    if (chosen < 9) return change_unit();
    if (chosen < 10) return compress();
    if (chosen < 11) return release();
    if (chosen < 12) return scroll();
    return reset();
  }

  // The x axis shows the section; an automatic one may add its padding, and may lack what no curve reaches.
  void expect_x_axis() {
    const GraphProperties& graph = model.PESG.shown();
    const f64 from = seconds_of(graph.ZoomActive ? graph.ZoomMinX : graph.ManualMinX);
    const f64 to = seconds_of(graph.ZoomActive ? graph.ZoomMaxX : graph.ManualMaxX);
    const f64 end = std::min(high, marked(long_row) || marked(kEnvelopeRow) ? 199.9 : 119.9);
    const f64 slack = (high - low) * 0.1 + 0.02;
    ASSERT_NEAR(from, low, slack);
    ASSERT_GE(to, end - slack);
    ASSERT_LE(to, high + slack);
  }
  // Every point is a sample of the section, and none of their stretches is left out.
  void expect_curve(std::size_t curve, i32 rows) {
    const GraphProperties& graph = model.PESG.shown();
    const auto slot = static_cast<std::size_t>(graph.PointCount);
    const i64 first = std::max<i64>(0, std::llround(std::ceil(low / kStep - 0.01)));
    const i64 end = std::min<i64>(rows, std::llround(std::ceil(high / kStep - 0.01)));
    const i64 gap = std::max<i64>(2, 4 * (i64{rows} / 200 + 1));
    i64 former = first - 1;
    for (std::size_t i = curve * slot; i < (curve + 1) * slot; ++i) {
      const f64 y = f64{(*graph.YData)[i]};
      if (y == graph.NullDataValue) continue;
      const f64 x = model.DateAxis ? (*graph.XDataII)[i] : f64{(*graph.XData)[i]};
      const i64 sample = std::llround(seconds_of(x) / kStep);
      const f64 known = ZoomRecording::known_sample(1, sample);
      if (std::abs(y - known) > 0.01) FAIL() << "sample " << sample << " is " << y << " and not " << known;
      if (sample < first) continue;
      if (sample >= end) break;
      if (sample - former > gap) FAIL() << "nothing from sample " << former << " to " << sample;
      former = sample;
    }
    if (end > first) {
      ASSERT_LE(end - former, gap) << "at the end";
    }
  }
  void expect_curves() {
    const GraphProperties& graph = model.PESG.shown();
    ASSERT_EQ(graph.SubsetCount, model.NofPlots);
    for (i16 number = 1; number <= model.NofPlots; ++number) {
      const std::string& title = model.Plots[number].Title;
      if (title.find(".ST1") != std::string::npos) continue;
      expect_curve(static_cast<std::size_t>(number - 1),
                   title.find("20000") != std::string::npos ? kLongRows : kShortRows);
      if (HasFatalFailure()) return;
    }
  }
  [[nodiscard]] std::pair<f64, f64> shown_y() const {
    const GraphProperties& graph = model.PESG.shown();
    const LayerProperties& layer = graph.layers[0];
    if (graph.ZoomActive && graph.AllowZooming > 1) return {layer.ZoomMinY, layer.ZoomMaxY};
    return {layer.ManualMinY, layer.ManualMaxY};
  }
  void expect_y_axis() {
    if (model.OriginalDataMode) y_known = false;  // the samples settle it
    if (!y_known) return;
    const GraphProperties& graph = model.PESG.shown();
    const auto [from, to] = shown_y();
    if (std::isfinite(least)) {
      ASSERT_NEAR(from, least, 0.01);
      ASSERT_NEAR(to, most, 0.01);
      return;
    }
    f64 lowest = to, highest = from;
    for (const f32 y : *graph.YData) {
      if (f64{y} == graph.NullDataValue) continue;
      lowest = std::min(lowest, f64{y});
      highest = std::max(highest, f64{y});
    }
    ASSERT_LE(from, lowest);
    ASSERT_GE(to, highest);
  }
  void expect_readout() {
    if (model.controls["ZoomPointsBox"].back_color == kYellow) {
      ASSERT_EQ(box("ZoomPointsBox"), std::to_string(marked(long_row) ? kLongRows : kShortRows));
    }
    ASSERT_TRUE(shell.messages().empty());
    ASSERT_EQ(shell.wait_pointers, 0);
  }

  std::mt19937 random{GetParam()};
  i32 long_row = 0, short_row = 0;
  // The section in seconds, the limits that a band gave y, and whether a zoom holds.
  f64 low = 0, high = 200, least = -kNone, most = kNone;
  bool zoomed = false;
  bool y_known = true;  // a change between compressed and plain curves settles y by the mode of the zoom
};

TEST_P(FullZoomWalkTest, GraphShowsTheSectionOfTheRecordingsAfterEveryStep) {
  std::string road;
  for (int i = 0; i < 150; ++i) {
    const bool compressed_before = compressed();
    const std::string taken = step();
    if (taken.empty()) continue;
    road = (road.size() > 300 ? road.substr(road.size() - 300) : road) + " > " + taken;
    if (compressed() != compressed_before && zoomed) y_known = false;
    expect_x_axis();
    if (!HasFatalFailure()) expect_curves();
    if (!HasFatalFailure()) expect_y_axis();
    if (!HasFatalFailure()) expect_readout();
    ASSERT_FALSE(HasFatalFailure()) << "step " << i << ":" << road;
  }
}

INSTANTIATE_TEST_SUITE_P(Walks, FullZoomWalkTest,
                         testing::Values(1u, 5u, 7u, 50u, 136u, 197u, 303u, 306u, 309u));

}  // namespace
}  // namespace trendaro
