#pragma once

#include <ostream>

#include "app/command_line.h"

namespace trendaro {

// Runs "section": writes a stretch of a recording into a file of its own. Gives the exit status of the
// program; whatever fails says why on `errors`, which also shows the progress when it is a terminal.
int run_section(const SectionCommand& command, std::ostream& errors, bool errors_is_terminal);

}  // namespace trendaro
