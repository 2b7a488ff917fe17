#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "app/types.h"
#include "graph/draw_arrays.h"
#include "graph/sample_index.h"
#include "graph/time_axis.h"

namespace trendaro {

struct Model;

// The samples of one curve with their x: from the values of a channel, or evenly spaced where `x` is null.
struct PlainCurve {
  std::span<const f64> y;
  const std::span<const f64>* x = nullptr;  // behind its end x is 0
  TimeLine line;
  const SampleIndex* index = nullptr;  // that of y, where there is one

  [[nodiscard]] f64 x_at(std::size_t sample) const {
    if (x == nullptr) return line.at(sample);
    return sample < x->size() ? (*x)[sample] : 0;
  }
};

// Points that CompressCurve writes for these samples, where the slot has room for them. In a zoom they can be
// a quarter more than in the view of the whole curve, as blocks hold whole samples.
std::size_t compressed_points(const Model& model, const PlainCurve& samples, i32 factor);

// Fills the slot of a plain plot with minima and maxima of blocks of samples, each pair in the order of time,
// or with each sample where a block would hold two at most. `factor` is the samples per half of a pair,
// `sign` 1 or -1. While Zoomed only the samples strictly inside of the window count and the axes of the
// detail graph are held on the window. A last block that does not fill up is dropped; what does not fit is
// cut off.
void CompressCurve(Model& model, const PlainCurve& samples, i32 factor, const CurveSlot& slot, i16 plot,
                   i16 sign);

// Points of a compressed curve whose samples come run by run, without being kept: those that CompressCurve
// would write for the whole curve.
class PairStream {
 public:
  struct Point {
    std::size_t sample;  // index of a sample
    f64 y;
  };

  // `factor` as above, at least 2; samples behind the first `count` and points beyond `most_points` are
  // passed over.
  PairStream(i32 factor, std::size_t count, std::size_t most_points);

  void add(std::span<const f64> run);
  [[nodiscard]] const std::vector<Point>& points() const { return points_; }

 private:
  void close_block();

  std::size_t pair_block_, count_, most_points_;
  std::size_t next_ = 0;  // index of the next sample
  std::size_t open_ = 0;  // samples in the open block
  SampleExtremes extremes_;
  std::vector<Point> points_;
};

// Fills the slot of a plain plot with the points of a stream, over evenly spaced x.
void write_pair_points(Model& model, const PairStream& stream, const TimeLine& line, const CurveSlot& slot,
                       i16 plot, i16 sign);

}  // namespace trendaro
