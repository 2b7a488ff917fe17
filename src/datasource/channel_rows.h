#pragma once

#include <set>
#include <string>

#include "app/one_based.h"
#include "app/types.h"
#include "datasource/mark.h"

namespace trendaro {

// Column 5 of the list: what a row is.
enum class RowKind : char {
  IoHeading = '0',
  Group = '1',
  DatabaseChannel = '2',
  File = '3',
  Signal = '4',
};

// One row of the channel list, by columns.
struct ChannelRow {
  i16 check = 0;        // 1: file and group rows expanded 1, collapsed 0; channel rows marked 1
  std::string picture;  // 2: image key
  std::string name;     // 3
  std::string mark;     // 4: "7" unmarked, "7_2_1" marked: index, layer 1 to 3, side 1 left or 2 right
  RowKind kind = RowKind::Signal;  // 5
  std::string path;                // 6: full path of the file
  i32 points = 0;                  // 7: samples of the signal
  bool hidden = false;             // not a column: the row does not show
};

// The channel list as a table. There is no other store of the marks. Row numbers count from 1.
struct ChannelRows {
  OneBased<ChannelRow> rows;
  std::set<i32> marked;  // the rows that carry a mark, in order; kept by the functions below
  i32 active_row = 0;    // 0 without rows
  i32 top_row = 1;       // first row on screen
  bool redraw = true;    // off while handlers change many rows
  u64 revision = 0;      // raised by every change of rows, so that the window knows when to mirror
  u64 shape = 0;         // raised when rows are removed, hidden or shown; not by rows added at the bottom

  [[nodiscard]] i32 MaxRows() const { return static_cast<i32>(rows.size()); }
};

// A file or a group: the rows below it, up to the next one, are its own.
bool has_children(RowKind kind);
// A signal or a database channel: its check cell is a mark.
bool is_channel(RowKind kind);

// Adds a row at the bottom. Its mark cell holds no mark.
void append_row(ChannelRows& list, ChannelRow row);
// Removes `count` rows from `first` on, with their marks; the rows below move up. Row numbers that are kept
// elsewhere are the caller's.
void erase_rows(ChannelRows& list, i32 first, i32 count);

// Writes the mark cell and the check cell of a channel row.
void set_mark(ChannelRows& list, i32 row, const Mark& mark);
// Back to the plain index.
void clear_mark(ChannelRows& list, i32 row);

// The row behind the children of the file or group in `row`.
i32 end_of_children(const ChannelRows& list, i32 row);
// Shows or hides the children of `row`.
void show_children(ChannelRows& list, i32 row, bool shown);

// Switches the redraw of the list off; afterwards it is on.
class PausedList {
 public:
  explicit PausedList(ChannelRows& list) : list_(list) { list_.redraw = false; }
  ~PausedList() {
    list_.redraw = true;
    ++list_.revision;
  }
  PausedList(const PausedList&) = delete;
  PausedList& operator=(const PausedList&) = delete;

 private:
  ChannelRows& list_;
};

}  // namespace trendaro
