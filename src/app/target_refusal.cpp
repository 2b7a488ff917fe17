#include "app/target_refusal.h"

#include <filesystem>
#include <system_error>

namespace trendaro {

std::string target_refusal(const std::string& source, const std::string& target, bool force) {
  std::error_code ignored;
  if (std::filesystem::equivalent(source, target, ignored))
    return "Quelldatei und Zieldatei sind dieselbe Datei: " + target;
  if (!force && std::filesystem::exists(std::filesystem::symlink_status(target, ignored)))
    return "Zieldatei existiert bereits: " + target;
  return {};
}

}  // namespace trendaro
