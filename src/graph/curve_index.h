#pragma once

#include <cstddef>
#include <limits>
#include <memory>
#include <vector>

#include "app/types.h"
#include "graph/range_levels.h"

namespace trendaro {

struct GraphProperties;

// Extremes of a run of points. A point counts when neither of its coordinates is the null value, NaN or
// infinite; the others are gaps. Without a point that counts, low is above high.
struct PointExtent {
  f64 x_low = std::numeric_limits<f64>::infinity();
  f64 x_high = -std::numeric_limits<f64>::infinity();
  f32 y_low = std::numeric_limits<f32>::infinity();
  f32 y_high = -std::numeric_limits<f32>::infinity();

  [[nodiscard]] bool empty() const { return x_low > x_high; }
  // Widens this extent to hold `other` as well.
  void add(const PointExtent& other);

  friend bool operator==(const PointExtent&, const PointExtent&) = default;
};

struct CurveExtents {
  // Of the points of the slot that count.
  RangeLevels<f32> y_levels;
  RangeLevels<f64> x_levels;  // only where x goes both ways
  PointExtent whole;
  // Index behind the last point that counts; 0 for an empty curve. The rest of the slot is gap.
  std::size_t used = 0;
  bool gapless = true;  // every point before `used` counts
  // x never falls, or never rises, from one point that counts to the next, so that a place in x can be found
  // without looking at all of them. Both hold where x stands still.
  bool x_rises = true;
  bool x_falls = true;

  // Of one entry of a level, where x goes both ways.
  [[nodiscard]] PointExtent extent_of_entry(std::size_t level, std::size_t entry) const {
    const ValueRange<f64> x = x_levels[level].at(entry);
    const ValueRange<f32> y = y_levels[level].at(entry);
    return {x.low, x.high, y.low, y.high};
  }
};

// Minima and maxima of the curves that a graph holds, at several levels. Built once for a hand-over; scaling
// and painting read it instead of the samples.
struct CurveIndex {
  std::vector<CurveExtents> curves;  // index from 0
  std::size_t points = 0;            // slot length of each curve
};

// Builds the index over the data in `properties`, leaving their null values out. Curves for which x or y is
// too short are left out at the end.
std::shared_ptr<const CurveIndex> build_curve_index(const GraphProperties& properties);

// x and y of point `point` of curve `curve`, both from 0; the place must exist in the data.
f64 point_x(const GraphProperties& properties, std::size_t curve, std::size_t point);
f32 point_y(const GraphProperties& properties, std::size_t curve, std::size_t point);

// Whether a point is drawn: neither coordinate null, NaN or infinite.
bool point_counts(const GraphProperties& properties, f64 x, f32 y);

}  // namespace trendaro
