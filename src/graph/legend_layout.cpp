#include "graph/legend_layout.h"

#include <algorithm>
#include <cmath>

#include "graph/middle_elision.h"
#include "graph/table_layout.h"

namespace trendaro {
namespace {

constexpr f64 kHeightShare = 0.25;  // of the graph, for a legend above or below
constexpr f64 kWidthShare = 0.28;   // for one at a side
constexpr f64 kInLayerShare = 0.5;  // of a layer

// Names that are cut to less, in lines of text, can hardly be told apart.
constexpr f64 kTellingName = 6;
constexpr f64 kShortestName = 3;  // in a legend of one line

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
    entry.name = elided_in_middle(entry.name, limit, TextRole::Legend, measure);
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

std::size_t rows_of(std::size_t entries, std::size_t columns) {
  return (entries + columns - 1) / columns;
}

// The fewest columns that fit, among those with as few rows as any table that fits.
LegendTable fitting_table(const std::vector<LooseEntry>& entries, f64 width, const EntryMeasure& entry) {
  const auto most = static_cast<std::size_t>(std::max(1.0, width / (entry.lead() + entry.entry_gap)));
  std::size_t columns = std::min(entries.size(), most);
  while (columns > 1 && table_of(entries, columns).width(entry) > width) --columns;
  const std::size_t rows = rows_of(entries.size(), columns);
  // The names of fewer columns are grouped anew, so that these may be wider.
  for (std::size_t fewer = rows_of(entries.size(), rows); fewer < columns; ++fewer)
    if (LegendTable table = table_of(entries, fewer); table.width(entry) <= width) return table;
  return table_of(entries, columns);
}

// What a name may take where `columns` share the width evenly.
f64 share_of_column(f64 width, std::size_t columns, const EntryMeasure& entry) {
  const auto count = static_cast<f64>(columns);
  return (width - entry.entry_gap * (count - 1)) / count - entry.lead();
}

// A table of all entries for a number of rows, as far as names that are still telling allow. Two long names
// find room beside each other.
LegendTable legend_table(std::vector<LooseEntry>& entries, f64 width, std::size_t rows,
                         const TextMeasure& measure) {
  const EntryMeasure entry(measure);
  const auto telling = [&](std::size_t columns) {
    return std::min(share_of_column(width, 1, entry),
                    std::max(share_of_column(width, columns, entry), kTellingName * entry.line));
  };
  limit_names(entries, telling(std::min<std::size_t>(entries.size(), 2)), measure);
  const LegendTable table = fitting_table(entries, width, entry);
  if (rows_of(entries.size(), table.columns) <= rows) return table;
  limit_names(entries, telling(std::max<std::size_t>(rows_of(entries.size(), rows), 2)), measure);
  return fitting_table(entries, width, entry);
}

// How many curves a legend leaves out.
PlacedText rest_note(std::size_t listed, std::size_t all, const PixelRectangle& box,
                     const TextMeasure& measure) {
  const std::string number = std::to_string(all - listed);
  const std::string words =
      listed == 0 ? number + (all == 1 ? " Kurve" : " Kurven") : "+ " + number + " weitere";
  return {elided(words, box.width, TextRole::Legend, measure), box, TextRole::Legend, TextAlignment::Left};
}

f64 note_width(std::size_t listed, std::size_t all, const TextMeasure& measure) {
  constexpr f64 kEndless = 1e9;
  return std::ceil(
      measure.width(TextRole::Legend, rest_note(listed, all, {0, 0, kEndless, 0}, measure).text));
}

// Puts the table in the middle of the box. Where its rows are not enough, the last place tells of the rest.
void put_table(const std::vector<LooseEntry>& entries, const LegendTable& table, const PixelRectangle& box,
               const TextMeasure& measure, GraphLayout& layout) {
  const EntryMeasure entry(measure);
  const f64 start = box.x + std::max(0.0, std::round((box.width - table.width(entry)) / 2));
  const auto places = static_cast<std::size_t>(box.height / entry.line + 0.5) * table.columns;
  const std::size_t listed = entries.size() <= places ? entries.size() : places - 1;
  f64 x = start;
  f64 y = box.y;
  for (std::size_t i = 0; i < std::min(places, entries.size()); ++i) {
    if (i < listed)
      layout.legend.push_back(
          entry_at(entries[i].subset, entries[i].name, x, y, entries[i].name_width, entry));
    else
      layout.legend_notes.push_back(
          rest_note(listed, entries.size(), {x, y, box.right() - x, entry.line}, measure));
    const std::size_t column = i % table.columns;
    x += entry.lead() + table.name_widths[column] + entry.entry_gap;
    if (column + 1 < table.columns) continue;
    x = start;
    y += entry.line;
  }
}

// How many entries one line holds when names are cut as far as they may be, with a note about the rest.
std::size_t entries_in_line(const std::vector<LooseEntry>& entries, f64 width, const TextMeasure& measure) {
  const EntryMeasure entry(measure);
  f64 taken = 0;
  std::size_t most = 0;
  for (std::size_t count = 1; count <= entries.size(); ++count) {
    taken += entry.lead() + std::min(entries[count - 1].name_width, kShortestName * entry.line) +
             (count > 1 ? entry.entry_gap : 0);
    const bool all = count == entries.size();
    if (taken + (all ? 0 : entry.entry_gap + note_width(count, entries.size(), measure)) <= width)
      most = count;
  }
  return most;
}

void put_line(std::vector<LooseEntry> entries, const PixelRectangle& box, const TextMeasure& measure,
              GraphLayout& layout) {
  const EntryMeasure entry(measure);
  const std::size_t all = entries.size();
  entries.resize(entries_in_line(entries, box.width, measure));
  const auto count = static_cast<f64>(entries.size());
  const f64 note = entries.size() < all ? note_width(entries.size(), all, measure) : 0;
  const f64 gaps = entry.entry_gap * (note > 0 ? count : count - 1);
  limit_names(entries, fair_name_width(entries, box.width - note - gaps - count * entry.lead()), measure);
  f64 width = note + gaps + count * entry.lead();
  for (const LooseEntry& each : entries) width += each.name_width;
  f64 x = box.x + std::max(0.0, std::round((box.width - width) / 2));
  for (const LooseEntry& each : entries) {
    layout.legend.push_back(entry_at(each.subset, each.name, x, box.y, each.name_width, entry));
    x += entry.lead() + each.name_width + entry.entry_gap;
  }
  if (note > 0)
    layout.legend_notes.push_back(
        rest_note(entries.size(), all, {x, box.y, box.right() - x, entry.line}, measure));
}

void place_above_or_below(const GraphProperties& shown, const TextMeasure& measure,
                          std::vector<LooseEntry> entries, PixelRectangle& room, GraphLayout& layout) {
  const EntryMeasure entry(measure);
  const f64 gap = std::round(entry.line * 0.4);
  const f64 budget = room.height * kHeightShare - gap;
  if (budget < entry.line || room.width < entry.lead() + kShortestName * entry.line) return;
  const auto most_rows = static_cast<std::size_t>(budget / entry.line);
  const bool top = shown.LegendLocation == kLegendTop;
  const auto take_rows = [&](std::size_t rows) {
    const f64 height = entry.line * static_cast<f64>(rows);
    const PixelRectangle box{room.x, top ? room.y : room.bottom() - height, room.width, height};
    if (top) room.y += height + gap;
    room.height -= height + gap;
    return box;
  };
  if (shown.LegendStyle == kLegendOneLine || most_rows == 1)
    return put_line(std::move(entries), take_rows(1), measure, layout);
  const LegendTable table = legend_table(entries, room.width, most_rows, measure);
  const std::size_t rows = std::min(most_rows, rows_of(entries.size(), table.columns));
  put_table(entries, table, take_rows(rows), measure, layout);
}

// Entries below each other, in at most so many lines, the last of which tells of the rest.
struct LegendColumn {
  std::vector<LooseEntry> entries;
  std::size_t listed;
  f64 width;

