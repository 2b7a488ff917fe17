#pragma once

#include <iosfwd>

#include "app/command_line.h"

namespace trendaro {

// Prints the description of a file, and of one channel when it is named and there, as a table or as one JSON
// object. Returns the exit status.
int run_info(const InfoCommand& command, std::ostream& output, std::ostream& errors);

}  // namespace trendaro
