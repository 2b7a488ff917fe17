#include "graph/graph_painter.h"

#include "graph/graph_layout.h"
#include "graph/painters/axis_painter.h"
#include "graph/painters/curve_painter.h"
#include "graph/painters/graph_colors.h"
#include "graph/painters/graph_fonts.h"
#include "graph/painters/grid_painter.h"
#include "graph/painters/legend_painter.h"
#include "graph/painters/title_painter.h"

namespace trendaro {

void paint_graph(QPainter& painter, const GraphProperties& shown, QSizeF size) {
  if (size.width() < 1 || size.height() < 1) return;
  const GraphFonts fonts(shown);
  const GraphLayout layout = graph_layout(shown, size.width(), size.height(), fonts);
  painter.save();
  painter.fillRect(QRectF(QPointF(), size), graph_color(shown.DeskColor));
  paint_backgrounds(painter, shown, layout);
  paint_grid(painter, shown, layout);
  paint_curves(painter, shown, layout);
  paint_axes(painter, shown, layout, fonts);
  paint_titles(painter, layout, fonts);
  paint_legend(painter, shown, layout, fonts);
  painter.restore();
}

}  // namespace trendaro
