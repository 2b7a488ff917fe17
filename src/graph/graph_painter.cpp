#include "graph/graph_painter.h"

#include <utility>

#include "graph/painters/annotation_painter.h"
#include "graph/painters/axis_painter.h"
#include "graph/painters/curve_painter.h"
#include "graph/painters/graph_colors.h"
#include "graph/painters/grid_painter.h"
#include "graph/painters/legend_painter.h"
#include "graph/painters/table_painter.h"
#include "graph/painters/title_painter.h"

namespace trendaro {

GraphSheet::GraphSheet(const GraphProperties& properties, QSizeF size)
    : shown(properties),
      fonts(properties),
      layout(graph_layout(properties, size.width(), size.height(), fonts)) {}

GraphSheet::GraphSheet(const GraphProperties& properties, GraphLayout ready)
    : shown(properties), fonts(properties), layout(std::move(ready)) {}

void paint_graph_base(QPainter& painter, const GraphSheet& sheet) {
  const auto& [shown, fonts, layout] = sheet;
  painter.save();
  painter.fillRect(QRectF(0, 0, layout.width, layout.height), graph_color(shown.DeskColor));
  paint_backgrounds(painter, shown, layout);
  paint_grid(painter, shown, layout);
  paint_curves(painter, shown, layout);
  paint_axes(painter, shown, layout, fonts);
  paint_titles(painter, layout, fonts);
  paint_legend(painter, shown, layout, fonts);
  painter.restore();
}

void paint_graph_overlay(QPainter& painter, const GraphSheet& sheet) {
  const auto& [shown, fonts, layout] = sheet;
  painter.save();
  paint_annotations(painter, shown, place_annotations(shown, layout, fonts), fonts);
  paint_tables(painter, place_tables(shown, layout, fonts), fonts);
  painter.restore();
}

void paint_graph(QPainter& painter, const GraphProperties& shown, QSizeF size) {
  if (size.width() < 1 || size.height() < 1) return;
  const GraphSheet sheet(shown, size);
  paint_graph_base(painter, sheet);
  paint_graph_overlay(painter, sheet);
}

}  // namespace trendaro
