#pragma once

#include <string>

#include "app/one_based.h"
#include "app/types.h"

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
  i16 active_row = 0;  // 0 without rows
  i32 top_row = 1;     // first row on screen
  bool redraw = true;  // off while handlers change many rows
  u64 revision = 0;    // raised by every change of rows, so that the window knows when to mirror

  [[nodiscard]] i32 MaxRows() const { return static_cast<i32>(rows.size()); }
};

}  // namespace trendaro
