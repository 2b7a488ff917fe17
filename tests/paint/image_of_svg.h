#pragma once

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

namespace trendaro {

// An SVG file of the given size as it looks, four pixels to one of it.
inline QImage image_of_svg(const QByteArray& svg, QSize size) {
  QSvgRenderer renderer(svg);
  QImage image(size * 4, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  renderer.render(&painter);
  return image;
}

}  // namespace trendaro
