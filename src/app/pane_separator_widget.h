#pragma once

#include <QWidget>

namespace trendaro {

// A bar between two panes that the user drags.
class PaneSeparator : public QWidget {
  Q_OBJECT

 public:
  // An upright bar moves sideways, a level one up and down.
  PaneSeparator(Qt::Orientation orientation, QWidget* parent);

 Q_SIGNALS:
  // The left or upper edge of the bar was drawn to `position`, in the parent's pixels.
  void dragged(int position);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  Qt::Orientation orientation_;
  int grip_ = 0;  // where inside the bar the pointer took hold, in pixels
};

}  // namespace trendaro
