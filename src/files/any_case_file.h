#pragma once

#include <optional>
#include <string>

namespace trendaro {

// True when `path` names a regular file.
bool is_file(const std::string& path);

// The file of this name, or one in the same folder whose name differs in case only; nothing when there is
// none.
std::optional<std::string> find_in_any_case(const std::string& wanted);

}  // namespace trendaro
