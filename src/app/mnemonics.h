#pragma once

#include <string>
#include <vector>

namespace trendaro {

// Puts "&" ahead of one letter or digit of each caption of a menu, so that no two entries share a key: of the
// first word's beginning where that is free, then of another word's, then of any letter. A caption that has
// its "&" keeps it; one whose letters are all taken stays without. Only A to Z and 0 to 9 are keys.
std::vector<std::string> with_mnemonics(std::vector<std::string> captions);

}  // namespace trendaro
