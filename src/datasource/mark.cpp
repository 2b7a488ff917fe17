#include "datasource/mark.h"

#include <charconv>

namespace trendaro {

std::string mark_text(const Mark& mark) {
  return std::to_string(mark.index) + "_" + std::to_string(mark.layer) + "_" + std::to_string(mark.side);
}

std::optional<Mark> parse_mark(std::string_view cell) {
  const auto first = cell.find('_');
  if (first == std::string_view::npos || cell.size() < first + 4 || cell[first + 2] != '_')
    return std::nullopt;
  const auto digit = [&](std::size_t place) { return static_cast<i16>(cell[place] - '0'); };
  return Mark{mark_index(cell), digit(first + 1), digit(first + 3)};
}

i16 mark_index(std::string_view cell) {
  i16 index = 0;
  std::from_chars(cell.data(), cell.data() + cell.size(), index);
  return index;
}

}  // namespace trendaro
