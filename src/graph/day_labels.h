#pragma once

#include <vector>

#include "graph/axis_ticks.h"

namespace trendaro {

// Settles the second line of a date axis: each label names its day unless the one before it has named the
// same. Where days would run into each other all but the last are shortened, "31.12." or "31.", if need be
// the last as well, "01.01.24". Of two that still have no room the later stays.
void settle_days(const TickRequest& request, const TextMeasure& measure, std::vector<Tick>& ticks);

}  // namespace trendaro
