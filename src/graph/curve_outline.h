#pragma once

#include <cstddef>
#include <limits>
#include <vector>

#include "app/types.h"
#include "graph/curve_samples.h"
#include "graph/graph_layout.h"
#include "graph/picture_window.h"

namespace trendaro {

// A curve as pieces of line in pixels. A piece ends where samples are missing.
struct CurveOutline {
  std::vector<PixelPoint> points;
  std::vector<std::size_t> starts;  // index of the first point of each piece, rising
};

// How closely an outline follows its curve.
struct OutlineDetail {
  f64 column_width = 1;  // of a pixel of the device, in logical pixels
  std::size_t most_per_column =
      kMostOfColumn;           // samples of a column that are all kept; of more only the extremes
  std::size_t neighbours = 1;  // samples before and behind the area
  // A column of the device in which the curve goes up and down at least this far, in pixels, is drawn as a
  // bar: the extremes are in it, in any order at any x.
  f64 bar_height = std::numeric_limits<f64>::infinity();
};

// x of the edges of the pixel columns of `area`, in the order in which a curve with rising, or falling, x
// comes to them. The first one is the end of the scale.
std::vector<f64> column_edges(const AxisScale& x_scale, const PixelRectangle& area, f64 column_width,
                              bool falling);

// What is drawn of a curve over `area`: of the samples in one pixel column the first, the lowest, the highest
// and the last, in their order, so that no extreme is lost and the work goes with the pixels; where a column
// holds few samples, all of them. The samples next to the area come along, so that lines reach its edges.
// Curves whose x goes both ways keep each piece of line that touches a pixel nothing touched before.
CurveOutline curve_outline(const CurveSamples& samples, const AxisScale& x_scale, const AxisScale& y_scale,
                           const PixelRectangle& area, const OutlineDetail& detail = {});

// Cuts an outline at the edges of `box`, at true crossings, so that what a painter gets is never far away.
CurveOutline clipped(const CurveOutline& outline, const PixelRectangle& box);

}  // namespace trendaro
