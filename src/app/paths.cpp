#include "app/paths.h"

#include <algorithm>

namespace trendaro {
namespace {

constexpr std::string_view kSeparators = "\\/";

char upper_letter(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

}  // namespace

void SplitFileName(std::string_view path, std::string& folder, std::string& name) {
  const auto last = path.find_last_of(kSeparators);
  if (last == std::string_view::npos) {
    name = path;
    folder.clear();
    return;
  }
  const std::string_view folder_part = path.substr(0, last);
  const std::string_view name_part = path.substr(last + 1);
  std::string split_name(name_part);
  folder = folder_part;
  name = std::move(split_name);
}

std::string join_path(std::string_view folder, std::string_view name) {
  if (folder.empty()) return std::string(name);
  const auto separator = folder.find_first_of(kSeparators);
  std::string path(folder);
  path += separator == std::string_view::npos ? '/' : folder[separator];
  return path.append(name);
}

std::vector<std::string> split_at_dots(std::string_view path) {
  std::vector<std::string> pieces;
  for (;;) {
    const auto dot = path.find('.');
    pieces.emplace_back(path.substr(0, dot));
    if (dot == std::string_view::npos) return pieces;
    path.remove_prefix(dot + 1);
  }
}

std::string upper_piece(std::string_view path, std::size_t index) {
  const auto pieces = split_at_dots(path);
  return index < pieces.size() ? upper(pieces[index]) : std::string();
}

std::string upper_extension(std::string_view path) {
  const auto dot = path.rfind('.');
  return dot == std::string_view::npos ? std::string() : upper(path.substr(dot + 1));
}

std::string upper(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), upper_letter);
  return result;
}

bool equal_ignoring_case(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char left, char right) { return upper_letter(left) == upper_letter(right); });
}

std::string_view right_trimmed(std::string_view text) {
  const auto last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view() : right_trimmed(text.substr(first));
}

}  // namespace trendaro
