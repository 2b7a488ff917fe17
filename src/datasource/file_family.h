#pragma once

#include <string>
#include <vector>

namespace trendaro {

// The files to add for a chosen path: the path alone, or for a member of a reduced recording all members that
// exist, in the order STO, ST1, ST2. Extensions are found in any case; the chosen file goes ahead of one that
// differs in case only.
std::vector<std::string> files_to_add(const std::string& path);

}  // namespace trendaro
