#pragma once

#include <span>

#include "app/types.h"

namespace trendaro {

// Minimum and maximum of a run of samples, in the order in which the run reached them: the one that occurs
// first for the first time stands first. A run of equal values gives its first value twice.
struct ValuePair {
  f64 first = 0;
  f64 second = 0;
};

// The pair of a run of at least one value. Of values that compare equal (both zeros) the earliest counts with
// its sign. A value that is not a number is passed over, but as the first value it is the whole pair.
ValuePair find_pair(std::span<const f64> run);

// The same pair from one comparison after the other; what find_pair falls back to where the processor offers
// nothing better.
ValuePair find_pair_plainly(std::span<const f64> run);

}  // namespace trendaro
