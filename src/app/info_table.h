#pragma once

#include <iosfwd>

#include "app/file_description.h"

namespace trendaro {

// The description for people: facts of the file, one line a channel, and the records of the chosen channel.
void print_info_table(const FileDescription& description, std::ostream& output);

}  // namespace trendaro
