#include "graph/zoom_end.h"

#include <algorithm>
#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/commands.h"
#include "graph/data_zoom.h"
#include "graph/saved_axes.h"
#include "support/zoom_fixture.h"

namespace trendaro {
namespace {

// A recording of 200 s, 100 samples a second; a display point stands for 5 samples.
class ZoomEndTest : public ZoomFixture {
 protected:
  ZoomEndTest() {
    box("PointsBox") = "10000";
    for (int entry = 1; entry <= 6; ++entry) axis_entry(entry) = true;
  }

  // As a rubber band in the mode of the graph leaves its properties.
  void band(f64 low, f64 high, i16 lowest_layer = 0, i16 highest_layer = 0) {
    set_limits(low, high);
    model.PESG.pending.ZoomAxisBottom = lowest_layer;
    model.PESG.pending.ZoomAxisTop = highest_layer;
    end_main_zoom(model);
  }
  void survey_band(f64 low, f64 high) {
    model.PESGSurvey.pending.ZoomActive = true;
    model.PESGSurvey.pending.ZoomMinX = low;
    model.PESGSurvey.pending.ZoomMaxX = high;
    end_survey_zoom(model);
  }
  // Padding inside a survey range of this width.
  [[nodiscard]] f64 margin(f64 width) const {
    const f64 percent = model.PESGSurvey.pending.AutoPadPercent;
    return width / ((2 * percent + 100) / percent);
  }
  bool& axis_entry(int number) {
    return model.controls["mnuConfigAxis(" + std::to_string(number) + ")"].enabled;
  }
};

TEST_F(ZoomEndTest, BandShowsOriginalsWhereTheyFit) {
  open({});
  mark(2);
  click_tool(model, "TB_ZOOMHORZ");
  band(50, 60);
  EXPECT_TRUE(model.Zoomed);
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_EQ(model.PESG.pending.AllowZooming, 1);
  expect_drawn(0, 1, 5000, 1000);
  EXPECT_DOUBLE_EQ(model.ZoomScaleLimits[0][0], 50);
  EXPECT_DOUBLE_EQ(model.ZoomScaleLimits[0][1], 60);
}

TEST_F(ZoomEndTest, NarrowerBandImportsItsOwnSection) {
  open({});
  mark(2);
  click_tool(model, "TB_ZOOMHORZ");
  band(50, 60);
  band(52, 53);
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_EQ(model.Plots[1].ChannelIndex, 1);
  expect_drawn(0, 1, 5200, 100);
  EXPECT_EQ(box("ZoomPointsBox"), "100");
}

TEST_F(ZoomEndTest, RectangleModeIsBackBehindTheRedraw) {
  open({});
  mark(2);
  click_tool(model, "TB_ZOOMRECT");
  band(10, 150);
  EXPECT_FALSE(model.OriginalDataMode);
  EXPECT_EQ(model.PESG.pending.AllowZooming, 3);
  EXPECT_EQ(model.PESG.shown().AllowZooming, 3);
}

TEST_F(ZoomEndTest, VerticalBandTakesTheYLimitsAndNoSamples) {
  open({});
  mark(2);
  click_tool(model, "TB_ZOOMVERT");
  LayerProperties& layer = model.PESG.pending.layers[0];
  layer.ZoomMinY = -300;
  layer.ZoomMaxY = 400;
  layer.ZoomMinRY = -1;
  layer.ZoomMaxRY = 2;
  band(0, 200);
  EXPECT_EQ(model.ZoomYMin, -300);
  EXPECT_EQ(model.ZoomYMax, 400);
  EXPECT_EQ(model.ZoomRYMin, -1);
  EXPECT_EQ(model.ZoomRYMax, 2);
  EXPECT_TRUE(model.Zoomed);
  EXPECT_FALSE(model.OriginalDataMode);
  EXPECT_TRUE(model.controls["mnuXUnit"].enabled);  // no section in x was taken
  EXPECT_EQ(model.PESG.pending.AllowZooming, 2);
  EXPECT_EQ(model.ZoomScaleLimits[1], (std::array<f64, 4>{-300, 400, -1, 2}));
}

TEST_F(ZoomEndTest, LayersOutsideOfTheBandLeaveTheGraph) {
  open({.channels = 3});
  mark(2, 1);
  mark(3, 2);
  mark(4, 3);
  click_tool(model, "TB_ZOOMRECT");
  model.PESG.pending.layers[0].ManualMinY = -7;
  model.PESG.pending.layers[0].YAxisLabel = "Drehzahl";
  band(50, 60, 1, 2);
  EXPECT_EQ(model.FirstZoomLayer, 1);
  EXPECT_EQ(model.LastZoomLayer, 2);
  EXPECT_FALSE(axis_entry(1));
  EXPECT_FALSE(axis_entry(4));
  EXPECT_TRUE(axis_entry(2));
  EXPECT_TRUE(axis_entry(5));
  EXPECT_EQ(model.CurveOffset, 1);
  ASSERT_EQ(model.saved_axes.left.size(), 1u);
  EXPECT_EQ(model.saved_axes.left[0].low, -7);
  EXPECT_EQ(model.saved_axes.left[0].title, "Drehzahl");
  EXPECT_EQ(model.PESG.shown().SubsetCount, 2);
  expect_drawn(0, 2, 5000, 1000);
  expect_drawn(1, 3, 5000, 1000);
}

void expect_settings(const YAxisSettings& saved, const YAxisSettings& expected) {
  EXPECT_EQ(saved.manual_scale, expected.manual_scale);
  EXPECT_EQ(saved.low, expected.low);
  EXPECT_EQ(saved.high, expected.high);
  EXPECT_EQ(saved.scale_kind, expected.scale_kind);
  EXPECT_EQ(saved.manual_ticks, expected.manual_ticks);
  EXPECT_EQ(saved.tick, expected.tick);
  EXPECT_EQ(saved.line, expected.line);
  EXPECT_EQ(saved.color, expected.color);
  EXPECT_EQ(saved.title, expected.title);
  EXPECT_EQ(saved.format, expected.format);
  EXPECT_EQ(saved.inverted, expected.inverted);
}

LayerProperties layer_of_hand() {
  LayerProperties layer;
  layer.ManualScaleControlY = 3;
  layer.ManualMinY = -7;
  layer.ManualMaxY = 8;
  layer.YAxisScaleControl = 2;
  layer.ManualYAxisTicknLine = true;
  layer.ManualYAxisTick = 0.5;
  layer.ManualYAxisLine = 2.5;
  layer.YAxisColor = 0x112233;
  layer.YAxisLabel = "Drehzahl";
  layer.AxisFormatY = "0.0";
  layer.InvertedYAxis = true;
  layer.ManualScaleControlRY = 1;
  layer.ManualMinRY = -70;
  layer.ManualMaxRY = 80;
  layer.RYAxisScaleControl = 1;
  layer.ManualRYAxisTicknLine = true;
  layer.ManualRYAxisTick = 5;
  layer.ManualRYAxisLine = 25;
  layer.RYAxisColor = 0x445566;
  layer.RYAxisLabel = "Druck";
  layer.AxisFormatRY = "0.00";
  layer.InvertedRYAxis = true;
  return layer;
}

TEST_F(ZoomEndTest, AllSettingsOfAxesThatLeaveAreKeptAndThoseOfBeforeStay) {
  model.FirstZoomLayer = 1;
  model.PESG.pending.layers[0] = layer_of_hand();
  StoreAxesSettings(model, 0);
  model.FirstZoomLayer = 2;  // layer 1 is the first one on show now, and leaves as well
  model.PESG.pending.layers[0].YAxisLabel = "Weg";
  model.PESG.pending.layers[0].ManualMaxRY = 90;
  StoreAxesSettings(model, 1);
  const SavedAxes& saved = model.saved_axes;
  ASSERT_EQ(saved.left.size(), 2u);
  ASSERT_EQ(saved.right.size(), 2u);
  YAxisSettings left{.manual_scale = 3,
                     .low = -7,
                     .high = 8,
                     .scale_kind = 2,
                     .manual_ticks = true,
                     .tick = 0.5,
                     .line = 2.5,
                     .color = 0x112233,
                     .title = "Drehzahl",
                     .format = "0.0",
                     .inverted = true};
  YAxisSettings right{.manual_scale = 1,
                      .low = -70,
                      .high = 80,
                      .scale_kind = 1,
                      .manual_ticks = true,
                      .tick = 5,
                      .line = 25,
                      .color = 0x445566,
                      .title = "Druck",
                      .format = "0.00",
                      .inverted = true};
  expect_settings(saved.left[0], left);
  expect_settings(saved.right[0], right);
  left.title = "Weg";
  right.high = 90;
  expect_settings(saved.left[1], left);
  expect_settings(saved.right[1], right);
}

TEST_F(ZoomEndTest, SecondBandCountsItsLayersFromTheFirstOneOnShow) {
  open({.channels = 3});
  mark(2, 1);
  mark(3, 2);
  mark(4, 3);
  click_tool(model, "TB_ZOOMRECT");
  band(50, 60, 1, 2);
  band(52, 58, 1, 1);
  EXPECT_EQ(model.FirstZoomLayer, 2);
  EXPECT_EQ(model.LastZoomLayer, 2);
  EXPECT_EQ(model.CurveOffset, 2);
  EXPECT_EQ(model.PESG.shown().SubsetCount, 1);
  expect_drawn(0, 3, 5200, 600);
  EXPECT_FALSE(axis_entry(2));
  click_tool(model, "TB_ZOOMFIX");
  EXPECT_EQ(model.PESG.shown().SubsetCount, 3);
  EXPECT_EQ(model.CurveOffset, 0);
}

TEST_F(ZoomEndTest, UpperLayersAloneLeaveTheAxesOfTheFirstAlone) {
  open({.channels = 3});
  mark(2, 1);
  mark(3, 2);
  mark(4, 3);
  click_tool(model, "TB_ZOOMVERT");
  band(0, 200, 0, 1);
  EXPECT_EQ(model.FirstZoomLayer, 0);
  EXPECT_EQ(model.LastZoomLayer, 1);
  EXPECT_TRUE(axis_entry(1));
  EXPECT_EQ(model.CurveOffset, 0);
  EXPECT_EQ(model.PESG.shown().SubsetCount, 2);
}

TEST_F(ZoomEndTest, TakenBackZoomMeansNothingForReducedFiles) {
  open({});
  mark(2);
  click_tool(model, "TB_ZOOMHORZ");
  band(50, 60);
  undo_main_zoom(model);
  EXPECT_DOUBLE_EQ(model.ZoomXMin, 50);
  EXPECT_TRUE(model.OriginalDataMode);
}

TEST_F(ZoomEndTest, SurveyBandNarrowsTheWholeSection) {
  open({});
  mark(2);
  click_tool(model, "TB_ZOOMHORZ");
  survey_band(50, 170);
  EXPECT_TRUE(model.SurveyZoom);
  const f64 padding = margin(120);
  EXPECT_NEAR(model.SurveyZoomMarginX, padding, 1e-12);
  EXPECT_TRUE(model.Zoomed);
  EXPECT_NEAR(model.ZoomXMin, 50 + padding, 1e-9);
  EXPECT_NEAR(model.ZoomXMax, 170 - padding, 1e-9);
  EXPECT_EQ(model.PESGSurvey.shown().SubTitle, "Zoom");
  EXPECT_TRUE(model.PESG.shown().ZoomActive);
}

TEST_F(ZoomEndTest, SectionInsideOfTheSurveyBandStays) {
  open({});
  mark(2);
  click_tool(model, "TB_ZOOMHORZ");
  band(80, 190);
  survey_band(60, 198);
  EXPECT_DOUBLE_EQ(model.ZoomXMin, 80);
  EXPECT_DOUBLE_EQ(model.ZoomXMax, 190);
}

TEST_F(ZoomEndTest, CompressedSectionOutsideOfTheSurveyBandTakesItsRange) {
  open({});
  mark(2);
  box("PointsBox") = "100";
  click_tool(model, "TB_ZOOMHORZ");
  band(150, 190);
  ASSERT_FALSE(model.OriginalDataMode);
  survey_band(20, 60);
  const f64 padding = margin(40);
  EXPECT_NEAR(model.ZoomXMin, 20 + padding, 1e-9);
  EXPECT_NEAR(model.ZoomXMax, 60 - padding, 1e-9);
}

TEST_F(ZoomEndTest, OriginalSectionOutsideOfTheSurveyBandKeepsItsWidth) {
  open({});
  mark(2);
  click_tool(model, "TB_ZOOMHORZ");
  band(150, 160);
  ASSERT_TRUE(model.OriginalDataMode);
  survey_band(20, 60);
  const f64 low = 20 + margin(40);
  EXPECT_NEAR(model.ZoomXMin, low, 1e-9);
  EXPECT_NEAR(model.ZoomXMax, low + 10, 1e-9);
  EXPECT_TRUE(model.OriginalDataMode);  // the new section was brought in
  EXPECT_EQ(model.Plots[1].ChannelIndex, 1);
  expect_drawn(0, 1, model.PlotOffsetPoints[1], 1000);
  EXPECT_NEAR(model.PlotOffsetPoints[1], low * 100, 3);
}

TEST_F(ZoomEndTest, OriginalSectionShrinksIntoANarrowSurveyBand) {
  open({});
  mark(2);
  click_tool(model, "TB_ZOOMHORZ");
  band(150, 160);
  survey_band(20, 24);
  const f64 padding = margin(4);
  EXPECT_NEAR(model.ZoomXMin, 20 + padding, 1e-9);
  EXPECT_NEAR(model.ZoomXMax, 24 - padding, 1e-9);
  EXPECT_TRUE(model.OriginalDataMode);
}

TEST_F(ZoomEndTest, YLimitsOfTheSurveyGoAlongForOneLayer) {
  open({});
  mark(2);
  click_tool(model, "TB_ZOOMRECT");
  model.PESGSurvey.pending.layers[0].ZoomMinY = -50;
  model.PESGSurvey.pending.layers[0].ZoomMaxY = 70;
  survey_band(20, 190);
  EXPECT_EQ(model.ZoomYMin, -50);
  EXPECT_EQ(model.ZoomYMax, 70);
}

TEST_F(ZoomEndTest, ResetShowsAllOfTheRecordingAgain) {
  open({});
  mark(2);
  click_tool(model, "TB_ZOOMHORZ");
  survey_band(20, 190);
  band(50, 60);
  run_command(model, "mnuResetZoom");
  EXPECT_FALSE(model.Zoomed);
  EXPECT_FALSE(model.SurveyZoom);
  EXPECT_FALSE(model.OriginalDataMode);
  EXPECT_EQ(model.Plots[1].FileKind, kKindReducedPairs);
  EXPECT_EQ(model.Plots[1].ChannelIndex, 1);
  EXPECT_DOUBLE_EQ(model.ZoomXMin, 0);
  EXPECT_FALSE(model.PESG.shown().ZoomActive);
  EXPECT_FALSE(model.PESGSurvey.shown().ZoomActive);
  EXPECT_EQ(model.PESGSurvey.shown().SubTitle, "");
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kWhite);
  EXPECT_TRUE(model.controls["mnuDBOffset"].enabled);
  EXPECT_TRUE(model.controls["mnuXUnit"].enabled);
  EXPECT_EQ(model.controls["TB_ZOOMHORZ"].tag, "");
}

// 20000 samples shown as 400 points: 100 samples a pair, and 5 in a section of a twentieth.
class CompressedPlainZoomTest : public ZoomEndTest {
 protected:
  CompressedPlainZoomTest() {
    model.CompressThreshold = 1000;
    model.CompressTarget = 400;
    write_file(folder.file("lauf.ME1"), ZoomRecording{}.original().bytes());
    AddFileToGrid(model, folder.file("lauf.ME1"), false);
    mark(2);
    click_tool(model, "TB_ZOOMHORZ");
  }
  [[nodiscard]] f64 drawn(std::size_t point) const { return f64{(*model.PESG.shown().YData)[point]}; }
  [[nodiscard]] f64 x_of(std::size_t point) const { return f64{(*model.PESG.shown().XData)[point]}; }

