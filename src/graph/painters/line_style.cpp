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

}  // namespace

QPen line_pen(i32 line_type, const QColor& color) {
  const f64 width = line_width(line_type);
  return QPen(color, width, Qt::SolidLine, Qt::FlatCap, width > kThin ? Qt::RoundJoin : Qt::BevelJoin);
}

std::vector<f64> dash_pattern(i32 line_type) {
  switch (line_type) {
    case 1:
      return {7, 5};
    case 2:
      return {1.75, 3.25};
    case 3:
      return {8, 4, 1.75, 4};
    case 4:
      return {8, 4, 1.75, 4, 1.75, 4};
    default:
      return {};
  }
}

}  // namespace trendaro
