#include "datasource/channel_rows.h"

#include <algorithm>
#include <utility>

namespace trendaro {

bool has_children(RowKind kind) {
  return kind == RowKind::Group || kind == RowKind::File;
}

bool is_channel(RowKind kind) {
  return kind == RowKind::DatabaseChannel || kind == RowKind::Signal;
}

void append_row(ChannelRows& list, ChannelRow row) {
  list.rows.push_back(std::move(row));
  if (list.active_row == 0) list.active_row = 1;
  ++list.revision;
}

void erase_rows(ChannelRows& list, i32 first, i32 count) {
  list.rows.erase(first, static_cast<std::size_t>(count));
  std::set<i32> moved;
  const auto below = list.marked.lower_bound(first + count);
  for (auto mark = below; mark != list.marked.end(); ++mark) moved.insert(moved.end(), *mark - count);
  list.marked.erase(list.marked.lower_bound(first), list.marked.end());
  list.marked.merge(moved);
  list.active_row = std::min(list.active_row, list.MaxRows());
  list.top_row = std::clamp(list.top_row, 1, std::max(list.MaxRows(), 1));
  ++list.shape;
  ++list.revision;
}

void set_mark(ChannelRows& list, i32 row, const Mark& mark) {
  list.rows[row].check = 1;
  list.rows[row].mark = mark_text(mark);
  list.marked.insert(row);
  ++list.revision;
}

void clear_mark(ChannelRows& list, i32 row) {
  list.rows[row].check = 0;
  list.rows[row].mark = std::to_string(mark_index(list.rows[row].mark));
  list.marked.erase(row);
  ++list.revision;
}

i32 end_of_children(const ChannelRows& list, i32 row) {
  i32 end = row + 1;
  while (list.rows.has(end) && !has_children(list.rows[end].kind)) ++end;
  return end;
}

void show_children(ChannelRows& list, i32 row, bool shown) {
  const i32 end = end_of_children(list, row);
  for (i32 child = row + 1; child < end; ++child) list.rows[child].hidden = !shown;
  ++list.shape;
  ++list.revision;
}

}  // namespace trendaro
