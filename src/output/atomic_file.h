#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace trendaro {

// Gives the file `path` new contents in one step: they are written to a temporary file in the same folder,
// brought to disk and renamed. False when that failed; the former file is then as it was and no temporary
// file is left.
bool replace_file(const std::string& path, std::string_view contents);

// The same for contents that come in pieces, the last of which is empty.
bool replace_file(const std::string& path, const std::function<std::string()>& next_piece);

// The same for contents that `write` puts into the file of that name, which is there and empty. It returns
// whether it succeeded.
bool replace_file_with(const std::string& path,
                       const std::function<bool(const std::string& temporary)>& write);

}  // namespace trendaro
