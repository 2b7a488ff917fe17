#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/commands.h"
#include "config/time_unit.h"
#include "graph/data_zoom.h"
#include "graph/limit_lines.h"
#include "graph/zoom_end.h"
#include "graph/zoom_modes.h"
#include "support/zoom_fixture.h"
#include "support/zoom_reckoning.h"

namespace trendaro {
namespace {

constexpr f64 kAll = ZoomReckoning::kAll;
constexpr i32 kBlock = ZoomReckoning::kBlock;
constexpr char kMissing[] = "Meßwertfile nicht vorhanden!";

struct Walk {
  const char* name;
  u32 seed;
  bool layers;  // a right axis, and a second and a third layer
};

// A long and a short recording, with random steps of a user.
class ZoomWalkTest : public ZoomFixture, public testing::WithParamInterface<Walk> {
 protected:
  static constexpr i32 kLongRows = 20000, kShortRows = 12000;
  // Rows that are left of an original that was cut off; nothing tells so.
  static constexpr i32 kCutRows = 7777;

  void SetUp() override {
    open(recordings[0]);
    open(recordings[1], "kurz");
    box("PointsBox") = std::to_string(reckoned.bound);
    mark(2);
    if (GetParam().layers) {
      mark(3, 1, 2);
      mark(5, 2);
      mark(6, 3, 2);
    }
    note_plots();
  }

  i32 draw(i32 least, i32 most) { return std::uniform_int_distribution<i32>(least, most)(random); }
  // Places stand on a sample, and differences of two never near half a point.
  f64 place(f64 least, f64 most) {
    const i32 whole = draw(static_cast<i32>(std::ceil(least)), static_cast<i32>(std::floor(most)));
    return whole + (whole + 1 < most && draw(0, 1) == 1 ? 0.2 : 0);
  }

  [[nodiscard]] f64 point_width() const {
    constexpr std::array<f64, 5> kSecond = {1000, 1, 1 / 60.0, 1 / 3600.0, 1 / 86400.0};
    return 0.05 * kSecond[static_cast<std::size_t>(model.TimeUnit)];
  }
  [[nodiscard]] f64 start() const {
    return model.TimeUnit == 4 ? 44260 + (12 * 3600 + 34 * 60 + 56) / 86400.0 : 0;
  }
  [[nodiscard]] f64 x_of(f64 points) const { return start() + points * point_width(); }
  [[nodiscard]] f64 points_of(f64 x) const { return (x - start()) / point_width(); }

