#pragma once

#include <string>

#include "app/types.h"

namespace trendaro {

// What a header pass keeps aside of the requested channel, for the database channel that its values may go
// to. Texts are UTF-8.
struct KeptTexts {
  bool found = false;  // the file has the requested channel
  std::string name;
  std::string unit;
  std::string comment;
  std::string date;       // DateText of older files
  std::string time;       // TimeText of older files
  f64 channel_date = 0;   // ChannelDate of newer files, a day number
  bool has_date = false;  // channel_date was in the file
};

}  // namespace trendaro
