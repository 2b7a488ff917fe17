#pragma once

#include <QEvent>
#include <QWidget>

namespace trendaro {

// Counts the paintings of a widget.
class Paintings : public QObject {
 public:
  explicit Paintings(QWidget* widget) : QObject(widget) { widget->installEventFilter(this); }
  int count = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    count += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
};

}  // namespace trendaro
