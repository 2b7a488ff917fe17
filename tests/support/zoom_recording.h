#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "support/recorder_builder.h"

namespace trendaro {

// A recording and its envelope, whose every sample is known: sample i (from 0) of channel c (from 1) is
// known_sample(c, i). 100 Hz, begun on 5 March 2021 at 12:34:56.
struct ZoomRecording {
  i32 rows = 20000;
  i32 factor = 10;  // samples a pair
  i16 channels = 2;
  std::vector<std::string> units = {};  // of the first channels; the others have V

  static f64 known_sample(i16 channel, i64 i) {
    return static_cast<f64>((i * (37 + 2 * channel) + 11 * channel) % 20001 - 10000);
  }

  [[nodiscard]] FileBuilder original() const {
    RecorderBuilder file = header(6001, rows, 1);
    for (i32 row = 0; row < rows; ++row)
      for (i16 channel = 1; channel <= channels; ++channel)
        file.data.i16_field(static_cast<i16>(known_sample(channel, row)));
    return file.build();
  }

  // Lowest and highest sample of each block, of every channel.
  [[nodiscard]] FileBuilder envelope() const {
    RecorderBuilder file = header(6002, rows / factor, 3);
    file.reduce_factor = factor;
    for (i32 block = 0; block < rows / factor; ++block)
      for (i16 channel = 1; channel <= channels; ++channel) {
        f64 low = known_sample(channel, i64{block} * factor);
        f64 high = low;
        for (i32 i = 1; i < factor; ++i) {
          low = std::min(low, known_sample(channel, i64{block} * factor + i));
          high = std::max(high, known_sample(channel, i64{block} * factor + i));
        }
        file.data.i16_field(static_cast<i16>(low)).i16_field(static_cast<i16>(high));
      }
    return file.build();
  }

 private:
  [[nodiscard]] RecorderBuilder header(i32 id, i32 row_count, i32 mask) const {
    RecorderBuilder file{.id = id, .row_count = row_count};
    for (i16 channel = 1; channel <= channels; ++channel) {
      RecorderEntry entry{
          .channel = channel, .mask = mask, .name_field = quoted_name("Kanal " + std::to_string(channel))};
      const auto place = static_cast<std::size_t>(channel - 1);
      if (place < units.size()) entry.unit = units[place];
      file.entries.push_back(entry);
    }
    return file;
  }
};

}  // namespace trendaro
