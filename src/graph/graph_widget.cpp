#include "graph/graph_widget.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <cmath>

#include "graph/graph_painter.h"

namespace trendaro {
namespace {

constexpr QSize kPreferredSize(640, 360);
constexpr QSize kSmallestSize(120, 80);

}  // namespace

GraphWidget::GraphWidget(const GraphSurface& graph, QWidget* parent) : QWidget(parent), graph_(graph) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAccessibleName(QStringLiteral("Graphik"));
}

void GraphWidget::mirror() {
  if (!stale_ && painted_revision_ == graph_.revision()) return;
  stale_ = true;
  update();
}

QSize GraphWidget::sizeHint() const {
  return kPreferredSize;
}

QSize GraphWidget::minimumSizeHint() const {
  return kSmallestSize;
}

void GraphWidget::paintEvent(QPaintEvent* event) {
  const f64 ratio = devicePixelRatioF();
  const QSize pixels(static_cast<int>(std::ceil(width() * ratio)),
                     static_cast<int>(std::ceil(height() * ratio)));
  const bool fits = picture_.size() == pixels && picture_.devicePixelRatio() == ratio;
  if (stale_ || !fits || painted_revision_ != graph_.revision()) {
    if (!fits) {
      picture_ = QPixmap(pixels);
      picture_.setDevicePixelRatio(ratio);
    }
    paint_picture();
  }
  QPainter painter(this);
  const QRectF exposed(event->rect());
  painter.drawPixmap(
      exposed, picture_,
      QRectF(exposed.topLeft() * ratio, QSizeF(exposed.width() * ratio, exposed.height() * ratio)));
}

void GraphWidget::changeEvent(QEvent* event) {
  // System colours of the graph follow the desktop.
  if (event->type() == QEvent::PaletteChange) {
    stale_ = true;
    update();
  }
  QWidget::changeEvent(event);
}

void GraphWidget::paint_picture() {
  QPainter painter(&picture_);
  paint_graph(painter, graph_.shown(), QSizeF(size()));
  painted_revision_ = graph_.revision();
  stale_ = false;
}

}  // namespace trendaro
