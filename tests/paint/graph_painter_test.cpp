#include "graph/graph_painter.h"

#include <QImage>
#include <QPalette>
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "graph/graph_layout.h"
#include "graph/graph_surface.h"
#include "graph/painters/curve_painter.h"
#include "graph/painters/graph_colors.h"
#include "graph/painters/graph_fonts.h"
#include "graph/painters/grid_painter.h"
#include "graph/plot_methods.h"

namespace trendaro {
namespace {

constexpr QSize kSize(640, 400);
constexpr i32 kRed = 0x0000FF;

GraphSurface graph_of(FlatArray x, FlatArray y) {
  GraphSurface graph(1);
  graph.pending.SubsetCount = 1;
  graph.pending.PointCount = static_cast<i32>(y.size());
  graph.pending.SubsetColors = {kRed};
  graph.pending.SubsetPlotMethods = {0};
  PEvset(graph, kXData, std::move(x));
  PEvset(graph, kYData, std::move(y));
  PEactions(graph, kTakeOverAndRedraw);
  return graph;
}

QImage drawn(const GraphSurface& graph, f64 scale = 1) {
  QImage image(kSize * scale, QImage::Format_RGB32);
  image.setDevicePixelRatio(scale);
  image.fill(Qt::green);
  QPainter painter(&image);
  paint_graph(painter, graph.shown(), kSize);
  return image;
}

GraphLayout layout_of(const GraphSurface& graph) {
  return graph_layout(graph.shown(), kSize.width(), kSize.height(), GraphFonts(graph.shown()));
}

int reddish_pixels(const QImage& image) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const QColor color = image.pixelColor(x, y);
      if (color.red() > 200 && color.green() < 160 && color.blue() < 160) ++count;
    }
  return count;
}

bool reddish_near(const QImage& image, f64 x, f64 y) {
  for (int dy = -1; dy <= 1; ++dy)
    for (int dx = -1; dx <= 1; ++dx) {
      const QColor color =
          image.pixelColor(static_cast<int>(std::floor(x)) + dx, static_cast<int>(std::floor(y)) + dy);
      if (color.red() > 200 && color.green() < 160 && color.blue() < 160) return true;
    }
  return false;
}

TEST(GraphPainterTest, ALineRunsThroughItsSamples) {
  const GraphSurface graph = graph_of({0, 5, 10}, {0, 10, 5});
  const GraphLayout layout = layout_of(graph);
  const QImage image = drawn(graph);
  for (const auto& [x, y] : {std::pair(2.5, 5.0), std::pair(5.0, 10.0), std::pair(7.5, 7.5)})
    EXPECT_TRUE(
        reddish_near(image, pixel_of(layout.x_axis.scale, x), pixel_of(layout.layers[0].left.scale, y)));
  EXPECT_FALSE(
      reddish_near(image, pixel_of(layout.x_axis.scale, 5), pixel_of(layout.layers[0].left.scale, 2)));
}

TEST(GraphPainterTest, ASpikeOfOneSampleInAMillionIsDrawn) {
  FlatArray x(1000000);
  FlatArray y(1000000, 1);
  for (std::size_t i = 0; i < x.size(); ++i) x[i] = static_cast<f32>(i);
  y[654321] = 5;
  const GraphSurface graph = graph_of(std::move(x), std::move(y));
  const GraphLayout layout = layout_of(graph);
  const QImage image = drawn(graph);
  for (const f64 level : {2.0, 3.0, 4.0, 4.9})
    EXPECT_TRUE(reddish_near(image, pixel_of(layout.x_axis.scale, 654321),
                             pixel_of(layout.layers[0].left.scale, level)));
}

TEST(GraphPainterTest, MissingSamplesLeaveAGap) {
  const GraphSurface graph = graph_of({0, 1, 2, 3, 4}, {3, 3, -1000000, 3, 3});
  const GraphLayout layout = layout_of(graph);
  const QImage image = drawn(graph);
  const f64 level = pixel_of(layout.layers[0].left.scale, 3);
  EXPECT_TRUE(reddish_near(image, pixel_of(layout.x_axis.scale, 0.5), level));
  EXPECT_FALSE(reddish_near(image, pixel_of(layout.x_axis.scale, 2), level));
  EXPECT_TRUE(reddish_near(image, pixel_of(layout.x_axis.scale, 3.5), level));
}

// Pixels that red covers within 6 pixels of a place on white, parts counted as such.
f64 red_covered_around(const QImage& image, f64 x, f64 y) {
  f64 covered = 0;
  for (int row = static_cast<int>(y) - 6; row <= static_cast<int>(y) + 6; ++row)
    for (int column = static_cast<int>(x) - 6; column <= static_cast<int>(x) + 6; ++column)
      covered += (255 - image.pixelColor(column, row).green()) / 255.0;
  return covered;
}

