#include "graph/painters/annotation_painter.h"

#include <algorithm>
#include <cmath>

#include "graph/line_clip.h"
#include "graph/painters/cut_shapes.h"
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
constexpr f64 kMargin = 8;  // pixels beyond the area, in which no cut shows

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

// For devices without a clip.
void paint_line_inside(QPainter& painter, const PixelRectangle& area, PixelPoint from, PixelPoint to,
                       QPen pen) {
  const DeviceGrid grid(painter);
  if (from.x == to.x || from.y == to.y) pen.setWidthF(grid.line_width(pen.widthF()));
  const f64 half = pen.widthF() / 2;
  if (from.y == to.y) from.y = to.y = grid.edge_y(from.y - half) + half;
  if (from.x == to.x) from.x = to.x = grid.edge_x(from.x - half) + half;
  QPainterPath path({from.x, from.y});
  path.lineTo(to.x, to.y);
  painter.setPen(pen);
  draw_path_inside(painter, area, path);
}

void paint_line(QPainter& painter, const PlacedAnnotation& annotation, const QPen& pen) {
  const QPen styled = dashed_pen(pen, annotation.style);
  PixelPoint from = annotation.from;
  PixelPoint to = annotation.to;
  if (!clip_line(grown(annotation.clip, kMargin), from, to)) return;
  if (!cuts_at_clip(painter)) {
    paint_line_inside(painter, annotation.clip, from, to, styled);
  } else if (from.y == to.y) {
    const auto [left, right] = std::minmax(from.x, to.x);
    draw_level_line(painter, left, right, from.y, pen.widthF(), styled);
  } else if (from.x == to.x) {
    const auto [top, bottom] = std::minmax(from.y, to.y);
    draw_upright_line(painter, from.x, top, bottom, pen.widthF(), styled);
  } else {
    painter.setPen(styled);
    painter.drawLine(QPointF(from.x, from.y), QPointF(to.x, to.y));
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
  QPainterPath path;
  if (annotation.shape == AnnotationShape::Ellipse)
    path.addEllipse(frame);
  else if (annotation.shape == AnnotationShape::RoundedRectangle)
    path.addRoundedRect(frame, kCornerRadius, kCornerRadius);
  else
    path.addRect(DeviceGrid(painter).aligned(frame));
  draw_path_inside(painter, annotation.clip, path);
}

void paint_mark(QPainter& painter, const PlacedAnnotation& annotation, const QPen& pen) {
  switch (annotation.shape) {
    case AnnotationShape::None:
      break;
    case AnnotationShape::Symbol: {
      const i32 symbol = annotation.style - 1;
      const f64 size = annotation_symbol_size(annotation.style);
      draw_symbol_inside(painter, annotation.clip, make_symbol(symbol % kSymbolsOfASize, size),
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
