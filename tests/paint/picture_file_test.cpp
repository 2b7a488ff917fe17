#include "output/picture_file.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "graph/graph_painter.h"
#include "graph/graph_surface.h"

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
