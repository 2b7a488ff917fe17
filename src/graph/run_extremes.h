#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>

#include "graph/curve_samples.h"

namespace trendaro {

// What stands for a run of samples.
struct RunExtremes {
  std::size_t first = 0, last = 0;  // indices of samples that are drawn
  ValueRange<f32> y;
  bool has_places = false;
  std::size_t lowest = 0, highest = 0;  // of the first samples with these y, where it has places
};

// The extremes of the samples `first` to `last` - 1. False where none is drawn. Takes time that grows with
// the logarithm of the curve.
bool find_extremes(const CurveSamples& samples, std::size_t first, std::size_t last, RunExtremes& found);

// What a walk over runs asks for and gives.
struct RunWalk {
  // Whether the places of the extremes are wanted besides their y. They lie anywhere in the run, so that
  // finding them waits for far memory.
  std::function<bool(const RunExtremes& run)> wants_places;
  // Gets the run between stops[run] and stops[run + 1], in their order; nothing where no sample is drawn.
  std::function<void(std::size_t run, const std::optional<RunExtremes>& found)> use;
};

// The same of each run between neighbouring `stops`, none of which is empty. Quick where the runs are long,
// since many of them wait for memory at the same time; what `use` reads of their samples is near.
void walk_runs(const CurveSamples& samples, std::span<const std::size_t> stops, const RunWalk& walk);

// What the drawn samples from `first` to `last` - 1 extend over, in the same time.
PointExtent extent_of_run(const CurveSamples& samples, std::size_t first, std::size_t last);

}  // namespace trendaro
