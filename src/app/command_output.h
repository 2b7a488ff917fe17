#pragma once

#include <iosfwd>
#include <string>

#include "files/load_status.h"

namespace trendaro {

// Makes writing to a closed pipe, or beyond the longest file that the system allows, an error of the stream
// or file; without this call it ends the process.
void ignore_output_signals();

// Sees to it that all output arrives. The exit status: 0, or 1 with the reason on `errors`.
int finish_output(std::ostream& output, std::ostream& errors);

// Why a load failed, in the words that the window uses. Empty for a status whose message the load itself
// shows.
std::string load_failure_text(LoadStatus status);

}  // namespace trendaro