  bool band() {
    if (reckoned.width() < 4) return false;
    const f64 low = place(std::max(0.0, reckoned.low), reckoned.high - 2);
    const f64 high = place(low + 1, std::min(kAll, reckoned.high));
    if (model.controls["TB_ZOOMHORZ"].tag != "1") click_tool(model, "TB_ZOOMHORZ");
    set_limits(x_of(low), x_of(high));
    model.PESG.pending.ZoomAxisTop = GetParam().layers ? (last_marked ? 2 : 1) : 0;
    end_main_zoom(model);
    reckoned.zoom(low, high);
    return true;
  }
  bool survey_band() {
    if (reckoned.most - reckoned.least < 40) return false;
    const f64 low = place(reckoned.least, reckoned.most - 20);
    const f64 high = place(low + 10, reckoned.most);
    // Without a zoom the section is all that the main graph shows.
    const GraphProperties& graph = model.PESG.pending;
    if (!reckoned.zoomed) {
      reckoned.low = points_of(graph.ManualMinX);
      reckoned.high = points_of(graph.ManualMaxX);
    }
    const f64 padding = (high - low) * model.PESGSurvey.pending.AutoPadPercent / 100;
    GraphProperties& survey = model.PESGSurvey.pending;
    survey.ZoomActive = true;
    survey.ZoomMinX = x_of(low - padding);
    survey.ZoomMaxX = x_of(high + padding);
    end_survey_zoom(model);
    reckon_survey_band(low, high, padding);
    return true;
  }
  void reckon_survey_band(f64 low, f64 high, f64 padding) {
    f64 left = reckoned.low < low - padding ? low : reckoned.low;
    f64 right = reckoned.high > high + padding ? high : reckoned.high;
    if (left >= high || right <= low) {
      left = low;
      right = reckoned.original && high - low >= reckoned.width() ? low + reckoned.width() : high;
      reckoned.original = false;
    }
    reckoned.least = low;
    reckoned.most = high;
    reckoned.survey_padding = padding;
    if (reckoned.original)
      reckoned.take(left, right);
    else
      reckoned.zoom(left, right);
  }
  bool scroll() {
    const i32 step = draw(0, 3) == 0 ? draw(0, 30000) : draw(0, 600);
    const bool right = draw(0, 1) == 1;
    box("StepBox") = std::to_string(step);
    click_tool(model, right ? "TB_SCROLLRIGHT" : "TB_SCROLLLEFT");
    if (!reckoned.zoomed) return true;
    const f64 width = reckoned.width();
    const f64 moved = right ? std::min(reckoned.high + step / f64{kBlock}, reckoned.most) - width
                            : std::max(reckoned.low - step / f64{kBlock}, reckoned.least);
    reckoned.low = moved;
    reckoned.high = moved + width;
    if (reckoned.original) reckoned.import_section(1);
    return true;
  }
  void pull(i16 line, f64 to) {
    grip_limit_line(model, line);
    for (int move = draw(0, 3); move > 0; --move)
      drag_limit_line(model, x_of(place(reckoned.least, reckoned.most)), 0);
    drag_limit_line(model, x_of(to), 0);
    drop_limit_line(model);
  }
  bool drag() {
    const auto line = static_cast<i16>(draw(0, 1));
    const bool pair = reckoned.original && reckoned.points * kBlock <= reckoned.bound;
    if (pair) {
      const f64 to = place(reckoned.least, reckoned.most);
      pull(line, to);
      const f64 width = reckoned.width();
      f64 low = line == 0 ? to : to - width;
      // In a zoomed survey a section can be wider than the data there.
      if (low < reckoned.least)
        low = reckoned.least;
      else
        low = std::min(low, reckoned.most - width);
      reckoned.zoom(low, low + width);
      return true;
    }
    const f64 least = line == 0 ? reckoned.least : reckoned.low + 1;
    const f64 most = line == 0 ? reckoned.high - 1 : reckoned.most;
    if (most - least < 1) return false;
    const f64 to = place(least, most);
    pull(line, to);
    reckoned.zoom(line == 0 ? to : reckoned.low, line == 0 ? reckoned.high : to);
    return true;
  }
  bool spring() {
    const i32 points = reckoned.bound / kBlock;  // every bound is a multiple
    if (reckoned.most - reckoned.low < 1) return false;
    click_tool(model, "TB_ZOOMINTERVAL");
    reckoned.zoom(reckoned.low, std::min(reckoned.low + points, reckoned.most));
    return true;
  }
  bool change_bound() {
    reckoned.bound = kBlock * draw(20, 2500);
    box("PointsBox") = std::to_string(reckoned.bound);
    return true;
  }
  bool change_unit() {
    if (reckoned.original) return false;
    choose_time_unit(model, static_cast<i16>(draw(0, 4)));
    if (reckoned.zoomed && unit_before != model.TimeUnit) reckoned.zoom(reckoned.low, reckoned.high);
    unit_before = model.TimeUnit;
    return true;
  }
  // A signal beside others of its layer. In a walk with layers, also the only one of the last layer: the zoom
  // is left with every change of the layers.
  bool toggle_mark() {
    if (!GetParam().layers) {
      short_marked = !short_marked;
      click_check_cell(model, 5, short_marked ? 1 : 0);
      return mark_changed();
    }
    if (draw(0, 1) == 0) {
      right_marked = !right_marked;
      right_marked ? mark(3, 1, 2) : unmark(3);
      return mark_changed();
    }
    last_marked = !last_marked;
    last_marked ? mark(6, 3, 2) : unmark(6);
    note_plots();
    if (reckoned.zoomed) reckoned.reset();
    return true;
  }
  bool mark_changed() {
    note_plots();
    if (reckoned.zoomed) reckoned.zoom(reckoned.low, reckoned.high);
    return true;
  }
  // By layers, and in a layer by rows.
  void note_plots() {
    reckoned.plots = {WalkFile::Long};
    if (GetParam().layers) {
      if (right_marked) reckoned.plots.push_back(WalkFile::Long);
      reckoned.plots.push_back(WalkFile::Short);
      if (last_marked) reckoned.plots.push_back(WalkFile::Short);
    } else if (short_marked) {
      reckoned.plots.push_back(WalkFile::Short);
    }
  }
  // An original goes, comes back, or loses its end.
  bool change_original() {
    const auto file = static_cast<std::size_t>(draw(0, 1));
    const auto state = static_cast<OriginalState>(draw(0, 2));
    const std::string path = folder.file(file == 0 ? "lauf.ME1" : "kurz.ME1");
    reckoned.files[file] = state;
    std::filesystem::remove(path);
    if (state == OriginalState::Gone) return true;
    write_file(path, originals[file]);
    if (state == OriginalState::Cut) {
      const auto lost = static_cast<std::size_t>(recordings[file].rows - kCutRows) * 2 * sizeof(i16);
      std::filesystem::resize_file(path, originals[file].size() - lost);
    }
    return true;
  }
  bool reset() {
    run_command(model, "mnuResetZoom");
    reckoned.reset();
    return true;
  }

