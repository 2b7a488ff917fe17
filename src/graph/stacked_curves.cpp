#include "graph/stacked_curves.h"

#include <algorithm>

#include "graph/curve_strokes.h"

namespace trendaro {
namespace {

// A curve with x rising, in pieces.
CurveOutline rising(const CurveOutline& curve) {
  if (curve.points.size() < 2 || curve.points.front().x <= curve.points.back().x) return curve;
  CurveOutline turned;
  turned.points.assign(curve.points.rbegin(), curve.points.rend());
  for_each_piece(curve,
                 [&](std::size_t, std::size_t last) { turned.starts.push_back(curve.points.size() - last); });
  std::reverse(turned.starts.begin(), turned.starts.end());
  return turned;
}

std::vector<f64> all_places(const std::vector<CurveOutline>& curves) {
  std::vector<f64> places;
  for (const CurveOutline& curve : curves)
    for (const PixelPoint& point : curve.points) places.push_back(point.x);
  std::sort(places.begin(), places.end());
  places.erase(std::unique(places.begin(), places.end()), places.end());
  return places;
}

// Adds the values of one curve at rising places to what stands there.
void add_values(const CurveOutline& curve, const std::vector<f64>& places, std::vector<f64>& sums) {
  std::size_t next = 0;
  for_each_piece(curve, [&](std::size_t first, std::size_t last) {
    while (next < places.size() && places[next] < curve.points[first].x) ++next;
    std::size_t segment = first;
    for (; next < places.size() && places[next] <= curve.points[last - 1].x; ++next) {
      while (segment + 1 < last && curve.points[segment + 1].x < places[next]) ++segment;
      const PixelPoint& from = curve.points[segment];
      const PixelPoint& to = curve.points[std::min(segment + 1, last - 1)];
      const f64 width = to.x - from.x;
      const f64 part = width > 0 ? std::clamp((places[next] - from.x) / width, 0.0, 1.0) : 1;
      sums[next] += from.y + (to.y - from.y) * part;
    }
  });
}

}  // namespace

std::vector<StackedBand> stack_curves(const std::vector<CurveOutline>& curves) {
  const std::vector<f64> places = all_places(curves);
  std::vector<StackedBand> bands;
  std::vector<f64> sums(places.size(), 0);
  for (const CurveOutline& curve : curves) {
    StackedBand band{places, sums, {}};
    add_values(rising(curve), places, sums);
    band.high = sums;
    bands.push_back(std::move(band));
  }
  return bands;
}

}  // namespace trendaro
