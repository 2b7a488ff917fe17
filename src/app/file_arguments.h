#pragma once

#include "app/command_line.h"

namespace trendaro {

struct Model;

// Adds a file that was named at the start to the channel list and marks the channels that were named with it,
// as clicks on their check cells would. A channel that the file does not have marks nothing.
void open_file_argument(Model& model, const FileArgument& argument);

// Puts marks on the channels of a file whose rows are in the list from `first_row` on, and no more: the plot
// list and the graphs do not follow.
void put_marks(Model& model, const FileArgument& argument, i32 first_row);

}  // namespace trendaro