  std::string step() {
    const i32 chosen = draw(0, 21);
    if (chosen < 5) return band() ? "band" : "";
    if (chosen < 9) return scroll() ? "scroll" : "";
    if (chosen < 13) return drag() ? "drag" : "";
    if (chosen < 14) return spring() ? "spring" : "";
    if (chosen < 15) return change_bound() ? "bound" : "";
    if (chosen < 16) return change_unit() ? "unit" : "";
    if (chosen < 17) return toggle_mark() ? "mark" : "";
    if (chosen < 18) return survey_band() ? "survey band" : "";
    if (chosen < 20) return change_original() ? "original" : "";
    return reset() ? "reset" : "";
  }

  void expect_section() {
    ASSERT_EQ(model.Zoomed, reckoned.zoomed);
    ASSERT_EQ(model.OriginalDataMode, reckoned.original);
    ASSERT_NEAR(points_of(model.ZoomXMin), reckoned.low, 1e-3);
    ASSERT_NEAR(points_of(model.ZoomXMax), reckoned.high, 1e-3);
    const auto& lines = model.PESGSurvey.shown().VertLineAnnotation;
    ASSERT_NEAR(points_of(lines[0]), reckoned.low, 1e-3);
    ASSERT_NEAR(points_of(lines[1]), reckoned.high, 1e-3);
    if (!reckoned.zoomed) return;
    ASSERT_NEAR(points_of(model.PESG.pending.ZoomMinX), reckoned.low, 1e-3);
    ASSERT_NEAR(points_of(model.PESG.pending.ZoomMaxX), reckoned.high, 1e-3);
  }
  void expect_readout() {
    const i32 points = reckoned.zoomed ? reckoned.points : static_cast<i32>(kAll);
    ASSERT_EQ(box("ZoomPointsBox"), std::to_string(points * kBlock));
    ASSERT_EQ(model.controls["ZoomPointsBox"].back_color, reckoned.original ? kGreen : kWhite);
    ASSERT_EQ(model.controls["mnuXUnit"].enabled, !reckoned.zoomed);
    ASSERT_EQ(shell.messages(), std::vector<std::string>(static_cast<std::size_t>(reckoned.messages),
                                                         std::string("Trendaro: ") + kMissing));
    ASSERT_EQ(shell.wait_pointers, 0);
    ASSERT_FALSE(model.AnnoDrag);
    ASSERT_FALSE(model.KeepOriginalChannels);
  }
  // The data in the survey, and its margins at both ends.
  void expect_survey() {
    ASSERT_EQ(model.SurveyZoom, reckoned.survey_padding > 0);
    const GraphProperties& survey = model.PESGSurvey.shown();
    ASSERT_EQ(survey.SubTitle, model.SurveyZoom ? "Zoom" : "");
    const f64 share = survey.AutoPadPercent / 100.0;
    const f64 padding = model.SurveyZoom ? reckoned.survey_padding : kAll * share;
    const f64 margin = model.SurveyZoom ? model.SurveyZoomMarginX : model.SurveyMarginX;
    ASSERT_NEAR(margin / point_width(), padding, 1e-2);
    const f64 low = model.SurveyZoom ? survey.ZoomMinX : survey.ManualMinX;
    const f64 high = model.SurveyZoom ? survey.ZoomMaxX : survey.ManualMaxX;
    ASSERT_NEAR(points_of(low), reckoned.least - padding, 1e-2);
    ASSERT_NEAR(points_of(high), reckoned.most + padding, 1e-2);
  }
  // Behind a step that brings samples in the panel tells of a missing original, and of nothing else.
  void expect_panel(const std::string& taken) {
    if (taken != "band" && taken != "scroll" && taken != "drag") return;
    std::string text;
    for (const std::string& call : shell.calls)
      if (call.starts_with("status 1: ")) text = call.substr(10);
    ASSERT_EQ(text, reckoned.original && reckoned.missing ? kMissing : "");
  }
  [[nodiscard]] f64 drawn_x(std::size_t place) const {
    const GraphProperties& graph = model.PESG.shown();
    return model.DateAxis ? (*graph.XDataII)[place] : f64{(*graph.XData)[place]};
  }
  void expect_originals(i16 number) {
    const auto channel = static_cast<i16>(model.Plots[number].ChannelIndex);
    const WalkFile file = reckoned.plots[static_cast<std::size_t>(number - 1)];
    const i64 rows = file == WalkFile::Short ? kShortRows : kLongRows;
    const OriginalState state = reckoned.imported_state(file);
    const auto count = static_cast<std::size_t>(
        state == OriginalState::Gone ? 0 : std::clamp<i64>(rows - reckoned.first, 0, reckoned.count));
    const i64 rows_there = state == OriginalState::Cut ? kCutRows : rows;
    const GraphProperties& graph = model.PESG.shown();
    const auto slot = static_cast<std::size_t>(graph.PointCount);
    const std::size_t begin = static_cast<std::size_t>(number - 1) * slot;
    ASSERT_GE(slot, count);
    for (std::size_t i = 0; i < slot; ++i) {
      const f64 y = f64{(*graph.YData)[begin + i]};
      if (i >= count) {
        ASSERT_EQ(y, graph.NullDataValue) << "plot " << number << ", behind its " << count << " samples";
        continue;
      }
      const i64 sample = reckoned.first + static_cast<i64>(i);
      const f64 known = sample < rows_there ? ZoomRecording::known_sample(channel, sample) : 0;
      ASSERT_NEAR(y, known, 0.01) << "sample " << sample;
      if (i % 97 == 0) {
        ASSERT_NEAR(points_of(drawn_x(begin + i)) * kBlock, static_cast<f64>(sample), 0.01);
      }
    }
  }
  // Lowest and highest sample of some blocks, at the block's place.
  void expect_pairs(i16 number) {
    const PlotRecord& plot = model.Plots[number];
    ASSERT_EQ(plot.FileKind, kKindReducedPairs);
    const auto channel = static_cast<i16>((plot.ChannelIndex + 1) / 2);
    const bool is_short = reckoned.plots[static_cast<std::size_t>(number - 1)] == WalkFile::Short;
    const i64 rows = is_short ? kShortRows : kLongRows;
    const i64 factor = is_short ? 20 : 10;
    const GraphProperties& graph = model.PESG.shown();
    const std::size_t begin =
        static_cast<std::size_t>(number - 1) * static_cast<std::size_t>(graph.PointCount);
    for (i64 block = draw(0, 50); block < rows / factor; block += 151) {
      f64 low = ZoomRecording::known_sample(channel, block * factor);
      f64 high = low;
      for (i64 i = block * factor; i < (block + 1) * factor; ++i) {
        low = std::min(low, ZoomRecording::known_sample(channel, i));
        high = std::max(high, ZoomRecording::known_sample(channel, i));
      }
      const auto at = begin + static_cast<std::size_t>(2 * block);
      ASSERT_NEAR(f64{(*graph.YData)[at]}, low, 0.01) << "block " << block;
      ASSERT_NEAR(f64{(*graph.YData)[at + 1]}, high, 0.01) << "block " << block;
    }
  }
  void expect_curves() {
    ASSERT_EQ(model.PESG.shown().SubsetCount, model.NofPlots);
    ASSERT_EQ(static_cast<std::size_t>(model.NofPlots), reckoned.plots.size());
    for (i16 number = 1; number <= model.NofPlots; ++number) {
      if (reckoned.original)
        expect_originals(number);
      else
        expect_pairs(number);
      if (HasFatalFailure()) return;
    }
  }