  LegendColumn(std::vector<LooseEntry> all, std::size_t lines, f64 most_width, const TextMeasure& measure)
      : entries(std::move(all)), listed(entries.size() <= lines ? entries.size() : lines - 1), width(0) {
    const f64 lead = EntryMeasure(measure).lead();
    limit_names(entries, most_width - lead, measure);
    for (std::size_t i = 0; i < listed; ++i) width = std::max(width, lead + entries[i].name_width);
    if (listed < entries.size())
      width = std::max(width, std::min(most_width, note_width(listed, entries.size(), measure)));
  }

  void put(const PixelPoint& corner, const TextMeasure& measure, GraphLayout& layout) const {
    const EntryMeasure entry(measure);
    f64 y = corner.y;
    for (std::size_t i = 0; i < listed; ++i, y += entry.line)
      layout.legend.push_back(
          entry_at(entries[i].subset, entries[i].name, corner.x, y, entries[i].name_width, entry));
    if (listed < entries.size())
      layout.legend_notes.push_back(
          rest_note(listed, entries.size(), {corner.x, y, width, entry.line}, measure));
  }
};

void place_beside(const GraphProperties& shown, const TextMeasure& measure,
                  const std::vector<LooseEntry>& entries, PixelRectangle& room, GraphLayout& layout) {
  const EntryMeasure entry(measure);
  const f64 most_width = room.width * kWidthShare - entry.entry_gap;
  const auto lines = static_cast<std::size_t>(std::max(0.0, room.height / entry.line));
  if (most_width - entry.lead() < entry.line * 2 || lines == 0) return;
  const LegendColumn column(entries, lines, most_width, measure);
  const bool left = shown.LegendLocation == kLegendLeft;
  column.put({left ? room.x : room.right() - column.width, room.y}, measure, layout);
  if (left) room.x += column.width + entry.entry_gap / 2;
  room.width -= column.width + entry.entry_gap / 2;
}

// What a legend inside of a layer may take, without its margins.
struct RoomInLayer {
  f64 width = 0;
  std::size_t lines = 0;

