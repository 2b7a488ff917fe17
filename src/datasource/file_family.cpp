#include "datasource/file_family.h"

#include <filesystem>
#include <optional>
#include <system_error>

#include "app/paths.h"
#include "datasource/file_rows.h"

namespace trendaro {
namespace {

namespace fs = std::filesystem;

bool is_file(const std::string& path) {
  std::error_code failed;
  return fs::is_regular_file(path, failed);
}

// A file in the folder of `wanted` whose name differs from it in case only.
std::optional<std::string> other_case(const std::string& wanted) {
  std::string folder;
  std::string name;
  SplitFileName(wanted, folder, name);
  std::error_code failed;
  fs::directory_iterator entries(folder.empty() ? "/" : folder, failed);
  for (; !failed && entries != fs::directory_iterator(); entries.increment(failed)) {
    const std::string found = entries->path().filename().string();
    const std::string path = wanted.substr(0, wanted.size() - name.size()) + found;
    if (equal_ignoring_case(found, name) && is_file(path)) return path;
  }
  return std::nullopt;
}

std::optional<std::string> find_member(const std::string& chosen, const std::string& member) {
  if (equal_ignoring_case(chosen, member) && is_file(chosen)) return chosen;
  if (is_file(member)) return member;
  return other_case(member);
}

}  // namespace

std::vector<std::string> files_to_add(const std::string& path) {
  if (!is_reduced_pair_name(path)) return {path};
  const std::string base = split_at_dots(path).front();
  std::vector<std::string> members;
  for (const char* extension : {".STO", ".ST1", ".ST2"})
    if (auto member = find_member(path, base + extension)) members.push_back(*std::move(member));
  return members;
}

}  // namespace trendaro
