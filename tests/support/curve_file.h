#pragma once

#include <string>
#include <vector>

#include "support/file_builder.h"

namespace trendaro {

// A channel of a standard file made for the redraws.
struct CurveChannel {
  std::string name = "Kraft";
  std::string unit = "kN";
  std::vector<f64> samples = {};
  f64 interval = 1;  // milliseconds
  f64 start = 0;     // day number
};

// A standard file of id 5012; with a `reduce_block` its samples are minima and maxima.
inline FileBuilder curve_file(const std::vector<CurveChannel>& channels, i32 reduce_block = 0) {
  FileBuilder file;
  file.i16_field(5012).i32_field(0).counted_text("");
  for (int text = 0; text < 32; ++text) file.i16_field(0);
  file.i16_field(static_cast<i16>(channels.size())).i32_field(0);
  const std::size_t offsets = file.size();
  file.zeros(4 * channels.size()).i32_field(reduce_block);
  for (std::size_t i = 0; i < channels.size(); ++i) {
    const CurveChannel& channel = channels[i];
    file.i16_field(static_cast<i16>(i + 1));
    file.patch(offsets + 4 * i, static_cast<i32>(file.size()));
    file.i32_field(static_cast<i32>(channel.samples.size()));
    file.counted_text(channel.name).counted_text(channel.unit).counted_text("");
    file.i16_field(0).i16_field(8).f64_field(channel.start).i32_field(152);
    file.f64_field(channel.start).f64_field(channel.interval).zeros(152 - 16);
    file.u8_field(0).u8_field(0).u8_field(0).i16_field(0).i16_field(0).i32_field(0);
  }
  file.patch(2, static_cast<i32>(file.size()));
  for (const CurveChannel& channel : channels) file.values(channel.samples);
  return file;
}

}  // namespace trendaro
