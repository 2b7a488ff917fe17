#include "output/picture_file.h"

#include <QPainter>
#include <QSvgRenderer>
#include <filesystem>
#include <set>

#include <gtest/gtest.h>

#include "graph/graph_painter.h"
#include "graph/graph_surface.h"
#include "graph/plot_methods.h"
#include "image_of_svg.h"

namespace trendaro {
namespace {

GraphSurface small_graph() {
  GraphSurface graph(1);
  graph.pending.SubsetCount = 1;
  graph.pending.PointCount = 3;
  graph.pending.MainTitle = "Prüflauf";
  PEvset(graph, kXData, FlatArray{0, 1, 2});
  PEvset(graph, kYData, FlatArray{0, 5, 2});
  PEactions(graph, kTakeOverAndRedraw);
  return graph;
}

constexpr QSize kSize(320, 200);

TEST(PictureFileTest, TheEndingTellsTheKind) {
  EXPECT_EQ(picture_kind("/a/b.PNG"), PictureKind::Png);
  EXPECT_EQ(picture_kind("b.bmp"), PictureKind::Bmp);
  EXPECT_EQ(picture_kind("b.x.jpg"), PictureKind::Jpeg);
  EXPECT_EQ(picture_kind("b.Jpeg"), PictureKind::Jpeg);
  EXPECT_EQ(picture_kind("b.svg"), PictureKind::Svg);
  EXPECT_EQ(picture_kind("b.pdf"), PictureKind::Pdf);
  EXPECT_EQ(picture_kind("png"), PictureKind::Unknown);
  EXPECT_EQ(picture_kind("b.gif"), PictureKind::Unknown);
}

TEST(PictureFileTest, LosslessKindsHoldThePixelsOfTheGraph) {
  const GraphSurface graph = small_graph();
  const QImage expected = graph_image(graph.shown(), kSize);
  for (const auto& [kind, name] : {std::pair(PictureKind::Png, "PNG"), std::pair(PictureKind::Bmp, "BMP")}) {
    const QByteArray bytes = graph_picture(graph.shown(), kind, kSize);
    const QImage image = QImage::fromData(bytes, name).convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(image, expected) << name;
  }
}

TEST(PictureFileTest, JpegHasTheSizeAskedFor) {
  const QByteArray bytes = graph_picture(small_graph().shown(), PictureKind::Jpeg, kSize);
  EXPECT_EQ(QImage::fromData(bytes, "JPEG").size(), kSize);
}

TEST(PictureFileTest, VectorPicturesHoldTheirSizeAndText) {
  const QByteArray svg = graph_picture(small_graph().shown(), PictureKind::Svg, kSize);
  EXPECT_TRUE(svg.contains("viewBox=\"0 0 320 200\""));
  EXPECT_TRUE(svg.contains("Prüflauf"));
  const QByteArray pdf = graph_picture(small_graph().shown(), PictureKind::Pdf, kSize);
  EXPECT_TRUE(pdf.startsWith("%PDF-"));
  // 320 x 200 pixels of 1/96 inch are 240 x 150 points.
  EXPECT_TRUE(pdf.contains("/MediaBox [0 0 240"));
}

// 20000 samples that swing between 0 and 10, many of them in each column of pixels.
GraphSurface dense_graph() {
  constexpr i32 kPoints = 20000;
  GraphSurface graph(1);
  graph.pending.SubsetCount = 1;
  graph.pending.PointCount = kPoints;
  graph.pending.SubsetColors = {0x0000FF};
  FlatArray x;
  FlatArray y;
  for (i32 i = 0; i < kPoints; ++i) {
    x.push_back(static_cast<f32>(i));
    y.push_back(i % 2 == 0 ? 0.0F : 10.0F);
  }
  PEvset(graph, kXData, x);
  PEvset(graph, kYData, y);
  PEactions(graph, kTakeOverAndRedraw);
  return graph;
}

TEST(PictureFileTest, ADenseCurveInAVectorPictureHasNoSeamsAtAnyScale) {
  const QByteArray svg = graph_picture(dense_graph().shown(), PictureKind::Svg, kSize);
  QSvgRenderer renderer(svg);
  ASSERT_TRUE(renderer.isValid());
  constexpr f64 kScale = 2.6;
  QImage image(QSize(static_cast<int>(kSize.width() * kScale), static_cast<int>(kSize.height() * kScale)),
               QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  renderer.render(&painter);
  painter.end();
  // The middle half of the picture lies inside the curve, which is pure red.
  for (int x = image.width() / 4; x < image.width() * 3 / 4; ++x)
    EXPECT_EQ(image.pixel(x, image.height() / 2), qRgb(255, 0, 0)) << x;
}

TEST(PictureFileTest, BandsKeepTheirColorsInAVectorPicture) {
  GraphSurface graph = dense_graph();
  graph.pending.SubsetPlotMethods = {kMethodContourAreas};
  PEvset(graph, kYData, FlatArray(20000, 10.0F));
  graph.pending.layers[0].ManualScaleControlY = 3;
  graph.pending.layers[0].ManualMinY = 0;
  graph.pending.layers[0].ManualMaxY = 10;
  PEactions(graph, kTakeOverAndRedraw);
  const QImage image = image_of_svg(graph_picture(graph.shown(), PictureKind::Svg, kSize), kSize);
  const QImage screen = graph_image(graph.shown(), kSize);
  std::set<QRgb> colors;
  for (int y = 20; y < kSize.height() - 50; ++y) {
    const QRgb color = screen.pixel(150, y);
    colors.insert(color);
    // In the middle of a band, away from its edges and lines.
    const bool inside = screen.pixel(150, y - 2) == color && screen.pixel(150, y + 2) == color;
    EXPECT_TRUE(!inside || image.pixel(602, 4 * y + 2) == color) << y;
  }
  EXPECT_GT(colors.size(), 3U);
}

TEST(PictureFileTest, ADenseCurveInAVectorPictureIsOneShape) {
  const QByteArray svg = graph_picture(dense_graph().shown(), PictureKind::Svg, kSize);
  EXPECT_LE(svg.count("<path"), 2);
  // Frame, grid and ticks; a rectangle for each of about 250 columns would be far more.
  EXPECT_LT(svg.count("<rect"), 100);
}

TEST(PictureFileTest, AFileThatCannotBeWrittenIsToldAndLeavesNothing) {
  const GraphSurface graph = small_graph();
  EXPECT_FALSE(save_picture(graph.shown(), "/nowhere/at/all.png", kSize));
  EXPECT_FALSE(save_picture(graph.shown(), testing::TempDir() + "graph.gif", kSize));
  EXPECT_FALSE(std::filesystem::exists(testing::TempDir() + "graph.gif"));
}

TEST(PictureFileTest, SavesOverAnOlderPicture) {
  const std::string path = testing::TempDir() + "trendaro_picture_test.png";
  ASSERT_TRUE(save_picture(small_graph().shown(), path, QSize(100, 80)));
  ASSERT_TRUE(save_picture(small_graph().shown(), path, kSize));
  EXPECT_EQ(QImage(QString::fromStdString(path)).size(), kSize);
  std::filesystem::remove(path);
}

}  // namespace
}  // namespace trendaro