TEST(GraphPainterTest, ASampleBetweenGapsIsADotWiderThanALine) {
  const std::size_t count = 100001;
  FlatArray x(count);
  FlatArray y(count, -1000000);
  for (std::size_t i = 0; i < count; ++i) x[i] = static_cast<f32>(i);
  y[0] = 0;
  y[40000] = 3;
  y[count - 1] = 5;
  GraphSurface graph = graph_of(std::move(x), std::move(y));
  graph.pending.GridLineControl = kGridNone;
  for (const auto& [line_type, diameter] : {std::pair(0, 4.0), std::pair(6, 5.4)}) {
    graph.pending.SubsetLineTypes = {static_cast<i16>(line_type)};
    PEactions(graph, kRedrawFromSettings);
    const GraphLayout layout = layout_of(graph);
    EXPECT_NEAR(red_covered_around(drawn(graph), pixel_of(layout.x_axis.scale, 40000),
                                   pixel_of(layout.layers[0].left.scale, 3)),
                diameter * diameter * 0.785, 1)
        << line_type;
  }
}

TEST(GraphPainterTest, ABandShowsItsFaceAlsoFromRightToLeft) {
  GraphSurface graph = graph_of({0, 5, 10}, {1, 2, 1});
  graph.pending.SubsetPlotMethods = {kMethodRibbon};
  graph.pending.GridLineControl = kGridNone;
  graph.pending.layers[0].ManualScaleControlY = 3;
  graph.pending.layers[0].ManualMinY = 0;
  graph.pending.layers[0].ManualMaxY = 3;
  const QColor face = blended(QColor(Qt::red), QColor(Qt::white), 0.55);
  const QColor shade = blended(QColor(Qt::red), QColor(Qt::black), 0.75);
  for (const bool inverted : {false, true}) {
    graph.pending.InvertedXAxis = inverted;
    PEactions(graph, kRedrawFromSettings);
    const QImage image = drawn(graph);
    int faces = 0;
    for (int row = 0; row < image.height(); ++row)
      for (int column = 0; column < image.width(); ++column) {
        ASSERT_NE(image.pixelColor(column, row), shade) << inverted;
        if (image.pixelColor(column, row) == face) ++faces;
      }
    EXPECT_GT(faces, 1000) << inverted;
  }
}

TEST(GraphPainterTest, CurvesStayInsideTheirArea) {
  GraphSurface graph = graph_of({0, 5, 10}, {-1e30F, 1e30F, -1e30F});
  graph.pending.layers[0].ManualScaleControlY = 3;
  graph.pending.layers[0].ManualMinY = -1;
  graph.pending.layers[0].ManualMaxY = 1;
  PEactions(graph, kRedrawFromSettings);
  const PixelRectangle area = layout_of(graph).layers[0].area;
  const QImage image = drawn(graph);
  for (int x = 0; x < image.width(); ++x) {
    EXPECT_FALSE(image.pixelColor(x, static_cast<int>(area.y) - 3) == QColor(255, 0, 0));
    EXPECT_FALSE(image.pixelColor(x, static_cast<int>(area.bottom()) + 3) == QColor(255, 0, 0));
  }
  EXPECT_GT(reddish_pixels(image), 100);
}

TEST(GraphPainterTest, GridLinesAreOnePixelOfTheDevice) {
  GraphSurface graph = graph_of({0, 10}, {0, 10});
  for (const f64 scale : {1.0, 2.0, 1.5}) {
    const GraphLayout layout = layout_of(graph);
    const QImage image = drawn(graph, scale);
    const int x = static_cast<int>((layout.layers[0].area.x + 3) * scale);
    int dark = 0;
    const f64 line = layout.layers[0].left.major[1];
    for (int y = static_cast<int>((line - 5) * scale); y < static_cast<int>((line + 5) * scale); ++y)
      if (image.pixelColor(x, y) != Qt::white) ++dark;
    EXPECT_EQ(dark, static_cast<int>(std::round(scale))) << scale;
  }
}

TEST(GraphPainterTest, AStackThatLeavesItsZoomKeepsItsSlope) {
  GraphSurface graph = graph_of({0, 10}, {0, 10});
  graph.pending.SubsetPlotMethods = {kMethodStacked};
  graph.pending.GridLineControl = kGridNone;
  graph.pending.ZoomActive = true;
  graph.pending.ZoomMinX = 4;
  graph.pending.ZoomMaxX = 6;
  graph.pending.layers[0].ZoomMinY = 4.5;
  graph.pending.layers[0].ZoomMaxY = 5.5;
  PEactions(graph, kTakeOverAndRedraw);
  const GraphLayout layout = layout_of(graph);
  const QImage image = drawn(graph);
  const auto filled = [&](f64 x, f64 y) {
    return reddish_near(image, pixel_of(layout.x_axis.scale, x), pixel_of(layout.layers[0].left.scale, y));
  };
  EXPECT_TRUE(filled(5, 4.9));
  EXPECT_FALSE(filled(5, 5.1));
  // The curve comes into the picture at 4.5 and leaves it at 5.5.
  EXPECT_FALSE(filled(4.4, 4.6));
  EXPECT_TRUE(filled(5.6, 5.4));
}

