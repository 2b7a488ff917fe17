#include "graph/middle_elision.h"

#include <vector>

namespace trendaro {
namespace {

// Where the whole UTF-8 characters of a text begin, and its end.
std::vector<std::size_t> character_starts(const std::string& text) {
  std::vector<std::size_t> starts;
  for (std::size_t i = 0; i < text.size(); ++i)
    if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) starts.push_back(i);
  starts.push_back(text.size());
  return starts;
}

}  // namespace

std::string elided_in_middle(const std::string& text, f64 width, TextRole role, const TextMeasure& measure) {
  if (measure.width(role, text) <= width) return text;
  const std::vector<std::size_t> starts = character_starts(text);
  const std::size_t characters = starts.size() - 1;
  // Of an odd number of characters that stay, the start has one more.
  const auto cut_to = [&](std::size_t kept) {
    return text.substr(0, starts[(kept + 1) / 2]) + "…" + text.substr(starts[characters - kept / 2]);
  };
  std::size_t fits = 0;
  std::size_t too_long = characters;
  while (fits + 1 < too_long) {
    const std::size_t middle = (fits + too_long) / 2;
    (measure.width(role, cut_to(middle)) <= width ? fits : too_long) = middle;
  }
  const std::string cut = cut_to(fits);
  return measure.width(role, cut) <= width ? cut : std::string();
}

}  // namespace trendaro
