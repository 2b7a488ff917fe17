#include "graph/painters/line_style.h"

namespace trendaro {
namespace {

constexpr f64 kThin = 1.25;  // logical pixels

f64 line_width(i32 line_type) {
  switch (line_type) {
    case 5:
      return 2.2;
    case 6:
      return 3.6;
    case 9:
      return 1.7;
    case 10:
      return 2.8;
    case 11:
      return 5.2;
    default:
      return kThin;
  }
}

// Lengths in widths of the line.
QList<qreal> dash_pattern(i32 line_type) {
  switch (line_type) {
    case 1:
      return {6, 4};
    case 2:
      return {1.4, 2.6};
    case 3:
      return {6, 3, 1.4, 3};
    case 4:
      return {6, 3, 1.4, 3, 1.4, 3};
    default:
      return {};
  }
}

}  // namespace

QPen line_pen(i32 line_type, const QColor& color) {
  QPen pen(color, line_width(line_type), Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin);
  if (const QList<qreal> pattern = dash_pattern(line_type); !pattern.isEmpty()) pen.setDashPattern(pattern);
  if (line_type >= 5) pen.setJoinStyle(Qt::RoundJoin);
  return pen;
}

}  // namespace trendaro
