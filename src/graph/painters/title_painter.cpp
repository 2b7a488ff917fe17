#include "graph/painters/title_painter.h"

#include <algorithm>
#include <cmath>

#include "graph/painters/graph_colors.h"
#include "graph/painters/sharp_lines.h"

namespace trendaro {
namespace {

// Where a text begins in a box of a width.
f64 start_in(TextAlignment alignment, f64 box_width, f64 text_width) {
  if (alignment == TextAlignment::Left) return 0;
  const f64 rest = box_width - text_width;
  return alignment == TextAlignment::Right ? rest : rest / 2;
}

}  // namespace

void paint_text(QPainter& painter, const PlacedText& text, const GraphFonts& fonts) {
  if (text.text.empty()) return;
  const DeviceGrid grid(painter);
  const f64 width = fonts.width(text.role, text.text);
  const QFontMetricsF metrics(fonts.font(text.role));
  const QString words = QString::fromUtf8(text.text.data(), static_cast<qsizetype>(text.text.size()));
  painter.setFont(fonts.font(text.role));
  painter.setPen(graph_color(text.color));
  const PixelRectangle& box = text.box;
  if (!text.turned) {
    const f64 x = grid.edge_x(box.x + start_in(text.alignment, box.width, width));
    const f64 y = grid.edge_y(box.y + (box.height - metrics.height()) / 2 + metrics.ascent());
    painter.drawText(QPointF(x, y), words);
    return;
  }
  painter.save();
  const f64 baseline = grid.edge_x(box.x + (box.width - metrics.height()) / 2 + metrics.ascent());
  const f64 start = grid.edge_y(box.bottom() - start_in(text.alignment, box.height, width));
  painter.translate(baseline, start);
  painter.rotate(-90);
  painter.drawText(QPointF(0, 0), words);
  painter.restore();
}

void paint_titles(QPainter& painter, const GraphLayout& layout, const GraphFonts& fonts) {
  for (const PlacedText& title : layout.titles) paint_text(painter, title, fonts);
}

}  // namespace trendaro
