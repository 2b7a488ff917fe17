#include "graph/painters/legend_painter.h"

#include <algorithm>
#include <cmath>

#include "graph/painters/curve_painter.h"
#include "graph/painters/graph_colors.h"
#include "graph/painters/line_style.h"
#include "graph/painters/sharp_lines.h"
#include "graph/painters/symbol_painter.h"
#include "graph/painters/title_painter.h"
#include "graph/shape_sizes.h"

namespace trendaro {
namespace {

constexpr f64 kLeastSampleWidth = 2;  // a hairline carries too little colour to be told from others
constexpr f64 kBackOpacity = 0.85;

i32 method_of(const GraphLayout& layout, std::size_t subset) {
  return subset < layout.curves.size() ? layout.curves[subset].method : kMethodLine;
}

bool is_filled(MethodBody body) {
  return body == MethodBody::Bars || body == MethodBody::Area || body == MethodBody::Stack ||
         body == MethodBody::Ribbon || body == MethodBody::ContourAreas || body == MethodBody::Bubbles;
}

void paint_sample(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout,
                  const LegendEntry& entry) {
  const QColor color = curve_color(shown, entry.subset);
  const MethodParts parts = method_parts(method_of(layout, entry.subset));
  const DeviceGrid grid(painter);
  const PixelRectangle& box = entry.sample;
  const f64 middle = grid.edge_y(box.y + box.height / 2) + 0.5 / grid.ratio();
  painter.setRenderHint(QPainter::Antialiasing, true);
  if (is_filled(parts.body)) {
    const f64 height = std::round(box.height * 0.55);
    painter.fillRect(grid.aligned(QRectF(box.x, box.y + (box.height - height) / 2, box.width, height)),
                     color);
    return;
  }
  if (parts.body != MethodBody::None || parts.overlay != MethodOverlay::None) {
    const i32 line_type = line_type_of(shown, entry.subset);
    QPen pen = line_pen(line_type, color);
    pen.setWidthF(std::max(pen.widthF(), kLeastSampleWidth));
    QList<qreal> pattern;
    for (const f64 length : dash_pattern(line_type)) pattern.append(length / pen.widthF());
    if (!pattern.isEmpty()) pen.setDashPattern(pattern);
    painter.setPen(pen);
    painter.drawLine(QPointF(box.x, middle), QPointF(box.right(), middle));
  }
  if (parts.symbols)
    paint_symbol(painter, make_symbol(point_type_of(shown, entry.subset), symbol_size(shown.DataPointSize)),
                 QPointF(box.x + box.width / 2, middle), color);
}

}  // namespace

void paint_legend(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout,
                  const GraphFonts& fonts) {
  QColor back = graph_color(shown.GraphBackColor);
  back.setAlphaF(static_cast<float>(kBackOpacity));
  for (const PixelRectangle& box : layout.legend_backs)
    painter.fillRect(QRectF(box.x, box.y, box.width, box.height), back);
  for (const LegendEntry& entry : layout.legend) {
    paint_sample(painter, shown, layout, entry);
    paint_text(painter, entry.name, fonts);
  }
  for (const PlacedText& note : layout.legend_notes) paint_text(painter, note, fonts);
}

}  // namespace trendaro
