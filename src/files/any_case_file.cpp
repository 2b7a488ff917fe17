#include "files/any_case_file.h"

#include <filesystem>
#include <system_error>

#include "app/paths.h"

namespace trendaro {

namespace fs = std::filesystem;

bool is_file(const std::string& path) {
  std::error_code failed;
  return fs::is_regular_file(path, failed);
}

std::optional<std::string> find_in_any_case(const std::string& wanted) {
  if (is_file(wanted)) return wanted;
  std::string ignored;
  std::string name;
  SplitFileName(wanted, ignored, name);
  const std::string folder = wanted.substr(0, wanted.size() - name.size());  // with its separator
  std::error_code failed;
  fs::directory_iterator entries(folder.empty() ? "." : folder, failed);
  for (; !failed && entries != fs::directory_iterator(); entries.increment(failed)) {
    const std::string found = entries->path().filename().string();
    const std::string path = folder + found;
    if (equal_ignoring_case(found, name) && is_file(path)) return path;
  }
  return std::nullopt;
}

}  // namespace trendaro
