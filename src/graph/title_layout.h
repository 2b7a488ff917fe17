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

// Shares of the height that all lines may take at most: in a graph with room, beside a legend where that is
// short, and in a low graph.
inline constexpr f64 kTitleShare = 0.45;
inline constexpr f64 kFairTitleShare = 1.0 / 3;
inline constexpr f64 kFewTitlesShare = 0.2;

// Places the titles above and below and takes their room away from `room`. Where the lines need more than
// `share` of the height, those above and those below have half of it each, and what the others leave; a note
// beside the last line on show tells how many are left out. Parts of a line are cut to the whole row where
// one stands alone, to half of it where left and right have no centre between them, to a third otherwise.
void place_titles(const GraphProperties& shown, const TextMeasure& measure, f64 share, PixelRectangle& room,
                  std::vector<PlacedText>& titles);

}  // namespace trendaro
