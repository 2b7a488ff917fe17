#pragma once

#include <optional>
#include <string>
#include <vector>

#include "support/record_builder.h"

namespace trendaro {

struct BlockChannel {
  std::string name = "Weg";
  std::string unit = "mm";
  std::string date = "05.03.2021";
  std::string time = "12:00:00";
  std::string comment = "Bemerkung";
  f64 channel_date = 44260.5;
  ChannelParamRecord record = {};
};

// The header of a block file; blocks are appended to what it builds.
struct BlockFileLayout {
  i16 id = 5056;
  std::string comment = "Kommentar";
  std::vector<BlockChannel> channels = {};
  std::optional<i32> channel_count = {};  // in place of the number of channels
  std::size_t gap = 0;                    // bytes between header and first block, in id 5056

  [[nodiscard]] FileBuilder header() const {
    FileBuilder file;
    file.i16_field(id).i16_field(77);
    file.i32_field(channel_count.value_or(static_cast<i32>(channels.size())));
    const std::size_t offset_place = file.size();
    if (id == 5056) file.i32_field(0).counted_text(comment);
    i16 number = 1;
    for (const BlockChannel& channel : channels) {
      file.i16_field(number++).counted_text(channel.name).counted_text(channel.unit);
      if (id == 5056)
        file.counted_text(channel.comment).f64_field(channel.channel_date);
      else
        file.counted_text(channel.date).counted_text(channel.time);
      file.i32_field(152).bytes_field(param_record_bytes(channel.record));
    }
    if (id == 5056) file.zeros(gap).patch(offset_place, static_cast<i32>(file.size()));
    return file;
  }
};

// A block with its length ahead.
inline void add_block(FileBuilder& file, const std::vector<f64>& values) {
  file.i32_field(static_cast<i32>(values.size())).values(values);
}

}  // namespace trendaro
