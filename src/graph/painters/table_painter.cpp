#include "graph/painters/table_painter.h"

#include "graph/painters/graph_colors.h"
#include "graph/painters/sharp_lines.h"
#include "graph/painters/title_painter.h"

namespace trendaro {
namespace {

constexpr f64 kBackOpacity = 0.9;
constexpr f64 kFrameShare = 0.35;

void paint_frame(QPainter& painter, const PixelRectangle& box, const QPen& pen) {
  draw_level_line(painter, box.x, box.right(), box.y, 1, pen);
  draw_level_line(painter, box.x, box.right(), box.bottom(), 1, pen);
  draw_upright_line(painter, box.x, box.y, box.bottom(), 1, pen);
  draw_upright_line(painter, box.right(), box.y, box.bottom(), 1, pen);
}

// A cell that could not be read on the table in its colour is painted in a stronger shade of it.
void paint_cell(QPainter& painter, PlacedText cell, const QColor& back, const GraphFonts& fonts) {
  cell.color = color_number(readable_on(graph_color(cell.color), back));
  paint_text(painter, cell, fonts);
}

}  // namespace

void paint_tables(QPainter& painter, const std::vector<PlacedTable>& tables, const GraphFonts& fonts) {
  for (const PlacedTable& table : tables) {
    const QColor solid = graph_color(table.background);
    QColor back = solid;
    back.setAlphaF(static_cast<float>(kBackOpacity));
    const PixelRectangle& box = table.box;
    painter.fillRect(DeviceGrid(painter).aligned(QRectF(box.x, box.y, box.width, box.height)), back);
    if (table.framed) paint_frame(painter, box, QPen(blended(graph_color(table.border), solid, kFrameShare)));
    for (const PlacedText& cell : table.cells) paint_cell(painter, cell, solid, fonts);
  }
}

}  // namespace trendaro
