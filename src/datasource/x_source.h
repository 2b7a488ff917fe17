#pragma once

#include <array>
#include <string>

#include "app/one_based.h"
#include "app/types.h"

namespace trendaro {

// Entries of the box xSrc.
constexpr i16 kTimeBase = 0;
constexpr i16 kChannelAsX = 1;

struct XSourceEntry {
  std::string text;
  i16 item_data = 0;  // the chosen x channel; 0 until one was chosen
};

// A live channel of the measurement station.
struct IoChannel {
  std::string name;
  i16 source = 0;     // source code: -2 formula, -3 time, -4 file, -5 database
  i16 data_type = 0;  // 8 for an analogue input
};

// The box xSrc above the channel list.
struct XSourceBox {
  std::array<XSourceEntry, 2> entries;
  i16 ListIndex = kTimeBase;
};

// State of the channel list beside its rows.
struct GridState {
  XSourceBox xSrc;
  i16 XChannel = 0;        // signal chosen with mnuSetX
  i16 PreviousSource = 0;  // entry of xSrc before its last change
  i32 LastClickedRow = 0;  // row of the last mark
  i32 SelectedRow = 0;     // cell highlighted by a right click
  i16 SelectedCol = 0;
  OneBased<IoChannel> IOChannels;         // live channels, at least IOChannelCount of them
  i16 IOChannelCount = 0;                 // live channels; nothing fills them, the live layout stays dormant
  i16 Reduc = 0;                          // channels per group row; 0 becomes 10
  bool IsRealTime = false;                // selects the live layout; nothing sets it
  std::string OriginalExtension = "DAT";  // of the originals behind reduced block files
  OneBased<std::string> FileList;         // paths of the added files, in order of adding
  i16 NofFiles = 0;
};

}  // namespace trendaro
