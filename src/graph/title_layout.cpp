#include "graph/title_layout.h"

#include <algorithm>
#include <cmath>

namespace trendaro {
namespace {

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

// What each part of a line may take: a part alone has the whole row, left and right without a centre have
// half of it each.
f64 share_of_part(const TitleParts& parts, f64 width, TextRole role, const TextMeasure& measure) {
  const int count = !parts.left.empty() + !parts.centre.empty() + !parts.right.empty();
  if (count == 1) return width;
  if (!parts.centre.empty()) return width / 3;
  return std::max(0.0, (width - std::round(measure.height(role))) / 2);
}

void place_line(const TitleLine& line, const PixelRectangle& row, const TextMeasure& measure,
                std::vector<PlacedText>& titles) {
  const f64 share = share_of_part(line.parts, row.width, line.role, measure);
  const auto box_at = [&](f64 x) { return PixelRectangle{x, row.y, share, row.height}; };
  place_part(line.parts.left, box_at(row.x), TextAlignment::Left, line.role, measure, titles);
  place_part(line.parts.centre, box_at(row.x + (row.width - share) / 2), TextAlignment::Centre, line.role,
             measure, titles);
  place_part(line.parts.right, box_at(row.right() - share), TextAlignment::Right, line.role, measure, titles);
}

std::vector<TitleLine> lines_above(const GraphProperties& shown) {
  std::vector<TitleLine> lines;
  if (!shown.MainTitle.empty()) lines.push_back({{{}, shown.MainTitle, {}}, TextRole::MainTitle});
  if (!shown.SubTitle.empty()) lines.push_back({{{}, shown.SubTitle, {}}, TextRole::SubTitle});
  append_lines(shown.MultiSubTitles, lines);
  return lines;
}

f64 height_of(const std::vector<TitleLine>& lines, std::size_t count, const TextMeasure& measure) {
  f64 height = 0;
  for (std::size_t i = 0; i < count; ++i) height += measure.height(lines[i].role);
  return height;
}

std::size_t fitting_lines(const std::vector<TitleLine>& lines, f64 height, const TextMeasure& measure) {
  std::size_t count = 0;
  while (count < lines.size() && height_of(lines, count + 1, measure) <= height) ++count;
  return count;
}

// The first `count` lines from the top of the box down. The last one leaves room for a note about `rest`
// others at its right, and as much at its left.
void place_lines(const std::vector<TitleLine>& lines, std::size_t count, std::size_t rest,
                 const PixelRectangle& box, const TextMeasure& measure, std::vector<PlacedText>& titles) {
  f64 y = box.y;
  for (std::size_t i = 0; i < count; ++i) {
    PixelRectangle row{box.x, y, box.width, measure.height(lines[i].role)};
    y = row.bottom();
    if (i + 1 == count && rest > 0) {
      const std::string note = "+ " + std::to_string(rest) + (rest == 1 ? " Zeile" : " Zeilen");
      const f64 width = std::min(std::ceil(measure.width(TextRole::SubTitle, note)), box.width / 3);
      place_part(note, {row.right() - width, row.y, width, row.height}, TextAlignment::Right,
                 TextRole::SubTitle, measure, titles);
      const f64 gap = std::round(measure.height(TextRole::SubTitle) * 0.5);
      row = {row.x + width + gap, row.y, std::max(0.0, row.width - 2 * (width + gap)), row.height};
    }
    place_line(lines[i], row, measure, titles);
  }
}

}  // namespace

TitleParts title_parts(const std::string& line) {
  const auto first = line.find('|');
  if (first == std::string::npos) return {{}, line, {}};
  const auto second = line.find('|', first + 1);
  if (second == std::string::npos) return {line.substr(0, first), line.substr(first + 1), {}};
  return {line.substr(0, first), line.substr(first + 1, second - first - 1), line.substr(second + 1)};
}

void place_titles(const GraphProperties& shown, const TextMeasure& measure, f64 share, PixelRectangle& room,
                  std::vector<PlacedText>& titles) {
  const std::vector<TitleLine> above = lines_above(shown);
  std::vector<TitleLine> below;
  append_lines(shown.MultiBottomTitles, below);

  const f64 budget = room.height * share;
  const f64 below_need = height_of(below, below.size(), measure);
  const f64 first_line = height_of(above, std::min<std::size_t>(above.size(), 1), measure);
  const std::size_t fit_above = fitting_lines(
      above, std::max({budget / 2, budget - below_need, std::min(budget, first_line)}), measure);
  const f64 above_height = height_of(above, fit_above, measure);
  const std::size_t fit_below = fitting_lines(below, budget - above_height, measure);
  const f64 below_height = height_of(below, fit_below, measure);

  // Where one side shows nothing, the note of the other counts its lines too.
  const std::size_t rest_above = above.size() - fit_above;
  const std::size_t rest_below = below.size() - fit_below;
  place_lines(above, fit_above, rest_above + (fit_below == 0 ? rest_below : 0), room, measure, titles);
  place_lines(below, fit_below, rest_below + (fit_above == 0 ? rest_above : 0),
              {room.x, room.bottom() - below_height, room.width, below_height}, measure, titles);
  const f64 left = budget - above_height - below_height;
  const f64 gap = fit_above > 0 ? std::min(left, measure.height(TextRole::Axis) * 0.5) : 0;
  const f64 gap_below = fit_below > 0 ? std::round(measure.height(TextRole::Axis) * 0.4) : 0;
  room.y += above_height + gap;
  room.height -= above_height + gap + below_height + gap_below;
}

}  // namespace trendaro
