#pragma once

#include <cstddef>
#include <span>

#include "app/types.h"
#include "graph/draw_arrays.h"
#include "graph/time_axis.h"

namespace trendaro {

struct Model;

// The samples of one curve with their x: from the values of a channel, or evenly spaced where `x` is null.
struct PlainCurve {
  std::span<const f64> y;
  const std::span<const f64>* x = nullptr;  // behind its end x is 0
  TimeLine line;

  [[nodiscard]] f64 x_at(std::size_t sample) const {
    if (x == nullptr) return line.at(sample);
    return sample < x->size() ? (*x)[sample] : 0;
  }
};

// Fills the slot of a plain plot with minima and maxima of blocks of samples, each pair in the order of time,
// or with each sample where a block would hold two at most. `factor` is the samples per half of a pair,
// `sign` 1 or -1. While Zoomed only the samples strictly inside of the window count and the axes of the
// detail graph are held on the window. A last block that does not fill up is dropped; what does not fit is
// cut off.
void CompressCurve(Model& model, const PlainCurve& samples, i32 factor, const CurveSlot& slot, i16 plot,
                   i16 sign);

}  // namespace trendaro
