#include "graph/legend_layout.h"

#include <algorithm>
#include <cmath>

namespace trendaro {
namespace {

constexpr f64 kHeightShare = 0.25;  // of the graph, for a legend above or below
constexpr f64 kWidthShare = 0.28;   // for one at a side
constexpr f64 kLongestName = 0.5;   // of a row's width

// The measures of an entry: line sample, gap, name, gap to the next entry.
struct EntryMeasure {
  f64 line, sample, sample_gap, entry_gap;

  explicit EntryMeasure(const TextMeasure& measure)
      : line(measure.height(TextRole::Legend)),
        sample(std::round(line * 1.6)),
        sample_gap(std::round(line * 0.4)),
        entry_gap(std::round(line * 1.4)) {}

  [[nodiscard]] f64 lead() const { return sample + sample_gap; }
};

std::string curve_name(const GraphProperties& shown, std::size_t subset) {
  return subset < shown.SubsetLabels.size() ? shown.SubsetLabels[subset] : std::string();
}

LegendEntry entry_at(std::size_t subset, const std::string& name, f64 x, f64 y, f64 name_width,
                     const EntryMeasure& entry) {
  LegendEntry result;
  result.subset = subset;
  result.sample = {x, y, entry.sample, entry.line};
  result.name = {name, {x + entry.lead(), y, name_width, entry.line}, TextRole::Legend, TextAlignment::Left};
  return result;
}

// One entry that knows its width but not its place yet.
struct LooseEntry {
  std::size_t subset;
  std::string name;
  f64 name_width;
};

// The widest name that lets all names share `width`: short ones stay whole, long ones get the same room.
f64 fair_name_width(const std::vector<LooseEntry>& entries, f64 width) {
  std::vector<f64> widths;
  for (const LooseEntry& entry : entries) widths.push_back(entry.name_width);
  std::sort(widths.begin(), widths.end());
  f64 left = width;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    const f64 share = left / static_cast<f64>(widths.size() - i);
    if (widths[i] > share) return std::max(0.0, share);
    left -= widths[i];
  }
  return width;
}

std::vector<LooseEntry> loose_entries(const GraphProperties& shown, const std::vector<std::size_t>& subsets,
                                      const TextMeasure& measure) {
  std::vector<LooseEntry> entries;
  for (const std::size_t subset : subsets) {
    std::string name = curve_name(shown, subset);
    const f64 width = std::ceil(measure.width(TextRole::Legend, name));
    entries.push_back({subset, std::move(name), width});
  }
  return entries;
}

void limit_names(std::vector<LooseEntry>& entries, f64 limit, const TextMeasure& measure) {
  for (LooseEntry& entry : entries) {
    if (entry.name_width <= limit) continue;
    entry.name = elided(entry.name, limit, TextRole::Legend, measure);
    entry.name_width = std::ceil(measure.width(TextRole::Legend, entry.name));
  }
}

// Entries in rows of `columns`; names of one column begin below each other.
struct LegendTable {
  std::size_t columns = 0;
  std::vector<f64> name_widths;  // of each column

