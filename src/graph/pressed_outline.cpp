#include "graph/pressed_outline.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "graph/curve_strokes.h"

namespace trendaro {
namespace {

PixelPoint pressed(const PixelRectangle& box, const PixelPoint& point) {
  return {std::clamp(point.x, box.x, box.right()), std::clamp(point.y, box.y, box.bottom())};
}

// Parts of the way at which a line crosses the edges or what lies in line with them, in their order.
struct Crossings {
  std::array<f64, 4> parts = {2, 2, 2, 2};  // behind the way's end where there are fewer
  std::size_t count = 0;

  void add(f64 from, f64 to, f64 edge) {
    if ((from < edge && edge < to) || (to < edge && edge < from))
      parts[count++] = (edge - from) / (to - from);
  }
};

Crossings crossings(const PixelRectangle& box, const PixelPoint& from, const PixelPoint& to) {
  Crossings found;
  found.add(from.x, to.x, box.x);
  found.add(from.x, to.x, box.right());
  found.add(from.y, to.y, box.y);
  found.add(from.y, to.y, box.bottom());
  std::ranges::sort(found.parts);
  return found;
}

}  // namespace

CurveOutline pressed_into(const PixelRectangle& box, const CurveOutline& outline) {
  CurveOutline inside;
  for_each_piece(outline, [&](std::size_t first, std::size_t last) {
    inside.starts.push_back(inside.points.size());
    for (std::size_t i = first; i < last; ++i) {
      const PixelPoint& to = outline.points[i];
      if (i > first) {
        const PixelPoint& from = outline.points[i - 1];
        const Crossings found = crossings(box, from, to);
        for (std::size_t j = 0; j < found.count; ++j)
          inside.points.push_back(pressed(
              box, {std::lerp(from.x, to.x, found.parts[j]), std::lerp(from.y, to.y, found.parts[j])}));
      }
      inside.points.push_back(pressed(box, to));
    }
  });
  return inside;
}

}  // namespace trendaro
