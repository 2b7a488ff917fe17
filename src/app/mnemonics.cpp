#include "app/mnemonics.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <set>

namespace trendaro {
namespace {

// Bytes of a letter outside of ASCII are no keys.
bool is_key(char letter) {
  return static_cast<unsigned char>(letter) < 0x80 && std::isalnum(static_cast<unsigned char>(letter)) != 0;
}

char key_of(char letter) {
  return static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
}

// Places of a caption's keys, the best one first.
std::vector<std::size_t> places_of_keys(const std::string& caption) {
  std::vector<std::size_t> beginnings, others;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (!is_key(caption[i])) continue;
    const bool begins = i == 0 || caption[i - 1] == ' ' || caption[i - 1] == '-' || caption[i - 1] == '(';
    (begins ? beginnings : others).push_back(i);
  }
  beginnings.insert(beginnings.end(), others.begin(), others.end());
  return beginnings;
}

}  // namespace

std::vector<std::string> with_mnemonics(std::vector<std::string> captions) {
  std::set<char> taken;
  for (const std::string& caption : captions)
    if (const auto mark = caption.find('&'); mark != std::string::npos && mark + 1 < caption.size())
      taken.insert(key_of(caption[mark + 1]));
  for (std::string& caption : captions) {
    if (caption.find('&') != std::string::npos) continue;
    const std::vector<std::size_t> places = places_of_keys(caption);
    const auto free = std::ranges::find_if(
        places, [&](std::size_t place) { return !taken.contains(key_of(caption[place])); });
    if (free == places.end()) continue;
    taken.insert(key_of(caption[*free]));
    caption.insert(*free, "&");
  }
  return captions;
}

}  // namespace trendaro
