// Graphs with settings and data that make no sense are drawn all the same.
//   TRENDARO_PAINT_RUNS and TRENDARO_PAINT_SEED lengthen and vary the walk.

#include "support/random_graph.h"

#include <QImage>
#include <QPainter>
#include <cmath>

#include <gtest/gtest.h>

#include "graph/graph_cursor.h"
#include "graph/graph_painter.h"
#include "graph/graph_surface.h"
#include "graph/graph_target.h"
#include "graph/plot_methods.h"

namespace trendaro {
namespace {

constexpr int kRuns = 250;

void give_data(GraphSurface& graph, RandomValues& values) {
  const std::size_t curves = values.below(7);
  const std::size_t points = values.one_in(8) ? 20000 : values.below(300);
  const bool ordered = !values.one_in(3);
  FlatArray x(curves * points), y(x.size());
  SampleArray x_double(x.size());
  for (std::size_t i = 0; i < x.size(); ++i) {
    const f64 place = ordered && !values.one_in(200) ? static_cast<f64>(i) : values.real();
    x[i] = static_cast<f32>(place);
    x_double[i] = place;
    y[i] = static_cast<f32>(values.one_in(5) ? values.real() : std::sin(static_cast<f64>(i)));
  }
  GraphProperties& pending = graph.pending;
  pending.SubsetCount = static_cast<i32>(curves);
  pending.PointCount = static_cast<i32>(points);
  for (std::size_t curve = 0; curve < curves; ++curve)
    pending.SubsetPlotMethods.push_back(static_cast<i32>(values.below(kMethodCount)) +
                                        (values.one_in(3) ? kRightAxisMethod : 0));
  PEvset(graph, kXData, std::move(x));
  PEvset(graph, kYData, std::move(y));
  PEvset(graph, kXDataII, std::move(x_double));
}

int setting(const char* name, int otherwise) {
  const int value = qEnvironmentVariableIntValue(name);
  return value > 0 ? value : otherwise;
}

// A user who points anywhere, keys included.
void use(GraphSurface& graph, const GraphSheet& sheet, RandomValues& values) {
  const auto anywhere = [&](f64 length) { return static_cast<f64>(values.below(1000)) / 1000 * length; };
  for (int i = 0; i < 4; ++i) {
    const PixelPoint place{anywhere(sheet.layout.width), anywhere(sheet.layout.height)};
    const GraphTarget target =
        target_at(graph.shown(), sheet.layout, place,
                  values.one_in(2) ? TargetOrder::DataFirst : TargetOrder::AnnotationsFirst, &sheet.fonts);
    EXPECT_EQ(target.index >= 0, target.kind == TargetKind::PointAnnotation ||
                                     target.kind == TargetKind::HorzLine ||
                                     target.kind == TargetKind::VertLine);
    gripped_line(graph.shown(), sheet.layout, place);
    snap_cursor(graph, sheet.layout, place);
    step_cursor(graph, sheet.layout, static_cast<CursorStep>(values.below(8)));
    const CursorMark mark = cursor_mark(graph, sheet.layout);
    EXPECT_LT(mark.slot, sheet.layout.layers.size());
  }
}

void draw(GraphSurface& graph, RandomValues& values) {
  QImage image(1 + static_cast<int>(values.below(500)), 1 + static_cast<int>(values.below(300)),
               QImage::Format_RGB32);
  image.setDevicePixelRatio(values.one_in(3) ? 1.5 : 1);
  image.fill(Qt::magenta);
  QPainter painter(&image);
  const GraphSheet sheet(graph.shown(), image.deviceIndependentSize());
  paint_graph_base(painter, sheet);
  paint_graph_overlay(painter, sheet);
  use(graph, sheet, values);
}

TEST(RandomGraphTest, AnySettingsAreDrawn) {
  const int first = setting("TRENDARO_PAINT_SEED", 1);
  const int runs = setting("TRENDARO_PAINT_RUNS", kRuns);
  for (int seed = first; seed < first + runs; ++seed) {
    SCOPED_TRACE(seed);
    RandomValues values(static_cast<u32>(seed));
    GraphSurface graph(1);
    give_data(graph, values);
    scramble(graph.pending, values, 1 + values.below(12));
    PEactions(graph, kTakeOverAndRedraw);
    draw(graph, values);
    scramble(graph.pending, values, 20);
    PEactions(graph, kRedrawFromSettings);
    EXPECT_NO_FATAL_FAILURE(draw(graph, values));
  }
}

}  // namespace
}  // namespace trendaro
