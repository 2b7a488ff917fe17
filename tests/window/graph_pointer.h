#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QPoint>
#include <cmath>

#include "graph/graph_scale.h"
#include "graph/graph_widget.h"

namespace trendaro {

// A place in the middle of the first layer of a graph at `x`.
inline QPoint place_at(GraphWidget* graph, f64 x) {
  const GraphLayout& layout = graph->layout_on_show();
  const PixelRectangle& area = layout.layers.at(0).area;
  return {static_cast<int>(std::lround(pixel_of(layout.x_axis.scale, x))),
          static_cast<int>(area.y + area.height / 2)};
}

// How much of x a pixel takes.
inline f64 units_in_a_pixel(GraphWidget* graph) {
  const AxisScale& scale = graph->layout_on_show().x_axis.scale;
  return (scale.maximum - scale.minimum) / (scale.last - scale.first);
}

// The pointer moves with its left button held.
inline void move_pointer(GraphWidget* graph, QPoint place) {
  QMouseEvent event(QEvent::MouseMove, place, graph->mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                    Qt::NoModifier);
  QApplication::sendEvent(graph, &event);
}

}  // namespace trendaro
