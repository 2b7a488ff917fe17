#pragma once

#include <iosfwd>

#include "app/command_line.h"

namespace trendaro {

// Prints the values of a channel, one to a line in the shortest form that reads back to the same number, or
// as little-endian f64. A load that fails on the way still prints what was read. Returns the exit status.
int run_values(const ValuesCommand& command, std::ostream& output, std::ostream& errors);

}  // namespace trendaro
