#include "datasource/file_family.h"

#include <optional>

#include "app/paths.h"
#include "datasource/file_rows.h"
#include "files/any_case_file.h"

namespace trendaro {
namespace {

std::optional<std::string> find_member(const std::string& chosen, const std::string& member) {
  if (equal_ignoring_case(chosen, member) && is_file(chosen)) return chosen;
  return find_in_any_case(member);
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
