#include "graph/curve_spline.h"

#include <algorithm>
#include <cmath>

#include "graph/curve_strokes.h"

namespace trendaro {
namespace {

constexpr f64 kLeastDistance = 3;  // pixels
constexpr f64 kPiece = 2;          // pixels of a piece of a rounded line
constexpr f64 kMostPieces = 400;

// Where a line is at a point, and the way it goes there, by a parameter that runs along the points.
struct Knot {
  PixelPoint place, way;
  f64 parameter = 0;
};

// The slope at a knot of the parabola through it and its neighbours.
f64 slope(f64 before, f64 here, f64 after, f64 value_before, f64 value, f64 value_after) {
  const f64 left = here - before;
  const f64 right = after - here;
  if (!(left > 0)) return right > 0 ? (value_after - value) / right : 0;
  const f64 left_slope = (value - value_before) / left;
  if (!(right > 0)) return left_slope;
  return (left_slope * right + (value_after - value) / right * left) / (left + right);
}

bool goes_one_way(const std::vector<PixelPoint>& points, std::size_t first, std::size_t last) {
  bool right = true;
  bool left = true;
  for (std::size_t i = first + 1; i < last; ++i) {
    right = right && points[i].x >= points[i - 1].x;
    left = left && points[i].x <= points[i - 1].x;
  }
  return right || left;
}

std::vector<Knot> knots_of(const std::vector<PixelPoint>& points, std::size_t first, std::size_t last,
                           bool function) {
  std::vector<Knot> knots;
  for (std::size_t i = first; i < last; ++i) {
    Knot knot{points[i], {}, 0};
    if (i > first) {
      const f64 across = points[i].x - points[i - 1].x;
      // The square root keeps loops out of lines that turn back.
      knot.parameter =
          knots.back().parameter +
          (function ? std::abs(across) : std::sqrt(std::hypot(across, points[i].y - points[i - 1].y)));
    }
    knots.push_back(knot);
  }
  for (std::size_t i = 0; i < knots.size(); ++i) {
    const Knot& before = knots[i > 0 ? i - 1 : i];
    const Knot& after = knots[std::min(i + 1, knots.size() - 1)];
    Knot& knot = knots[i];
    knot.way = {
        slope(before.parameter, knot.parameter, after.parameter, before.place.x, knot.place.x, after.place.x),
        slope(before.parameter, knot.parameter, after.parameter, before.place.y, knot.place.y,
              after.place.y)};
  }
  return knots;
}

PixelPoint between(const Knot& from, const Knot& to, f64 part) {
  const f64 length = to.parameter - from.parameter;
  const f64 square = part * part;
  const f64 cube = square * part;
  const f64 weights[] = {2 * cube - 3 * square + 1, (cube - 2 * square + part) * length,
                         3 * square - 2 * cube, (cube - square) * length};
  return {
      weights[0] * from.place.x + weights[1] * from.way.x + weights[2] * to.place.x + weights[3] * to.way.x,
      weights[0] * from.place.y + weights[1] * from.way.y + weights[2] * to.place.y + weights[3] * to.way.y};
}

}  // namespace

CurveOutline smoothed(const CurveOutline& outline) {
  CurveOutline result;
  for_each_piece(outline, [&](std::size_t first, std::size_t last) {
    result.starts.push_back(result.points.size());
    const bool function = goes_one_way(outline.points, first, last);
    const std::vector<Knot> knots = knots_of(outline.points, first, last, function);
    result.points.push_back(knots[0].place);
    for (std::size_t i = 1; i < knots.size(); ++i) {
      const f64 across = std::abs(knots[i].place.x - knots[i - 1].place.x);
      const f64 distance = std::hypot(across, knots[i].place.y - knots[i - 1].place.y);
      if ((function ? across : distance) >= kLeastDistance) {
        const f64 pieces = std::min(kMostPieces, std::ceil(distance / kPiece));
        for (f64 piece = 1; piece < pieces; ++piece)
          result.points.push_back(between(knots[i - 1], knots[i], piece / pieces));
      }
      result.points.push_back(knots[i].place);
    }
  });
  return result;
}

}  // namespace trendaro
