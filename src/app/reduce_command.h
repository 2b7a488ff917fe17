#pragma once

#include <iosfwd>

#include "app/command_line.h"

namespace trendaro {

// Reduces a file. Refuses a target that exists, unless forced, and one that is the source. Failures go to
// `errors`, and the progress too when `errors_is_terminal`. Returns the exit status.
int run_reduce(const ReduceCommand& command, std::ostream& errors, bool errors_is_terminal);

}  // namespace trendaro
