#include "output/palette_image.h"

#include <random>

#include <gtest/gtest.h>

#include "graph/graph_surface.h"
#include "output/picture_file.h"

namespace trendaro {
namespace {

// An image whose pixel i, line by line, has the colour `color_of(i)`.
template <typename ColorOf>
QImage image_of(QSize size, ColorOf color_of) {
  QImage image(size, QImage::Format_RGB32);
  for (int y = 0; y < size.height(); ++y)
    for (int x = 0; x < size.width(); ++x) image.setPixel(x, y, color_of(y * size.width() + x));
  return image;
}

QRgb nth_color(int number) {
  return qRgb(number % 7 * 36, number * 101 % 256, number);
}

TEST(PaletteImageTest, UpTo256ColoursKeepTheirPixels) {
  for (const int colors : {1, 2, 3, 17, 256}) {
    const QImage image = image_of(QSize(33, 19), [&](int i) { return nth_color(i % colors); });
    const QImage indexed = palette_image(image);
    ASSERT_EQ(indexed.format(), QImage::Format_Indexed8) << colors;
    EXPECT_EQ(indexed.colorCount(), colors);
    EXPECT_EQ(indexed.convertToFormat(QImage::Format_RGB32), image) << colors;
  }
}

TEST(PaletteImageTest, OneColourMoreHasNoPalette) {
  const QImage image =
      image_of(QSize(300, 1), [](int i) { return i < 256 ? nth_color(i) : qRgb(255, 255, 255); });
  EXPECT_EQ(palette_image(image.copy(0, 0, 256, 1)).colorCount(), 256);
  EXPECT_TRUE(palette_image(image).isNull());
}

TEST(PaletteImageTest, ColoursThatFallOnOnePlaceOfTheTableStayApart) {
  std::mt19937 random(9);
  for (int round = 0; round < 200; ++round) {
    std::vector<QRgb> colors(256);
    for (QRgb& color : colors) color = 0xFF000000U | static_cast<QRgb>(random());
    const QImage image = image_of(QSize(64, 32), [&](int) { return colors[random() % colors.size()]; });
    ASSERT_EQ(palette_image(image).convertToFormat(QImage::Format_RGB32), image);
  }
}

TEST(PaletteImageTest, OtherImagesHaveNone) {
  EXPECT_TRUE(palette_image({}).isNull());
  EXPECT_TRUE(palette_image(QImage(3, 3, QImage::Format_ARGB32)).isNull());
}

TEST(PaletteImageTest, APngHoldsThePixelsOfTheGraphInEitherForm) {
  GraphSurface graph(1);
  const auto png_of = [&](QSize size) {
    return QImage::fromData(graph_picture(graph.shown(), PictureKind::Png, size), "PNG");
  };
  // An empty graph without a text, and one whose curves of many colours have soft edges.
  EXPECT_EQ(png_of(QSize(60, 40)).format(), QImage::Format_Indexed8);
  constexpr i32 kCurves = 12;
  FlatArray x, y;
  for (i32 curve = 0; curve < kCurves; ++curve) {
    set_element(graph.pending.SubsetColors, curve, static_cast<i32>(nth_color(curve * 20) & 0xFFFFFF));
    for (const f32 point : {0.0F, 1.0F}) {
      x.push_back(point);
      y.push_back(static_cast<f32>(curve) * point);
    }
  }
  graph.pending.SubsetCount = kCurves;
  graph.pending.PointCount = 2;
  PEvset(graph, kXData, std::move(x));
  PEvset(graph, kYData, std::move(y));
  PEactions(graph, kTakeOverAndRedraw);
  for (const QSize size : {QSize(60, 40), QSize(800, 600)})
    EXPECT_EQ(png_of(size).convertToFormat(QImage::Format_RGB32), graph_image(graph.shown(), size));
  EXPECT_NE(png_of(QSize(800, 600)).format(), QImage::Format_Indexed8);
}

}  // namespace
}  // namespace trendaro
