#pragma once

#include "app/command_line.h"

namespace trendaro {

// Runs the program with its main window until that is closed. Returns the exit status. With the environment
// variable TRENDARO_PICTURE the window is drawn into the file of that name, and the program ends.
int run_window(const OpenWindow& call, int argument_count, char** arguments);

}  // namespace trendaro