  [[nodiscard]] bool is_one_line(std::size_t entries) const { return lines == 1 && entries > 1; }
};

f64 inset_in_layer(const EntryMeasure& entry) {
  return std::round(entry.line * 0.5);
}

// The upper left of the layer down to `bottom`.
RoomInLayer room_in_layer(const PixelRectangle& area, f64 bottom, const EntryMeasure& entry) {
  const f64 margins = 4 * inset_in_layer(entry);
  const f64 height = std::max(0.0, bottom - area.y - margins);
  return {area.width * kInLayerShare - margins, static_cast<std::size_t>(height / entry.line)};
}

// The room that the tables of a layer leave. They go to the lower corner where they would lie on whole names
// and all curves can be listed above them, or where names beside them would be cut too short.
RoomInLayer share_with_tables(const GraphProperties& shown, const std::vector<LooseEntry>& entries,
                              const TextMeasure& measure, LayerLayout& layer) {
  const EntryMeasure entry(measure);
  const RoomInLayer all = room_in_layer(layer.area, layer.area.bottom(), entry);
  const PixelRectangle tables = table_room_in(shown, layer, measure);
  const f64 beside = tables.x - layer.area.x - 4 * inset_in_layer(entry);
  if (tables.width <= 0 || all.width <= beside || all.width < entry.lead()) return all;
  if (!all.is_one_line(entries.size()) &&
      LegendColumn(entries, std::max<std::size_t>(all.lines, 1), all.width, measure).width <= beside)
    return all;
  layer.tables_below = true;
  const RoomInLayer above = room_in_layer(layer.area, table_room_in(shown, layer, measure).y, entry);
  const bool beside_tells = beside >= entry.lead() + kTellingName * entry.line;
  layer.tables_below = above.lines >= entries.size() || (above.lines > 0 && !beside_tells);
  return layer.tables_below || !beside_tells ? above : RoomInLayer{beside, all.lines};
}

void place_in_layer(const GraphProperties& shown, std::vector<LooseEntry> entries, const TextMeasure& measure,
                    LayerLayout& layer, GraphLayout& layout) {
  const EntryMeasure entry(measure);
  const RoomInLayer room = share_with_tables(shown, entries, measure, layer);
  if (room.lines == 0 || room.width < entry.lead()) return;
  const f64 inset = inset_in_layer(entry);
  const PixelPoint corner{layer.area.x + 2 * inset, layer.area.y + 2 * inset};
  const f64 height = entry.line * static_cast<f64>(std::min(room.lines, entries.size()));
  f64 width = room.width;
  if (room.is_one_line(entries.size())) {
    put_line(std::move(entries), {corner.x, corner.y, width, entry.line}, measure, layout);
  } else {
    const LegendColumn column(std::move(entries), room.lines, room.width, measure);
    column.put(corner, measure, layout);
    width = column.width;
  }
  layout.legend_backs.push_back({corner.x - inset, corner.y - inset, width + 2 * inset, height + 2 * inset});
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
                  GraphLayout& layout) {
  if (shown.LegendStyle == kLegendInLayers) return;
  const std::vector<LooseEntry> entries = loose_entries(shown, legend_subsets(shown), measure);
  if (entries.empty()) return;
  if (stands_beside(shown))
    place_beside(shown, measure, entries, room, layout);
  else
    place_above_or_below(shown, measure, entries, room, layout);
}

void place_legend_in_layers(const GraphProperties& shown, const TextMeasure& measure, GraphLayout& layout) {
  if (shown.LegendStyle != kLegendInLayers) return;
  const std::vector<std::size_t> listed = legend_subsets(shown);
  for (std::size_t slot = 0; slot < layout.layers.size(); ++slot) {
    std::vector<std::size_t> subsets;
    for (const std::size_t subset : listed)
      if (subset < layout.curves.size() && layout.curves[subset].slot == slot) subsets.push_back(subset);
    if (!subsets.empty())
      place_in_layer(shown, loose_entries(shown, subsets, measure), measure, layout.layers[slot], layout);
  }
}

}  // namespace trendaro
