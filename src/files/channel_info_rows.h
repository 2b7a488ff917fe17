#pragma once

#include <string>
#include <vector>

#include "app/types.h"

namespace trendaro {

// A row of the channel information.
struct ChannelInfoRow {
  std::string name;   // of the item; in a heading that of the channel
  std::string value;  // empty in a heading
  bool heading = false;

  friend bool operator==(const ChannelInfoRow&, const ChannelInfoRow&) = default;
};

// What the form with channel information shows; it stays when the form closes.
struct ChannelInfoState {
  std::vector<ChannelInfoRow> InfoGrid;
  i16 NofHeaders = 0;  // headings among the rows, one for each channel
};

}  // namespace trendaro
