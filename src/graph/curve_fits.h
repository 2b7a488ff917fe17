#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "app/types.h"

namespace trendaro {

struct CurveIndex;
struct GraphProperties;

// A polynomial in t = (x - centre) / half_width, which runs from -1 to 1 over the curve.
struct Polynomial {
  f64 centre = 0, half_width = 1;
  std::array<f64, 4> coefficients{};  // of 1, t, t², t³

  [[nodiscard]] f64 at(f64 x) const {
    const f64 t = (x - centre) / half_width;
    return coefficients[0] + t * (coefficients[1] + t * (coefficients[2] + t * coefficients[3]));
  }
};

// What comes nearest to all points of a curve by the sum of squared distances in y: a straight line, and a
// curve of the third degree; of a lower one where the points have fewer places in x.
struct CurveFit {
  Polynomial line, curve;
};

struct CurveFits {
  std::shared_ptr<const CurveIndex> made_of;    // the data that the fits belong to
  std::vector<std::optional<CurveFit>> curves;  // index from 0; empty for curves that draw none
};

// The fits that the methods of `properties` ask for, over their data. `former` comes back when it has them
// all already; null where no method draws a fit.
std::shared_ptr<const CurveFits> curve_fits(const GraphProperties& properties,
                                            const std::shared_ptr<const CurveFits>& former);

}  // namespace trendaro