  [[nodiscard]] f64 width(const EntryMeasure& entry) const {
    f64 sum = entry.entry_gap * static_cast<f64>(columns - 1);
    for (const f64 width : name_widths) sum += entry.lead() + width;
    return sum;
  }
};

LegendTable table_of(const std::vector<LooseEntry>& entries, std::size_t columns) {
  LegendTable table{columns, std::vector<f64>(columns, 0)};
  for (std::size_t i = 0; i < entries.size(); ++i)
    table.name_widths[i % columns] = std::max(table.name_widths[i % columns], entries[i].name_width);
  return table;
}

// The widest table that fits, and then no wider than its number of rows asks for.
LegendTable fitting_table(const std::vector<LooseEntry>& entries, f64 width, const EntryMeasure& entry) {
  const auto most = static_cast<std::size_t>(std::max(1.0, width / (entry.lead() + entry.entry_gap)));
  for (std::size_t columns = std::min(entries.size(), most); columns > 1; --columns) {
    if (table_of(entries, columns).width(entry) > width) continue;
    const std::size_t rows = (entries.size() + columns - 1) / columns;
    return table_of(entries, (entries.size() + rows - 1) / rows);
  }
  return table_of(entries, 1);
}

LegendTable legend_table(const GraphProperties& shown, std::vector<LooseEntry>& entries, f64 width,
                         const TextMeasure& measure) {
  const EntryMeasure entry(measure);
  if (shown.LegendStyle != kLegendOneLine) {
    limit_names(entries, width * kLongestName, measure);
    return fitting_table(entries, width, entry);
  }
  const auto count = static_cast<f64>(entries.size());
  const f64 fixed = count * entry.lead() + (count - 1) * entry.entry_gap;
  limit_names(entries, fair_name_width(entries, width - fixed), measure);
  return table_of(entries, entries.size());
}

// Puts the table in the middle of the box; what does not fit into it is left out.
void put_table(const std::vector<LooseEntry>& entries, const LegendTable& table, const PixelRectangle& box,
               const EntryMeasure& entry, std::vector<LegendEntry>& legend) {
  const f64 start = box.x + std::max(0.0, std::round((box.width - table.width(entry)) / 2));
  f64 x = start;
  f64 y = box.y;
  for (std::size_t i = 0; i < entries.size() && y + entry.line <= box.bottom() + 0.5; ++i) {
    const std::size_t column = i % table.columns;
    if (x + entry.lead() + entries[i].name_width <= box.right() + 0.5)
      legend.push_back(entry_at(entries[i].subset, entries[i].name, x, y, entries[i].name_width, entry));
    x += entry.lead() + table.name_widths[column] + entry.entry_gap;
    if (column + 1 < table.columns) continue;
    x = start;
    y += entry.line;
  }
}

void place_above_or_below(const GraphProperties& shown, const TextMeasure& measure,
                          std::vector<LooseEntry> entries, PixelRectangle& room,
                          std::vector<LegendEntry>& legend) {
  const EntryMeasure entry(measure);
  const LegendTable table = legend_table(shown, entries, room.width, measure);
  const f64 gap = std::round(entry.line * 0.4);
  const f64 budget = room.height * kHeightShare - gap;
  const auto needed = static_cast<f64>((entries.size() + table.columns - 1) / table.columns);
  const f64 rows = std::min(needed, std::floor(budget / entry.line));
  if (rows < 1) return;
  const f64 height = entry.line * rows;
  const bool top = shown.LegendLocation == kLegendTop;
  put_table(entries, table, {room.x, top ? room.y : room.bottom() - height, room.width, height}, entry,
            legend);
  if (top) room.y += height + gap;
  room.height -= height + gap;
}

void place_beside(const GraphProperties& shown, const TextMeasure& measure, std::vector<LooseEntry> entries,
                  PixelRectangle& room, std::vector<LegendEntry>& legend) {
  const EntryMeasure entry(measure);
  const f64 widest_name = room.width * kWidthShare - entry.lead() - entry.entry_gap;
  if (widest_name < entry.line * 2) return;
  limit_names(entries, widest_name, measure);
  const auto lines = static_cast<std::size_t>(std::max(0.0, room.height / entry.line));
  if (entries.size() > lines) entries.resize(lines);
  f64 name_width = 0;
  for (const LooseEntry& each : entries) name_width = std::max(name_width, each.name_width);
  const f64 width = entry.lead() + name_width;
  const bool left = shown.LegendLocation == kLegendLeft;
  const f64 x = left ? room.x : room.right() - width;
  f64 y = room.y;
  for (const LooseEntry& each : entries) {
    legend.push_back(entry_at(each.subset, each.name, x, y, each.name_width, entry));
    y += entry.line;
  }
  if (left) room.x += width + entry.entry_gap / 2;
  room.width -= width + entry.entry_gap / 2;
}

}  // namespace

std::vector<std::size_t> legend_subsets(const GraphProperties& shown) {
  std::vector<std::size_t> subsets;
  for (const i32 subset : shown.SubsetsToLegend) {
    if (subset < 0) break;
    if (subset < shown.SubsetCount) subsets.push_back(static_cast<std::size_t>(subset));
  }
  return subsets;
}

bool stands_beside(const GraphProperties& shown) {
  return shown.LegendStyle != kLegendInLayers &&
         (shown.LegendLocation == kLegendLeft || shown.LegendLocation == kLegendRight);
}

void place_legend(const GraphProperties& shown, const TextMeasure& measure, PixelRectangle& room,
                  std::vector<LegendEntry>& legend) {
  if (shown.LegendStyle == kLegendInLayers) return;
  const std::vector<LooseEntry> entries = loose_entries(shown, legend_subsets(shown), measure);
  if (entries.empty()) return;
  if (stands_beside(shown))
    place_beside(shown, measure, entries, room, legend);
  else
    place_above_or_below(shown, measure, entries, room, legend);
}

void place_legend_in_layers(const GraphProperties& shown, const TextMeasure& measure, GraphLayout& layout) {
  if (shown.LegendStyle != kLegendInLayers) return;
  const EntryMeasure entry(measure);
  const f64 inset = std::round(entry.line * 0.5);
  const std::vector<std::size_t> listed = legend_subsets(shown);
  for (std::size_t slot = 0; slot < layout.layers.size(); ++slot) {
    const PixelRectangle& area = layout.layers[slot].area;
    std::vector<std::size_t> subsets;
    for (const CurvePlace& place : layout.curves)
      if (place.slot == slot && std::find(listed.begin(), listed.end(), place.subset) != listed.end())
        subsets.push_back(place.subset);
    std::vector<LooseEntry> entries = loose_entries(shown, subsets, measure);
    limit_names(entries, area.width * kLongestName - entry.lead() - 4 * inset, measure);
    const f64 lines = (area.height - 4 * inset) / entry.line;
    entries.resize(std::min(entries.size(), static_cast<std::size_t>(std::max(0.0, lines))));
    if (entries.empty()) continue;
    f64 name_width = 0;
    f64 y = area.y + 2 * inset;
    for (const LooseEntry& each : entries) {
      name_width = std::max(name_width, each.name_width);
      layout.legend.push_back(
          entry_at(each.subset, each.name, area.x + 2 * inset, y, each.name_width, entry));
      y += entry.line;
    }
    layout.legend_backs.push_back(
        {area.x + inset, area.y + inset, entry.lead() + name_width + 2 * inset, y - area.y});
  }
}

}  // namespace trendaro
