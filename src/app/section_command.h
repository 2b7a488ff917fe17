#pragma once

#include <ostream>

#include "app/command_line.h"

namespace trendaro {

// Runs "section": writes a stretch of a recording into a file of its own. Gives the exit status of the
// program; whatever fails says why on `err`.
int run_section(const SectionCommand& command, std::ostream& err);

}  // namespace trendaro
