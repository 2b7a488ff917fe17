#pragma once

#include "app/command_line.h"

namespace trendaro {

// Runs the program as the automation server: WrapperClass on the session bus, no window until its Run. It
// ends when the window has been unloaded and no other process holds WrapperClass any more. Returns the exit
// status.
int run_automation(const OpenWindow& call, int argument_count, char** arguments);

}  // namespace trendaro
