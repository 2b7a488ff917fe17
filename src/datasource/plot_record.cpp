#include "datasource/plot_record.h"

#include <string_view>

namespace trendaro {
namespace {

bool starts_at_a_root(std::string_view path) {
  constexpr std::string_view kSeparators = "\\/";
  if (path.empty()) return false;
  if (kSeparators.find(path[0]) != std::string_view::npos) return true;
  const char drive = static_cast<char>(path[0] | 0x20);
  return path.size() >= 3 && drive >= 'a' && drive <= 'z' && path[1] == ':' &&
         kSeparators.find(path[2]) != std::string_view::npos;
}

// Where the "@" ahead of the path stands: a signal's name may hold one of its own ("n@50Hz"), and so may a
// folder ("/data@rig/"), so it is the first one that a root follows. Behind a relative path it is the first.
std::size_t path_sign(std::string_view title) {
  const auto first = title.find('@');
  for (auto at = first; at != std::string_view::npos; at = title.find('@', at + 1))
    if (starts_at_a_root(title.substr(at + 1))) return at;
  return first;
}

}  // namespace

std::string plot_signal(const PlotRecord& plot) {
  return plot.Title.substr(0, path_sign(plot.Title));
}

std::string plot_path(const PlotRecord& plot) {
  const auto at = path_sign(plot.Title);
  return at == std::string::npos ? std::string() : plot.Title.substr(at + 1);
}

}  // namespace trendaro
