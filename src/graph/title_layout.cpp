#include "graph/title_layout.h"

#include <algorithm>
#include <cmath>

namespace trendaro {
namespace {

constexpr f64 kTitleShare = 1.0 / 3;  // of the height

struct TitleLine {
  TitleParts parts;
  TextRole role;
};

bool is_empty(const TitleParts& parts) {
  return parts.left.empty() && parts.centre.empty() && parts.right.empty();
}

void append_lines(const std::vector<std::string>& texts, std::vector<TitleLine>& lines) {
  for (const std::string& text : texts)
    if (TitleParts parts = title_parts(text); !is_empty(parts))
      lines.push_back({std::move(parts), TextRole::SubTitle});
}

void place_part(const std::string& text, const PixelRectangle& box, TextAlignment alignment, TextRole role,
                const TextMeasure& measure, std::vector<PlacedText>& titles) {
  std::string fitting = elided(text, box.width, role, measure);
  if (!fitting.empty()) titles.push_back({std::move(fitting), box, role, alignment});
}

void place_line(const TitleLine& line, const PixelRectangle& row, const TextMeasure& measure,
                std::vector<PlacedText>& titles) {
  const bool alone = line.parts.left.empty() && line.parts.right.empty();
  const f64 share = alone ? row.width : row.width / 3;
  const PixelRectangle centre{row.x + (row.width - share) / 2, row.y, share, row.height};
  place_part(line.parts.left, {row.x, row.y, row.width / 3, row.height}, TextAlignment::Left, line.role,
             measure, titles);
  place_part(line.parts.centre, centre, TextAlignment::Centre, line.role, measure, titles);
  place_part(line.parts.right, {row.right() - row.width / 3, row.y, row.width / 3, row.height},
             TextAlignment::Right, line.role, measure, titles);
}

}  // namespace

TitleParts title_parts(const std::string& line) {
  const auto first = line.find('|');
  if (first == std::string::npos) return {{}, line, {}};
  const auto second = line.find('|', first + 1);
  if (second == std::string::npos) return {line.substr(0, first), line.substr(first + 1), {}};
  return {line.substr(0, first), line.substr(first + 1, second - first - 1), line.substr(second + 1)};
}

void place_titles(const GraphProperties& shown, const TextMeasure& measure, PixelRectangle& room,
                  std::vector<PlacedText>& titles) {
  std::vector<TitleLine> above;
  std::vector<TitleLine> below;
  if (!shown.MainTitle.empty()) above.push_back({{{}, shown.MainTitle, {}}, TextRole::MainTitle});
  if (!shown.SubTitle.empty()) above.push_back({{{}, shown.SubTitle, {}}, TextRole::SubTitle});
  append_lines(shown.MultiSubTitles, above);
  append_lines(shown.MultiBottomTitles, below);

  f64 budget = room.height * kTitleShare;
  bool placed_above = false;
  for (const TitleLine& line : above) {
    const f64 height = measure.height(line.role);
    if (height > budget) break;
    place_line(line, {room.x, room.y, room.width, height}, measure, titles);
    room.y += height;
    room.height -= height;
    budget -= height;
    placed_above = true;
  }
  if (placed_above) {
    const f64 gap = std::min(budget, measure.height(TextRole::Axis) * 0.5);
    room.y += gap;
    room.height -= gap;
  }
  const auto fitting = std::min(
      below.size(), static_cast<std::size_t>(std::max(0.0, budget / measure.height(TextRole::SubTitle))));
  for (std::size_t i = fitting; i-- > 0;) {
    const f64 height = measure.height(TextRole::SubTitle);
    room.height -= height;
    place_line(below[i], {room.x, room.bottom(), room.width, height}, measure, titles);
  }
  if (fitting > 0) room.height -= std::round(measure.height(TextRole::Axis) * 0.4);
}

}  // namespace trendaro
