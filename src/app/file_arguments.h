#pragma once

#include "app/command_line.h"

namespace trendaro {

struct Model;

// Adds a file that was named at the start to the channel list and marks the channels that were named with it,
// as clicks on their check cells would. A channel that the file does not have marks nothing.
void open_file_argument(Model& model, const FileArgument& argument);

}  // namespace trendaro
