#include <gtest/gtest.h>

#include "graph/annotation_layout.h"
#include "graph/graph_painter.h"
#include "graph/graph_surface.h"
#include "graph/plot_methods.h"
#include "image_of_svg.h"
#include "output/picture_file.h"

namespace trendaro {
namespace {

constexpr QSize kSize(320, 200);
constexpr i32 kRed = 0x0000FF;

// A zoom to (4, 4.5) and (6, 5.5) of red curves; samples lie inside, on the edges, near them and far away.
GraphSurface zoomed_graph(i32 method) {
  GraphSurface graph(1);
  graph.pending.SubsetCount = 2;
  graph.pending.PointCount = 8;
  graph.pending.SubsetColors = {kRed, kRed};
  graph.pending.SubsetPlotMethods = {method, method};
  graph.pending.SubsetPointTypes = {0, 9};
  graph.pending.SubsetsToLegend = {-1};
  graph.pending.DataPointSize = 2;
  const FlatArray x{0, 3.97F, 4, 4.5F, 5, 5.5F, 6, 10};
  const FlatArray y{0, 5.1F, 5, 5.5F, 4.5F, 5.52F, 5, 10};
  FlatArray both_x = x;
  FlatArray both_y = y;
  for (std::size_t i = 0; i < x.size(); ++i) {
    both_x.push_back(x[i]);
    both_y.push_back(method == kMethodStacked ? 0.2F : 10 - y[i]);
  }
  PEvset(graph, kXData, both_x);
  PEvset(graph, kYData, both_y);
  graph.pending.ZoomActive = true;
  graph.pending.AllowZooming = 2;
  graph.pending.ZoomMinX = 4;
  graph.pending.ZoomMaxX = 6;
  graph.pending.layers[0].ZoomMinY = 4.5;
  graph.pending.layers[0].ZoomMaxY = 5.5;
  PEactions(graph, kTakeOverAndRedraw);
  return graph;
}

// How much red there is in a picture, four pixels to one of the graph: inside of the frame, and beyond a
// pixel around it, since a line along an edge has its half there.
struct Redness {
  i64 inside = 0, outside = 0;
};

Redness redness(const QImage& image, const PixelRectangle& area) {
  const QRectF frame(area.x * 4, area.y * 4, area.width * 4, area.height * 4);
  Redness sum;
  const QRectF around = frame.adjusted(-4.5, -4.5, 4.5, 4.5);
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      const i32 red = qRed(row[x]) - qGreen(row[x]);
      if (red == 0) continue;
      if (frame.contains(x + 0.5, y + 0.5)) sum.inside += red;
      if (!around.contains(x + 0.5, y + 0.5)) sum.outside += red;
    }
  }
  return sum;
}

// The vector picture has nothing outside of the frame and inside what the screen has, up to a fifth, since
// the screen has dots of whole pixels.
void expect_cut_at_frame(const GraphSurface& graph) {
  const PixelRectangle area = GraphSheet(graph.shown(), kSize).layout.layers[0].area;
  const Redness vector =
      redness(image_of_svg(graph_picture(graph.shown(), PictureKind::Svg, kSize), kSize), area);
  const Redness screen = redness(graph_image(graph.shown(), kSize).scaled(kSize * 4), area);
  EXPECT_EQ(vector.outside, 0);
  EXPECT_GT(screen.inside, 255 * 300);
  EXPECT_NEAR(static_cast<f64>(vector.inside), static_cast<f64>(screen.inside),
              static_cast<f64>(screen.inside) / 5);
}

class VectorFrameTest : public testing::TestWithParam<i32> {};

TEST_P(VectorFrameTest, AZoomedCurveIsCutAtItsFrame) {
  expect_cut_at_frame(zoomed_graph(GetParam()));
}

TEST_P(VectorFrameTest, MarkedSamplesAreCutAtTheFrame) {
  GraphSurface graph = zoomed_graph(GetParam());
  graph.pending.CursorMode = 1;
  graph.pending.MarkDataPoints = true;
  PEactions(graph, kTakeOverAndRedraw);
  expect_cut_at_frame(graph);
}

INSTANTIATE_TEST_SUITE_P(Methods, VectorFrameTest, testing::Range(0, kMethodCount));

// Of a graph without curves on show, so that all red is the annotation's.
GraphSurface graph_with_marks(const std::vector<i32>& kinds, const FlatArray& x, const FlatArray& y) {
  GraphSurface graph = zoomed_graph(kMethodLine);
  graph.pending.SubsetColors = {0xFFFFFF, 0xFFFFFF};
  graph.pending.ShowAnnotations = true;
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    graph.pending.GraphAnnotationType.push_back(kinds[i]);
    graph.pending.GraphAnnotationX.push_back(x[i]);
    graph.pending.GraphAnnotationY.push_back(y[i]);
    graph.pending.GraphAnnotationText.emplace_back();
    graph.pending.GraphAnnotationColor.push_back(kRed);
    graph.pending.GraphAnnotationAxis.push_back(0);
  }
  PEactions(graph, kTakeOverAndRedraw);
  return graph;
}

TEST(VectorAnnotationTest, LinesAreCutAtTheFrame) {
  for (i32 style = 0; style <= kBoldStyle; ++style) {
    const i32 kind = kLineStartKind + style;
    SCOPED_TRACE(style);
    expect_cut_at_frame(graph_with_marks({kind, kLineEndKind}, {0, 10}, {0, 10}));
    expect_cut_at_frame(graph_with_marks({kind, kLineEndKind}, {0, 10}, {5, 5}));
    expect_cut_at_frame(graph_with_marks({kind, kLineEndKind}, {5, 5}, {0, 10}));
  }
}

TEST(VectorAnnotationTest, ShapesAreCutAtTheFrame) {
  for (const i32 shape : {kRectangleKind, kRoundedKind, kEllipseKind})
    for (const i32 style : {0, 1, 2, 3, kBoldStyle, kFilledShape})
      expect_cut_at_frame(
          graph_with_marks({kFirstCornerKind, kSecondCornerKind, shape + style}, {3, 5, 0}, {4.2F, 5, 0}));
}

TEST(VectorAnnotationTest, SymbolsAreCutAtTheFrame) {
  for (i32 kind = 1; kind <= kLastSymbolKind; ++kind)
    expect_cut_at_frame(graph_with_marks({kind, kind, kind, kind}, {4, 6, 5, 5}, {5, 5, 4.5F, 5.5F}));
}

TEST(VectorAnnotationTest, LinesAlongTheEdgesAreCutLengthwise) {
  GraphSurface graph = graph_with_marks({}, {}, {});
  graph.pending.HorzLineAnnotation = {4.5, 5.5};
  graph.pending.HorzLineAnnotationText = {"", ""};
  graph.pending.HorzLineAnnotationColor = {kRed, kRed};
  graph.pending.HorzLineAnnotationType = {6, 1};
  graph.pending.VertLineAnnotation = {4, 6};
  graph.pending.VertLineAnnotationText = {"", ""};
  graph.pending.VertLineAnnotationColor = {kRed, kRed};
  graph.pending.VertLineAnnotationType = {0, 1};
  PEactions(graph, kTakeOverAndRedraw);
  expect_cut_at_frame(graph);
}

}  // namespace
}  // namespace trendaro
