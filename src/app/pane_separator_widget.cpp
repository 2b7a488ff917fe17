#include "app/pane_separator_widget.h"

#include <QMouseEvent>
#include <QPainter>

namespace trendaro {
namespace {

constexpr int kGripLength = 28;  // of the mark in the middle, in pixels

}  // namespace

PaneSeparator::PaneSeparator(Qt::Orientation orientation, QWidget* parent)
    : QWidget(parent), orientation_(orientation) {
  setCursor(orientation == Qt::Vertical ? Qt::SplitHCursor : Qt::SplitVCursor);
}

void PaneSeparator::mousePressEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  grip_ = orientation_ == Qt::Vertical ? place.x() : place.y();
}

void PaneSeparator::mouseMoveEvent(QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton)) return;
  const QPoint place = mapToParent(event->position().toPoint());
  Q_EMIT dragged((orientation_ == Qt::Vertical ? place.x() : place.y()) - grip_);
}

void PaneSeparator::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QRect mark(0, 0, orientation_ == Qt::Vertical ? 1 : kGripLength,
             orientation_ == Qt::Vertical ? kGripLength : 1);
  mark.moveCenter(rect().center());
  painter.fillRect(mark, palette().color(QPalette::Mid));
}

}  // namespace trendaro
