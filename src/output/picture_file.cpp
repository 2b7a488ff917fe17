#include "output/picture_file.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>
#include <algorithm>
#include <array>

#include "graph/curve_outline.h"
#include "graph/graph_painter.h"
#include "output/palette_image.h"

namespace trendaro {
namespace {

constexpr int kPixelsPerInch = 96;
// Pixels of a PDF file to one of the picture, so that no place of a line is rounded visibly.
constexpr int kFineness = 10;
constexpr int kJpegQuality = 92;
constexpr int kPngCompression = 40;  // of 100: the last fifth of the size would take four times as long

QByteArray encoded(const QImage& image, const char* format, int quality, int compression) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  if (image.isNull() || !buffer.open(QIODevice::WriteOnly)) return {};
  QImageWriter writer(&buffer, format);
  if (quality >= 0) writer.setQuality(quality);
  if (compression >= 0) writer.setCompression(compression);
  return writer.write(image) ? bytes : QByteArray();
}

QByteArray png_picture(const QImage& image) {
  const QImage of_few_colors = palette_image(image);
  return encoded(of_few_colors.isNull() ? image : of_few_colors, "png", -1, kPngCompression);
}

QByteArray svg_picture(const GraphProperties& shown, QSize size) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setSize(size);
  generator.setViewBox(QRect(QPoint(), size));
  generator.setResolution(kPixelsPerInch);
  generator.setTitle(QString::fromStdString(shown.MainTitle));
  QPainter painter;
  if (!painter.begin(&generator)) return {};
  paint_graph(painter, shown, size);
  painter.end();
  return bytes;
}

QByteArray pdf_picture(const GraphProperties& shown, QSize size) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  if (!buffer.open(QIODevice::WriteOnly)) return {};
  QPdfWriter writer(&buffer);
  const QSizeF points = QSizeF(size) * 72.0 / kPixelsPerInch;
  writer.setPageLayout(QPageLayout(QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch),
                                   QPageLayout::Portrait, QMarginsF()));
  writer.setResolution(kPixelsPerInch * kFineness);
  writer.setTitle(QString::fromStdString(shown.MainTitle));
  QPainter painter;
  if (!painter.begin(&writer)) return {};
  painter.scale(kFineness, kFineness);
  paint_graph(painter, shown, size);
  painter.end();
  return bytes;
}

}  // namespace

PictureKind picture_kind(const std::string& path) {
  const auto point = path.rfind('.');
  if (point == std::string::npos) return PictureKind::Unknown;
  std::string ending = path.substr(point + 1);
  for (char& letter : ending)
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  struct Ending {
    const char* text;
    PictureKind kind;
  };
  constexpr std::array endings = {Ending{"png", PictureKind::Png},  Ending{"bmp", PictureKind::Bmp},
                                  Ending{"jpg", PictureKind::Jpeg}, Ending{"jpeg", PictureKind::Jpeg},
                                  Ending{"svg", PictureKind::Svg},  Ending{"pdf", PictureKind::Pdf}};
  const auto found =
      std::find_if(endings.begin(), endings.end(), [&](const Ending& each) { return ending == each.text; });
  return found == endings.end() ? PictureKind::Unknown : found->kind;
}

std::vector<f64> picture_columns(const GraphProperties& shown, PictureKind kind, QSize size) {
  const GraphLayout layout = GraphSheet(shown, size).layout;
  const f64 column_width = kind == PictureKind::Pdf ? 1.0 / kFineness : 1;
  return column_edges(layout.x_axis.scale, layout.layers.front().area, column_width, false);
}

QImage graph_image(const GraphProperties& shown, QSize size) {
  QImage image(size, QImage::Format_RGB32);
  if (image.isNull()) return image;
  image.fill(Qt::white);
  QPainter painter(&image);
  paint_graph(painter, shown, size);
  return image;
}

QByteArray graph_picture(const GraphProperties& shown, PictureKind kind, QSize size) {
  if (size.isEmpty()) return {};
  switch (kind) {
    case PictureKind::Png:
      return png_picture(graph_image(shown, size));
    case PictureKind::Bmp:
      return encoded(graph_image(shown, size), "bmp", -1, -1);
    case PictureKind::Jpeg:
      return encoded(graph_image(shown, size), "jpeg", kJpegQuality, -1);
    case PictureKind::Svg:
      return svg_picture(shown, size);
    case PictureKind::Pdf:
      return pdf_picture(shown, size);
    case PictureKind::Unknown:
      break;
  }
  return {};
}

bool save_picture(const GraphProperties& shown, const std::string& path, QSize size) {
  const QByteArray bytes = graph_picture(shown, picture_kind(path), size);
  if (bytes.isEmpty()) return false;
  QSaveFile file(QString::fromStdString(path));
  return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

}  // namespace trendaro