  // The curve consists of the extremes of runs of `block` samples from sample `first` on.
  void expect_pairs(i64 first, i64 block, i64 pairs) {
    for (i64 pair = 0; pair < pairs; ++pair) {
      f64 low = ZoomRecording::known_sample(1, first + pair * block);
      f64 high = low;
      for (i64 i = first + pair * block; i < first + (pair + 1) * block; ++i) {
        low = std::min(low, ZoomRecording::known_sample(1, i));
        high = std::max(high, ZoomRecording::known_sample(1, i));
      }
      const auto place = static_cast<std::size_t>(2 * pair);
      ASSERT_NEAR(std::min(drawn(place), drawn(place + 1)), low, 0.01) << "pair " << pair;
      ASSERT_NEAR(std::max(drawn(place), drawn(place + 1)), high, 0.01) << "pair " << pair;
    }
  }
};

TEST_F(CompressedPlainZoomTest, SectionIsCompressedAnew) {
  ASSERT_TRUE(model.DisplayCompression);
  band(50.005, 60.005);
  EXPECT_FALSE(model.OriginalDataMode);
  EXPECT_FALSE(model.PESG.shown().ZoomActive);
  expect_pairs(5001, 5, 200);
  EXPECT_NEAR(model.PESG.shown().ManualMinX, 50.005, 0.3);  // the scale is padded
  EXPECT_NEAR(model.PESG.shown().ManualMaxX, 60.005, 0.3);
  band(52.005, 52.095);
  for (std::size_t i = 0; i < 9; ++i)
    EXPECT_NEAR(drawn(i), ZoomRecording::known_sample(1, 5201 + static_cast<i64>(i)), 0.01);
}

TEST_F(CompressedPlainZoomTest, ZoomTakenBackShowsTheWholeCurve) {
  band(50.005, 60.005);
  undo_main_zoom(model);
  EXPECT_LT(x_of(0), 2);
  EXPECT_GT(x_of(395), 197);
}

TEST_F(CompressedPlainZoomTest, StatusGoesOnTellingOfTheUncompressedChannel) {
  const auto first_panel = [&] {
    std::string text;
    for (const std::string& call : shell.calls)
      if (call.starts_with("status 1: ")) text = call.substr(10);
    return text;
  };
  for (const auto& step : {std::function([&] { band(50.005, 60.005); }),
                           {[&] { undo_main_zoom(model); }},
                           {[&] { reset_zoom(model); }}}) {
    step();
    EXPECT_EQ(first_panel(), "Nichtkomprimierter Kanal wird angezeigt. Zoom in Originalwerte nicht möglich!");
  }
}

TEST_F(CompressedPlainZoomTest, ResetBringsTheScaleBack) {
  const f64 low = model.PESG.shown().ManualMinX;
  const f64 high = model.PESG.shown().ManualMaxX;
  band(50.005, 60.005);
  reset_zoom(model);
  EXPECT_NEAR(model.PESG.shown().ManualMinX, low, 1e-3);
  EXPECT_NEAR(model.PESG.shown().ManualMaxX, high, 1e-3);
  expect_pairs(0, 100, 200);
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kYellow);
  EXPECT_EQ(box("ZoomPointsBox"), "20000");
}

TEST_F(ZoomEndTest, BoundBeyondAllCountsLeavesNoOldSamplesBehindTheReset) {
  open({});
  mark(2);
  click_tool(model, "TB_ZOOMHORZ");
  band(50, 60);
  box("PointsBox") = "99999999999";
  band(52, 55);
  EXPECT_FALSE(model.OriginalDataMode);
  click_tool(model, "TB_ZOOMFIX");
  EXPECT_EQ(model.Plots[1].FileKind, kKindReducedPairs);
  EXPECT_EQ(model.Plots[1].ChannelIndex, 1);
  EXPECT_EQ(model.PESG.shown().PointCount, 4000);  // two a block of ten
}

}  // namespace
}  // namespace trendaro
