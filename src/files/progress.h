#pragma once

#include <functional>

#include "app/types.h"

namespace trendaro {

// Told how much of a long work is done, 0 to 1.
using Progress = std::function<void(f64 fraction)>;

// For work that nobody watches.
inline void untold(f64) {}

// Passes each whole percent on once: a display that is drawn at once would be the slowest part of the work.
// `progress` must outlive what is returned.
Progress percent_steps(const Progress& progress);

}  // namespace trendaro
