#pragma once

#include <QPixmap>
#include <QWidget>

#include "graph/graph_event.h"
#include "graph/graph_surface.h"

namespace trendaro {

// Shows a graph. Keeps a picture of it, so that uncovering the widget costs no more than a copy.
class GraphWidget : public QWidget {
  Q_OBJECT

 public:
  // `graph` must outlive the widget.
  explicit GraphWidget(const GraphSurface& graph, QWidget* parent = nullptr);

  // Repaints when the graph shows something else than at the last painting.
  void mirror();

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  // What the user did; the properties that it changes are written already.
  void happened(const GraphEvent& event);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void paint_picture();

  const GraphSurface& graph_;
  QPixmap picture_;
  u64 painted_revision_ = 0;
  bool stale_ = true;
};

}  // namespace trendaro