  std::mt19937 random{GetParam().seed};
  ZoomReckoning reckoned;
  i16 unit_before = 1;
  bool short_marked = false;  // a signal of the short recording comes and goes
  bool right_marked = GetParam().layers, last_marked = GetParam().layers;
  const std::array<ZoomRecording, 2> recordings = {{{.rows = kLongRows}, {.rows = kShortRows, .factor = 20}}};
  const std::array<std::string, 2> originals = {
      {recordings[0].original().bytes(), recordings[1].original().bytes()}};
};

TEST_P(ZoomWalkTest, SectionSamplesAndReadoutsAgreeWithTheFilesAfterEveryStep) {
  std::string road;
  for (int i = 0; i < 600; ++i) {
    shell.calls.clear();
    reckoned.messages = 0;
    const std::string taken = step();
    if (taken.empty()) continue;
    road = (road.size() > 300 ? road.substr(road.size() - 300) : road) + " > " + taken;
    expect_section();
    if (!HasFatalFailure()) expect_survey();
    if (!HasFatalFailure()) expect_readout();
    if (!HasFatalFailure()) expect_panel(taken);
    if (!HasFatalFailure()) expect_curves();
    ASSERT_FALSE(HasFatalFailure()) << "step " << i << ":" << road;
  }
}

INSTANTIATE_TEST_SUITE_P(Walks, ZoomWalkTest,
                         testing::Values(Walk{"First", 1, false}, Walk{"Second", 2, false},
                                         Walk{"Layers", 3, true}, Walk{"MoreLayers", 4, true}),
                         [](const auto& walk) { return std::string(walk.param.name); });

}  // namespace
}  // namespace trendaro
