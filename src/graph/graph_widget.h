#pragma once

#include <QPixmap>
#include <QWidget>
#include <optional>

#include "graph/graph_event.h"
#include "graph/graph_layout.h"
#include "graph/graph_painter.h"
#include "graph/graph_surface.h"
#include "graph/interaction.h"
#include "graph/picture_state.h"

class QScrollBar;

namespace trendaro {

enum class GraphRole : u8 {
  Detail,
  Survey,  // its vertical lines are limits that can be dragged
};

// Shows a graph and tells what the user does with it. The picture of the curves is kept; annotations, tables,
// limit lines, cursor and rubber band are drawn over it, so that moving them costs no more than a copy.
class GraphWidget : public QWidget {
  Q_OBJECT

 public:
  // `graph` must outlive the widget.
  explicit GraphWidget(GraphSurface& graph, GraphRole role, QWidget* parent = nullptr);

  // Brings picture, cursor, limit lines and scroll bars in line with the graph.
  void mirror();

  // Where everything of the graph stands now.
  const GraphLayout& layout_on_show();
  // How often the picture of the curves has been painted.
  [[nodiscard]] u64 pictures_painted() const { return pictures_painted_; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  // What the user did; the properties that it changes are written already.
  void happened(const GraphEvent& event);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  [[nodiscard]] QSize graph_size() const;  // without the scroll bars
  void refresh();
  void place_scroll_bars();
  void paint_picture();
  void paint_overlay(QPainter& painter);
  void tell(const GraphEvents& events);
  void give_up();
  void shape_pointer(PixelPoint place);

  GraphSurface& graph_;
  Interaction interaction_;
  QScrollBar* horizontal_;
  QScrollBar* vertical_;
  QPixmap picture_;
  PictureState painted_;
  std::optional<GraphSheet> sheet_;
  QSize laid_out_size_;
  u64 seen_revision_ = 0;
  u64 pictures_painted_ = 0;
  bool stale_ = true;  // picture and layout
  bool picture_stale_ = true;
  PointerShape shape_ = PointerShape::Arrow;
};

}  // namespace trendaro