TEST(GraphPainterTest, WithoutGridLinesTheAreaIsPlain) {
  GraphSurface graph = graph_of({0, 10}, {0, 0});
  graph.pending.GridLineControl = kGridNone;
  PEactions(graph, kRedrawFromSettings);
  const PixelRectangle area = layout_of(graph).layers[0].area;
  const QImage image = drawn(graph);
  for (int y = static_cast<int>(area.y) + 2; y < static_cast<int>(area.y + area.height / 3); ++y)
    for (int x = static_cast<int>(area.x) + 2; x < static_cast<int>(area.right()) - 2; ++x)
      ASSERT_EQ(image.pixelColor(x, y), QColor(Qt::white)) << x << "," << y;
}

TEST(GraphPainterTest, EveryMethodLineAndSymbolDrawsSomething) {
  GraphSurface graph = graph_of({0, 1, 2, 3, 4, 5}, {1, 3, 2, 5, 4, 6});
  for (i32 method = 0; method <= kMethodCount; ++method)
    for (const i32 line : {0, 1, 2, 3, 4, 5, 6, 9, 10, 11, 99})
      for (const i32 symbol : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 72, 73, -5}) {
        graph.pending.SubsetPlotMethods = {method};
        graph.pending.SubsetLineTypes = {static_cast<i16>(line)};
        graph.pending.SubsetPointTypes = {static_cast<i16>(symbol)};
        graph.pending.DataPointSize = 2;
        if (symbol != 0 && method != kMethodPoints) continue;
        PEactions(graph, kRedrawFromSettings);
        EXPECT_GT(reddish_pixels(drawn(graph)), 10) << method << " " << line << " " << symbol;
      }
}

TEST(GraphPainterTest, EverySymbolOfAnAnnotationHasItsColour) {
  GraphSurface graph = graph_of({0, 1}, {0, 1});
  graph.pending.SubsetColors = {0};
  graph.pending.ShowAnnotations = true;
  for (i32 kind = 1; kind <= 36; ++kind) {
    graph.pending.GraphAnnotationType = {kind};
    graph.pending.GraphAnnotationX = graph.pending.GraphAnnotationY = {0.5};
    graph.pending.GraphAnnotationColor = {kRed};
    PEactions(graph, kTakeOverAndRedraw);
    EXPECT_GT(reddish_pixels(drawn(graph)), 3) << kind;
  }
}

TEST(GraphPainterTest, ColoursAreBlueGreenRedOrOfTheDesktop) {
  EXPECT_EQ(graph_color(0x102030), QColor(0x30, 0x20, 0x10));
  EXPECT_EQ(graph_color(static_cast<i32>(0x80000005U)), QPalette().color(QPalette::Base));
  EXPECT_TRUE(graph_color(static_cast<i32>(0x800000FFU)).isValid());
}

TEST(GraphPainterTest, AnyColumnOfNumbersCanBeDrawn) {
  std::mt19937 random(3);
  const f32 odd[] = {0, -0.0F, 1e38F, -1e38F, 1e-38F, NAN, INFINITY, -INFINITY, -1000000, 1};
  for (int round = 0; round < 150; ++round) {
    FlatArray x;
    FlatArray y;
    const std::size_t count = 1 + random() % 40;
    for (std::size_t i = 0; i < count; ++i) {
      x.push_back(random() % 3 == 0 ? odd[random() % std::size(odd)] : static_cast<f32>(i));
      y.push_back(random() % 3 == 0 ? odd[random() % std::size(odd)] : static_cast<f32>(random() % 100));
    }
    GraphSurface graph = graph_of(std::move(x), std::move(y));
    graph.pending.SubsetPlotMethods = {static_cast<i32>(random() % 14)};
    graph.pending.SubsetLineTypes = {static_cast<i16>(random() % 12)};
    graph.pending.XAxisScaleControl = static_cast<i32>(random() % 4);
    graph.pending.layers[0].YAxisScaleControl = static_cast<i32>(random() % 4);
    graph.pending.DateTimeMode = static_cast<i16>(random() % 2);
    graph.pending.TickSetting = static_cast<i32>(random() % 7);
    graph.pending.FontSizeClass = static_cast<i32>(random() % 5) - 1;
    PEactions(graph, kTakeOverAndRedraw);
    const QImage image = drawn(graph);
    // The corner is desk, whatever the curve does.
    ASSERT_EQ(image.pixelColor(0, 0), graph_color(graph.shown().DeskColor));
  }
}

}  // namespace
}  // namespace trendaro
