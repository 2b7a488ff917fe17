#pragma once

#include <cstddef>
#include <functional>
#include <span>

#include "app/types.h"

namespace trendaro {

// Takes the next values of a channel, in their order; they last for the call.
using TakeValues = std::function<void(std::span<const f64> run)>;

// Takes the next values of one of several channels: `place` is the channel's in the list that was asked for,
// from 0, `first` the index of the first value.
using TakeColumn = std::function<void(std::size_t place, i64 first, std::span<const f64> run)>;

}  // namespace trendaro
