#pragma once

#include "graph/curve_outline.h"

namespace trendaro {

// The outline of a curve whose x goes both ways: each piece of line that touches a pixel of the area which
// nothing touched before. Up to kMostSamplesWalked samples are looked at one by one. Of longer curves as many
// are, evenly spread, and beyond them those whose block reaches to where nothing was drawn within a few
// pixels, so that no excursion is lost and the work goes with the picture.
CurveOutline wandering_outline(const CurveSamples& samples, const AxisScale& x_scale,
                               const AxisScale& y_scale, const PixelRectangle& area);

inline constexpr std::size_t kMostSamplesWalked = 1'500'000;

}  // namespace trendaro
