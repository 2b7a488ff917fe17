#pragma once

#include <iosfwd>

#include "app/command_line.h"

namespace trendaro {

// Draws the detail graph of the files into a picture file; without a window and without a display. The look
// is that of a fresh program. Returns the exit status; what failed is said on `errors`.
int run_render(const RenderCommand& command, std::ostream& errors);

}  // namespace trendaro
