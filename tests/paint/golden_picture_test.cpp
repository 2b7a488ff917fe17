// Pictures of the sample graphs against those that were looked at and kept. Their texts are left out and
// their layout measures texts by a fixed rule, so that they do not depend on the fonts of a machine.
//   TRENDARO_REMAKE_PICTURES=1 paint_test --gtest_filter=GoldenPictureTest*
// draws the kept ones anew.

#include <QImage>
#include <algorithm>
#include <cstdlib>

#include <gtest/gtest.h>

#include "graph/graph_painter.h"
#include "sample_sheet.h"
#include "support/fixed_measure.h"

namespace trendaro {
namespace {

constexpr SampleSheet kSheet{.tile = {300, 180}, .columns = 4};
constexpr int kTolerance = 40;              // of 255, in a colour of a pixel
constexpr f64 kMostDifferent = 1.0 / 1000;  // of the pixels of a graph

void leave_out_texts(AxisLayout& axis) {
  axis.labels.clear();
  axis.title.text.clear();
}

GraphLayout layout_without_texts(const GraphProperties& shown) {
  GraphLayout layout = graph_layout(shown, kSheet.tile.width(), kSheet.tile.height(), FixedMeasure());
  layout.titles.clear();
  layout.legend_notes.clear();
  leave_out_texts(layout.x_axis);
  for (LayerLayout& layer : layout.layers) {
    leave_out_texts(layer.left);
    leave_out_texts(layer.right);
  }
  for (LegendEntry& entry : layout.legend) entry.name.text.clear();
  return layout;
}

QImage drawn(const SampleGraphs& graphs, f64 scale) {
  return kSheet.drawn(graphs, scale, [](QPainter& painter, const GraphSurface& graph) {
    paint_graph_base(painter, GraphSheet(graph.shown(), layout_without_texts(graph.shown())));
  });
}

bool differ(QRgb a, QRgb b) {
  return std::abs(qRed(a) - qRed(b)) > kTolerance || std::abs(qGreen(a) - qGreen(b)) > kTolerance ||
         std::abs(qBlue(a) - qBlue(b)) > kTolerance;
}

// The tile of a sheet, from 0 and in rows.
QImage tile(const QImage& sheet, int place, f64 scale) {
  const QSize size = kSheet.tile * scale;
  return sheet.copy(
      QRect(QPoint(place % kSheet.columns * size.width(), place / kSheet.columns * size.height()), size));
}

f64 share_of_different_pixels(const QImage& a, const QImage& b) {
  i64 count = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x) count += differ(a.pixel(x, y), b.pixel(x, y)) ? 1 : 0;
  return static_cast<f64>(count) / (static_cast<f64>(a.width()) * a.height());
}

// Each graph by itself, so that one symbol or line type that differs is not lost among all the others.
bool same_graphs(const QImage& now, const QImage& then, const SampleGraphs& graphs, f64 scale) {
  bool same = true;
  for (std::size_t i = 0; i < graphs.size(); ++i) {
    const int place = static_cast<int>(i);
    const f64 share = share_of_different_pixels(tile(now, place, scale), tile(then, place, scale));
    same = same && share <= kMostDifferent;
    EXPECT_LE(share, kMostDifferent) << graphs[i].shown().MainTitle;
  }
  return same;
}

void expect_as_kept(const SampleGraphs& graphs, f64 scale, const char* name) {
  const QString kept = QStringLiteral(GOLDEN_PICTURES "/%1.png").arg(QLatin1String(name));
  const QImage now = drawn(graphs, scale);
  if (qEnvironmentVariableIsSet("TRENDARO_REMAKE_PICTURES")) {
    const QImage small = now.convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither);
    ASSERT_TRUE(small.save(kept));
  }
  const QImage then(kept);
  ASSERT_FALSE(then.isNull()) << kept.toStdString();
  EXPECT_EQ(now.size(), then.size());
  const bool same = now.size() == then.size() &&
                    same_graphs(now, then.convertToFormat(QImage::Format_RGB32), graphs, scale);
  if (!same) now.save(QStringLiteral("%1-now.png").arg(QLatin1String(name)));
}

TEST(GoldenPictureTest, MethodsLinesAndSymbols) {
  expect_as_kept(sample_methods(), 1, "methods");
}

TEST(GoldenPictureTest, MethodsLinesAndSymbolsAtTwiceTheScale) {
  expect_as_kept(sample_methods(), 2, "methods-2x");
}

TEST(GoldenPictureTest, AxesAndGrids) {
  expect_as_kept(sample_axes(), 1, "axes");
}

TEST(GoldenPictureTest, LegendsAndFrames) {
  expect_as_kept(sample_texts(), 1, "texts");
}

TEST(GoldenPictureTest, FurtherSettings) {
  expect_as_kept(sample_settings(), 1, "settings");
}

}  // namespace
}  // namespace trendaro
