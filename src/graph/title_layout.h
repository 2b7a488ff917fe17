#pragma once

#include <string>
#include <vector>

#include "graph/graph_layout.h"

namespace trendaro {

// The three parts of a title line: "left|centre|right". A line without "|" is all centre, one "|" divides
// left from centre.
struct TitleParts {
  std::string left, centre, right;
};
TitleParts title_parts(const std::string& line);

// Places the titles above and below and takes their room away from `room`. Lines that would eat more than a
// third of the height are left out, the least important first.
void place_titles(const GraphProperties& shown, const TextMeasure& measure, PixelRectangle& room,
                  std::vector<PlacedText>& titles);

}  // namespace trendaro
