#pragma once

#include <cstddef>
#include <optional>

#include "graph/graph_layout.h"

namespace trendaro {

// A drawn sample of a curve and how far it lies from a place.
struct NearSample {
  std::size_t subset = 0, point = 0;  // from 0
  PixelPoint place;
  f64 distance = 0;  // pixels
};

enum class Nearness : u8 {
  InBothDirections,
  AlongX,  // only the distance along the x axis counts
};

// The sample of a curve nearest to `place`, no further than `reach` pixels. A sample within half a pixel is
// near enough to end the search, so that its work does not grow with the length of the curve.
std::optional<NearSample> nearest_sample(const GraphProperties& shown, const GraphLayout& layout,
                                         const CurvePlace& curve, PixelPoint place, f64 reach,
                                         Nearness nearness = Nearness::InBothDirections);

// The nearest sample of all curves in the layer at `place`, no further than `reach` pixels.
std::optional<NearSample> nearest_sample_in_layer(const GraphProperties& shown, const GraphLayout& layout,
                                                  PixelPoint place, f64 reach);

// The next drawn sample behind or ahead of `point`; gaps are passed over. Nothing at the end of the curve.
std::optional<std::size_t> next_sample(const GraphProperties& shown, std::size_t subset, std::size_t point,
                                       bool forward);

// The pixel of a drawn sample; nothing for one that is not drawn or does not exist.
std::optional<PixelPoint> place_of_sample(const GraphProperties& shown, const GraphLayout& layout,
                                          const CurvePlace& curve, std::size_t point);

}  // namespace trendaro
