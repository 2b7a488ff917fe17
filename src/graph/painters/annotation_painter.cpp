#include "graph/painters/annotation_painter.h"

#include <algorithm>
#include <cmath>

#include "graph/curve_strokes.h"
#include "graph/painters/graph_colors.h"
#include "graph/painters/line_style.h"
#include "graph/painters/sharp_lines.h"
#include "graph/painters/symbol_painter.h"
#include "graph/painters/title_painter.h"

namespace trendaro {
namespace {

constexpr f64 kCornerRadius = 7;
constexpr f64 kFillOpacity = 0.25;
constexpr f64 kGridShare = 0.3;

QPen pen_of(const GraphProperties& shown, const PlacedAnnotation& annotation) {
  const QColor color = graph_color(annotation.color);
  if (annotation.shape == AnnotationShape::Symbol) return QPen(color);
  if (annotation.style == kGridLineStyle)
    return line_pen(0, blended(color, graph_color(shown.GraphBackColor), kGridShare));
  return line_pen(annotation.style <= kBoldStyle ? annotation.style : 0, color);
}

QPen dashed_pen(const QPen& pen, i32 style) {
  QPen result(pen);
  QList<qreal> pattern;
  for (const f64 length : dash_pattern(style)) pattern.append(length / pen.widthF());
  if (!pattern.isEmpty()) result.setDashPattern(pattern);
  return result;
}

void paint_line(QPainter& painter, const PlacedAnnotation& annotation, const QPen& pen) {
  const QPen styled = dashed_pen(pen, annotation.style);
  if (annotation.from.y == annotation.to.y) {
    const auto [left, right] = std::minmax(annotation.from.x, annotation.to.x);
    draw_level_line(painter, left, right, annotation.from.y, pen.widthF(), styled);
  } else if (annotation.from.x == annotation.to.x) {
    const auto [top, bottom] = std::minmax(annotation.from.y, annotation.to.y);
    draw_upright_line(painter, annotation.from.x, top, bottom, pen.widthF(), styled);
  } else {
    CurveOutline line;
    line.points = {annotation.from, annotation.to};
    line.starts = {0};
    const PixelRectangle& area = annotation.clip;
    const CurveOutline inside = clipped(line, {area.x - 8, area.y - 8, area.width + 16, area.height + 16});
    painter.setPen(styled);
    if (inside.points.size() == 2)
      painter.drawLine(QPointF(inside.points[0].x, inside.points[0].y),
                       QPointF(inside.points[1].x, inside.points[1].y));
  }
}

// The frame of a shape; a corner far away is moved near, where it is out of sight as well.
QRectF frame_of(const PlacedAnnotation& annotation) {
  const PixelRectangle& area = annotation.clip;
  const auto near_x = [&](f64 x) {
    return std::clamp(x, area.x - area.width * 4, area.right() + area.width * 4);
  };
  const auto near_y = [&](f64 y) {
    return std::clamp(y, area.y - area.height * 4, area.bottom() + area.height * 4);
  };
  return QRectF(QPointF(near_x(annotation.from.x), near_y(annotation.from.y)),
                QPointF(near_x(annotation.to.x), near_y(annotation.to.y)))
      .normalized();
}

void paint_shape(QPainter& painter, const PlacedAnnotation& annotation, const QPen& pen) {
  const bool filled = annotation.style >= kFilledShape;
  QColor fill = pen.color();
  fill.setAlphaF(static_cast<float>(kFillOpacity));
  painter.setBrush(filled ? QBrush(fill) : QBrush(Qt::NoBrush));
  painter.setPen(dashed_pen(pen, filled ? 0 : annotation.style));
  const QRectF frame = frame_of(annotation);
  if (annotation.shape == AnnotationShape::Ellipse)
    painter.drawEllipse(frame);
  else if (annotation.shape == AnnotationShape::RoundedRectangle)
    painter.drawRoundedRect(frame, kCornerRadius, kCornerRadius);
  else
    painter.drawRect(DeviceGrid(painter).aligned(frame));
}

void paint_mark(QPainter& painter, const PlacedAnnotation& annotation, const QPen& pen) {
  switch (annotation.shape) {
    case AnnotationShape::None:
      break;
    case AnnotationShape::Symbol: {
      const i32 symbol = annotation.style - 1;
      const f64 size = annotation_symbol_size(annotation.style);
      paint_symbol(painter, make_symbol(symbol % kSymbolsOfASize, size),
                   {annotation.from.x, annotation.from.y}, pen.color());
      break;
    }
    case AnnotationShape::Line:
      paint_line(painter, annotation, pen);
      break;
    default:
      paint_shape(painter, annotation, pen);
  }
}

}  // namespace

void paint_annotations(QPainter& painter, const GraphProperties& shown,
                       const std::vector<PlacedAnnotation>& annotations, const GraphFonts& fonts) {
  for (const PlacedAnnotation& annotation : annotations) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    const PixelRectangle& area = annotation.clip;
    painter.setClipRect(QRectF(area.x, area.y, area.width, area.height), Qt::IntersectClip);
    paint_mark(painter, annotation, pen_of(shown, annotation));
    painter.restore();
    paint_text(painter, annotation.text, fonts);
  }
}

}  // namespace trendaro
