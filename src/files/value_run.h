#pragma once

#include <functional>
#include <span>

#include "app/types.h"

namespace trendaro {

// Takes the next values of a channel, in their order; they last for the call.
using TakeValues = std::function<void(std::span<const f64> run)>;

}  // namespace trendaro
