#pragma once

#include <iosfwd>

#include "app/command_line.h"

namespace trendaro {

// Reduces a file. Refuses a target that exists, unless forced, and one that is the source. Failures go to
// `errors`, and the progress too when standard error is a terminal. Returns the exit status.
int run_reduce(const ReduceCommand& command, std::ostream& errors);

}  // namespace trendaro
