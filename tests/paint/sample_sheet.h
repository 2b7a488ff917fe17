#pragma once

#include <QImage>
#include <QPainter>
#include <QSize>
#include <functional>

#include "sample_graphs.h"

namespace trendaro {

// Graphs beside and below each other, in rows of `columns` tiles of one size in device-independent pixels.
struct SampleSheet {
  QSize tile;
  int columns;

  using PaintTile = std::function<void(QPainter&, const GraphSurface&)>;

  // The picture of a sheet at a scale; `paint` draws each graph into its tile.
  [[nodiscard]] QImage drawn(const SampleGraphs& graphs, f64 scale, const PaintTile& paint) const {
    const int rows = (static_cast<int>(graphs.size()) + columns - 1) / columns;
    QImage image(QSize(tile.width() * columns, tile.height() * rows) * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    int place = 0;
    for (const GraphSurface& graph : graphs) {
      painter.save();
      painter.translate(place % columns * tile.width(), place / columns * tile.height());
      paint(painter, graph);
      painter.restore();
      ++place;
    }
    return image;
  }
};

}  // namespace trendaro
