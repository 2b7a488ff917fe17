#include <array>
#include <filesystem>
#include <tuple>
#include <utility>

#include <gtest/gtest.h>

#include "app/commands.h"
#include "config/time_unit.h"
#include "graph/main_redraw.h"
#include "graph/zoom_end.h"
#include "graph/zoom_scroll.h"
#include "support/zoom_fixture.h"

namespace trendaro {
namespace {

// A plain recording of 200 s, shown compressed: the curves are worked out anew for every section.
class CompressedZoomTest : public ZoomFixture {
 protected:
  static constexpr std::array<std::array<f64, 4>, 3> kScales = {
      {{-11000, 11000, 0, 1}, {-12000, 12000, 0, 2}, {-13000, 13000, 0, 3}}};

  CompressedZoomTest() {
    model.controls["mnuUseCompression"].ticked = true;
    model.CompressThreshold = 1000;
    model.CompressTarget = 500;
    write_file(folder.file("lauf.ME1"), ZoomRecording{.channels = 3}.original().bytes());
    AddFileToGrid(model, folder.file("lauf.ME1"), false);
  }
  // One curve a layer, each layer with a scale of its own.
  void show_layers(i16 count) {
    for (i16 layer = 1; layer <= count; ++layer) mark(layer + 1, layer);
    model.PESG.pending.ManualScaleControlX = 3;
    model.PESG.pending.ManualMinX = -1;
    model.PESG.pending.ManualMaxX = 201;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
      LayerProperties& layer = model.PESG.pending.layers[i];
      layer.ManualScaleControlY = layer.ManualScaleControlRY = 3;
      layer.ManualMinY = kScales[i][0];
      layer.ManualMaxY = kScales[i][1];
      layer.ManualMinRY = kScales[i][2];
      layer.ManualMaxRY = kScales[i][3];
    }
    RedrawKMGraph(model, false);
    ASSERT_TRUE(model.DisplayCompression);
  }
  // As a rubber band in the mode of the graph leaves its properties.
  void band(f64 low, f64 high, i16 lowest_layer = 0, i16 highest_layer = 0) {
    set_limits(low, high);
    model.PESG.pending.ZoomAxisBottom = lowest_layer;
    model.PESG.pending.ZoomAxisTop = highest_layer;
    end_main_zoom(model);
  }
  void y_band(f64 low, f64 high) {
    for (LayerProperties& layer : model.PESG.pending.layers) {
      layer.ZoomMinY = layer.ZoomMinRY = low;
      layer.ZoomMaxY = layer.ZoomMaxRY = high;
    }
  }
  void expect_x(f64 low, f64 high) {
    EXPECT_EQ(model.PESG.shown().ManualMinX, low);
    EXPECT_EQ(model.PESG.shown().ManualMaxX, high);
  }
  void expect_y(std::size_t axis, const std::array<f64, 4>& limits) {
    const LayerProperties& layer = model.PESG.shown().layers[axis];
    EXPECT_EQ((std::array<f64, 4>{layer.ManualMinY, layer.ManualMaxY, layer.ManualMinRY, layer.ManualMaxRY}),
              limits)
        << "axis " << axis;
  }
};

// 100 samples a second: the band from 50.001 on holds none, the one that ends at 50.015 a single sample.
TEST_F(CompressedZoomTest, SectionOfASampleOrNoneIsNotLeftByAnAutomaticAxis) {
  mark(2);
  ASSERT_TRUE(model.DisplayCompression);
  ASSERT_EQ(model.PESG.pending.ManualScaleControlX, 0);
  band(50.001, 50.015);
  expect_x(50.001, 50.015);
  band(50.001, 50.005);
  expect_x(50.001, 50.005);
  reset_zoom(model);
  EXPECT_EQ(model.PESG.pending.ManualScaleControlX, 0);
  EXPECT_GT(model.PESG.shown().ManualMaxX, 199);
}

TEST_F(CompressedZoomTest, CompressionThatComesWithAnotherUnitKeepsTheSection) {
  for (const bool released : {false, true}) {
    SCOPED_TRACE(released);
    model.controls["mnuUseCompression"].ticked = false;
    model.DisplayCompression = false;
    mark(2);
    ASSERT_FALSE(model.DisplayCompression);
    click_tool(model, "TB_ZOOMHORZ");
    band(50, 60);
    if (released) click_tool(model, "TB_ZOOMHORZ");
    model.controls["mnuUseCompression"].ticked = true;
    choose_time_unit(model, 0);  // milliseconds
    ASSERT_TRUE(model.DisplayCompression);
    EXPECT_NEAR((*model.PESG.shown().XData)[0], 50000, 100);
    choose_time_unit(model, 1);
    EXPECT_NEAR((*model.PESG.shown().XData)[0], 50, 0.1);
    reset_zoom(model);
    click_check_cell(model, 2, 0);
  }
}

TEST_F(CompressedZoomTest, FileThatHasGoneIsToldOnceForABand) {
  model.CurveCacheOff = true;
  mark(2);
  std::filesystem::remove(folder.file("lauf.ME1"));
  shell.calls.clear();
  band(50, 60);
  EXPECT_EQ(shell.messages().size(), 1u);
}

TEST_F(CompressedZoomTest, SectionOfManySamplesLeavesAnAutomaticAxisToThem) {
  mark(2);
  band(50, 60);
  EXPECT_EQ(model.PESG.pending.ManualScaleControlX, 0);
  EXPECT_NEAR(model.PESG.shown().ManualMinX, 50, 0.3);
  EXPECT_NEAR(model.PESG.shown().ManualMaxX, 60, 0.3);
}

TEST_F(CompressedZoomTest, BandIsComputedAnewAndTheGraphHoldsNoZoom) {
  show_layers(1);
  click_tool(model, "TB_ZOOMHORZ");
  band(50, 60);
  EXPECT_TRUE(model.Zoomed);
  EXPECT_FALSE(model.PESG.shown().ZoomActive);
  EXPECT_EQ(model.PESG.pending.AllowZooming, 1);
  expect_x(50, 60);
  expect_y(0, kScales[0]);
  EXPECT_GT((*model.PESG.shown().XData)[0], 50);
  EXPECT_LT((*model.PESG.shown().XData)[0], 50.5);
}

TEST_F(CompressedZoomTest, HorizontalBandIsTakenBackOnce) {
  show_layers(1);
  click_tool(model, "TB_ZOOMHORZ");
  EXPECT_FALSE(undo());
  band(50, 60);
  EXPECT_TRUE(undo());
  expect_x(-1, 201);
  EXPECT_LT((*model.PESG.shown().XData)[0], 1);
  EXPECT_FALSE(undo());
}

TEST_F(CompressedZoomTest, RectangleIsTakenBackInBothDirections) {
  show_layers(1);
  click_tool(model, "TB_ZOOMRECT");
  y_band(10, 20);
  band(50, 60);
  expect_y(0, {10, 20, 10, 20});
  EXPECT_TRUE(undo());
  expect_x(-1, 201);
  expect_y(0, kScales[0]);
}

TEST_F(CompressedZoomTest, VerticalBandIsTakenBack) {
  show_layers(1);
  click_tool(model, "TB_ZOOMVERT");
  y_band(10, 20);
  band(-1, 201);
  expect_y(0, {10, 20, 10, 20});
  EXPECT_TRUE(undo());
  expect_y(0, kScales[0]);
}

TEST_F(CompressedZoomTest, AllLayersOfABandStayWhenItIsTakenBack) {
  show_layers(3);
  click_tool(model, "TB_ZOOMRECT");
  y_band(10, 20);
  band(50, 60, 0, 2);
  EXPECT_TRUE(undo());
  EXPECT_EQ(model.PESG.shown().SubsetCount, 3);
  EXPECT_EQ(model.LastLayer, 2);
  expect_x(-1, 201);
  for (std::size_t axis = 0; axis < 3; ++axis) expect_y(axis, kScales[axis]);
}

TEST_F(CompressedZoomTest, LayersThatLeftStayAwayUntilTheReset) {
  show_layers(3);
  click_tool(model, "TB_ZOOMRECT");
  y_band(10, 20);
  band(50, 60, 1, 2);
  EXPECT_EQ(model.PESG.shown().SubsetCount, 2);
  EXPECT_TRUE(undo());
  EXPECT_EQ(model.PESG.shown().SubsetCount, 2);
  expect_y(0, kScales[1]);
  expect_y(1, kScales[2]);
  click_tool(model, "TB_ZOOMFIX");
  EXPECT_EQ(model.PESG.shown().SubsetCount, 3);
  expect_x(-1, 201);
  for (std::size_t axis = 0; axis < 3; ++axis) expect_y(axis, kScales[axis]);
}

TEST_F(CompressedZoomTest, ResetBringsTheScaleOfAllLayersBack) {
  show_layers(3);
  click_tool(model, "TB_ZOOMRECT");
  for (const i16 lowest : {i16{0}, i16{1}, i16{2}}) {
    SCOPED_TRACE(lowest);
    for (std::size_t i = 0; i < 3; ++i) {
      LayerProperties& layer = model.PESG.pending.layers[i];
      std::tie(layer.ZoomMinY, layer.ZoomMaxY) = std::pair(10 + f64(i), 20 + f64(i));
      std::tie(layer.ZoomMinRY, layer.ZoomMaxRY) = std::pair(0.1 + f64(i), 0.9 + f64(i));
    }
    band(50, 60, lowest, 2);
    for (int axis = 0; axis <= 2 - lowest; ++axis) {
      const f64 layer = lowest + axis;
      expect_y(static_cast<std::size_t>(axis), {10 + layer, 20 + layer, 0.1 + layer, 0.9 + layer});
    }
    click_tool(model, "TB_ZOOMFIX");
    EXPECT_FALSE(model.Zoomed);
    EXPECT_EQ(model.PESG.shown().SubsetCount, 3);
    expect_x(-1, 201);
    for (std::size_t axis = 0; axis < 3; ++axis) expect_y(axis, kScales[axis]);
    click_tool(model, "TB_ZOOMRECT");
    EXPECT_FALSE(undo());
  }
}

// A plain signal in layer 1 and an envelope in layer 2.
class MixedZoomTest : public CompressedZoomTest {
 protected:
  MixedZoomTest() {
    open_envelope({.channels = 3});
    mark(2, 1);
    mark(6, 2);
    click_tool(model, "TB_ZOOMRECT");
    y_band(10, 20);
  }
};

TEST_F(MixedZoomTest, BandOverTheEnvelopeAloneIsAZoomOfTheGraph) {
  ASSERT_TRUE(model.DisplayCompression);
  band(50, 60, 1, 1);
  const GraphProperties& shown = model.PESG.shown();
  EXPECT_EQ(shown.SubsetCount, 1);
  EXPECT_TRUE(shown.ZoomActive);
  EXPECT_EQ(shown.ZoomMinX, 50);
  EXPECT_EQ(shown.ZoomMaxX, 60);
  EXPECT_EQ(shown.layers[0].ZoomMinY, 10);
  EXPECT_EQ(shown.layers[0].ZoomMaxY, 20);
  EXPECT_EQ(shown.AllowZooming, 3);
}

TEST_F(MixedZoomTest, BandOverTheEnvelopeAloneIsTakenBack) {
  band(50, 60, 1, 1);
  EXPECT_TRUE(undo());
  EXPECT_FALSE(model.PESG.shown().ZoomActive);
  EXPECT_EQ(model.PESG.shown().SubsetCount, 1);
  EXPECT_FALSE(undo());
  click_tool(model, "TB_ZOOMFIX");
  EXPECT_EQ(model.PESG.shown().SubsetCount, 2);
}

TEST_F(MixedZoomTest, AutomaticXKeepsToTheBandUntilTheReset) {
  for (int time = 0; time < 2; ++time) {
    band(50, 60, 0, 1);
    expect_x(50, 60);
    band(52, 55, 0, 1);
    expect_x(52, 55);
    EXPECT_TRUE(undo());
    EXPECT_LE(model.PESG.shown().ManualMinX, 0);
    EXPECT_GE(model.PESG.shown().ManualMaxX, 199.9);
    click_tool(model, "TB_ZOOMFIX");
    EXPECT_EQ(model.PESG.shown().ManualScaleControlX, 0);
    click_tool(model, "TB_ZOOMRECT");
  }
}

TEST_F(MixedZoomTest, AutomaticXIsBackThoughTheCompressedCurveIsGone) {
  band(50, 60, 0, 1);
  model.DisplayCompression = false;
  click_tool(model, "TB_ZOOMFIX");
  EXPECT_EQ(model.PESG.shown().ManualScaleControlX, 0);
}

TEST_F(MixedZoomTest, ManualXStaysManual) {
  model.PESG.pending.ManualScaleControlX = 3;
  model.PESG.pending.ManualMinX = -5;
  model.PESG.pending.ManualMaxX = 300;
  band(50, 60, 0, 1);
  expect_x(50, 60);
  click_tool(model, "TB_ZOOMFIX");
  EXPECT_EQ(model.PESG.shown().ManualScaleControlX, 3);
  expect_x(-5, 300);
}

TEST_F(MixedZoomTest, BandOverThePlainSignalIsComputedAnew) {
  for (const i16 highest : {i16{0}, i16{1}}) {
    band(50, 60, 0, highest);
    EXPECT_FALSE(model.PESG.shown().ZoomActive);
    EXPECT_GT((*model.PESG.shown().XData)[0], 50);
    EXPECT_LT((*model.PESG.shown().XData)[0], 50.5);
    click_tool(model, "TB_ZOOMFIX");
    click_tool(model, "TB_ZOOMRECT");
  }
}

TEST_F(MixedZoomTest, EnvelopeThatJoinsASectionLeavesTheXAxisOnIt) {
  click_check_cell(model, 6, 0);
  band(50, 60);
  mark(6, 1);
  expect_x(50, 60);
  unmark(6);
  EXPECT_NEAR(model.PESG.shown().ManualMinX, 50, 0.3);
  EXPECT_NEAR(model.PESG.shown().ManualMaxX, 60, 0.3);
}

// The plain signal goes, and the original samples of the envelope come: x and y are automatic again.
TEST_F(MixedZoomTest, OriginalSamplesBehindACompressedSectionScaleTheirAxes) {
  open({.channels = 3});
  unmark(6);
  mark(3, 1);
  mark(6, 1);
  band(50, 60);
  unmark(3);
  unmark(2);
  ASSERT_TRUE(model.OriginalDataMode);
  EXPECT_NEAR(model.PESG.shown().ManualMinX, 50, 0.3);
  EXPECT_LT(model.PESG.shown().layers[0].ManualMinY, -9000);
  box("StepBox") = "1000";
  click_tool(model, "TB_SCROLLRIGHT");
  EXPECT_NEAR(model.PESG.shown().ManualMinX, 60, 0.3);
  EXPECT_NEAR(model.PESG.shown().ManualMaxX, 70, 0.3);
}

TEST_F(CompressedZoomTest, SectionStaysOnShowWithoutCompression) {
  mark(2);
  click_tool(model, "TB_ZOOMRECT");
  y_band(10, 20);
  band(50, 60);
  run_command(model, "mnuUseCompression");
  RedrawKMGraph(model, false);
  ASSERT_FALSE(model.DisplayCompression);
  const GraphProperties& shown = model.PESG.shown();
  EXPECT_TRUE(shown.ZoomActive);
  EXPECT_EQ(shown.ZoomMinX, 50);
  EXPECT_EQ(shown.ZoomMaxX, 60);
  EXPECT_EQ(shown.layers[0].ZoomMinY, 10);
  EXPECT_EQ(shown.layers[0].ManualScaleControlY, 0);
  EXPECT_EQ(shown.layers[0].ManualScaleControlRY, 0);
  EXPECT_LE(shown.ManualMinX, 0);
}

// The graph's own zoom was moved by its scroll bars since the band.
TEST_F(CompressedZoomTest, CompressionComesToTheSectionThatTheGraphShows) {
  model.controls["mnuUseCompression"].ticked = false;
  mark(2);
  click_tool(model, "TB_ZOOMHORZ");
  band(50, 60);
  set_limits(150, 160);
  PEactions(model.PESG, kRedrawFromSettings);
  run_command(model, "mnuUseCompression");
  RedrawKMGraph(model, false);
  ASSERT_TRUE(model.DisplayCompression);
  EXPECT_GT((*model.PESG.shown().XData)[0], 150);
  EXPECT_LT((*model.PESG.shown().XData)[0], 150.5);
  EXPECT_FALSE(horizontal_scroll(model.PESG).needed);
  EXPECT_TRUE(undo());
  EXPECT_LT((*model.PESG.shown().XData)[0], 1);
}

TEST_F(CompressedZoomTest, CompressionBehindAZoomTakenBackIsWhole) {
  model.controls["mnuUseCompression"].ticked = false;
  mark(2);
  click_tool(model, "TB_ZOOMRECT");
  y_band(10, 20);
  band(50, 60);
  EXPECT_TRUE(undo());
  run_command(model, "mnuUseCompression");
  RedrawKMGraph(model, false);
  ASSERT_TRUE(model.DisplayCompression);
  EXPECT_LT((*model.PESG.shown().XData)[0], 1);
  EXPECT_EQ(model.PESG.shown().layers[0].ManualScaleControlY, 0);
}

}  // namespace
}  // namespace trendaro
