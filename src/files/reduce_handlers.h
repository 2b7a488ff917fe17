#pragma once

#include <string>

namespace trendaro {

struct Model;

// Asks for block size and source, reduces the file and tells the outcome. The status goes to
// LastDatabaseStatus, the block size to FileReduceBlock, where it is the default of the next reduction.
void mnuReduceBin(Model& model);

// The name of the reduced file beside a source: the file name up to its first "." and "REB" behind that.
std::string reduced_file_name(const std::string& source);

}  // namespace trendaro
