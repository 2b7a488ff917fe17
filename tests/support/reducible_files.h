#pragma once

#include <string>
#include <vector>

#include "support/file_builder.h"

namespace trendaro {

// One channel of a file that the reducer takes.
struct SampleChannel {
  std::string name = "Druck";
  std::string unit = "bar";
  std::string comment = {};
  std::vector<f64> samples = {};
  i16 kind = 0;  // of the samples, as the channel header tells it
};

// A parameter record whose bytes can be told apart.
inline std::string numbered_record(std::size_t bytes = 152) {
  std::string record(bytes, '\0');
  for (std::size_t i = 0; i < bytes; ++i) record[i] = static_cast<char>(i % 120 + 1);
  if (record.size() > 122) record[122] = 0;  // blocks carry their own lengths
  return record;
}

// A standard file of id 5010 to 5012 as the host writes it. `points` are the numbers in the channel headers
// (empty: those of the samples), `gap` is the number of bytes between the last header and the data.
struct StandardFile {
  i16 id = 5012;
  std::string file_comment = "Kommentar";
  i32 padded_length = 0;
  i32 reduce_block = 0;
  std::size_t gap = 0;
  std::vector<SampleChannel> channels;
  std::vector<i32> points = {};

  [[nodiscard]] FileBuilder header() const {
    FileBuilder file;
    file.i16_field(id).i32_field(0).counted_text(file_comment);
    if (id >= 5011)
      for (int text = 0; text < 32; ++text) {
        if (text % 3 == 0)
          file.counted_text("Reserve " + std::to_string(text));
        else
          file.i16_field(text % 3 == 1 ? 0 : -1);
      }
    file.i16_field(static_cast<i16>(channels.size())).i32_field(padded_length);
    const std::size_t offsets = file.size();
    file.zeros(4 * channels.size()).i32_field(reduce_block);
    for (std::size_t i = 0; i < channels.size(); ++i) {
      file.i16_field(static_cast<i16>(i + 1));
      file.patch(offsets + 4 * i, static_cast<i32>(file.size()));
      append_channel_header(file, i);
    }
    for (std::size_t byte = 0; byte < gap; ++byte) file.u8_field(static_cast<u8>(byte + 200));
    file.patch(2, static_cast<i32>(file.size()));
    return file;
  }
  [[nodiscard]] FileBuilder build() const {
    FileBuilder file = header();
    for (const SampleChannel& channel : channels) file.values(channel.samples);
    return file;
  }

 private:
  void append_channel_header(FileBuilder& file, std::size_t index) const {
    const SampleChannel& channel = channels[index];
    file.i32_field(points.empty() ? static_cast<i32>(channel.samples.size()) : points[index]);
    file.counted_text(channel.name).counted_text(channel.unit).counted_text(channel.comment);
    file.i16_field(channel.kind)
        .i16_field(8)
        .f64_field(44000.25)
        .i32_field(152)
        .bytes_field(numbered_record());
    file.u8_field(2).u8_field(1).u8_field(2).f64_field(0.5).f64_field(2).i16_field(0).i16_field(0);
    if (id >= 5012) file.i32_field(5).bytes_field("extra");
  }
};

// A block file of id 5056, its values in rounds of one block a channel.
struct BlockFile {
  std::string file_comment = "Blockdatei";
  std::vector<SampleChannel> channels;
  std::vector<std::size_t> block_lengths = {100};  // of the rounds in turn, repeated from the start
  i32 param_length = 152;

  [[nodiscard]] FileBuilder header() const {
    FileBuilder file;
    file.i16_field(5056).i16_field(0x5A5A).i32_field(static_cast<i32>(channels.size())).i32_field(0);
    file.counted_text(file_comment);
    for (std::size_t i = 0; i < channels.size(); ++i) {
      const SampleChannel& channel = channels[i];
      file.i16_field(static_cast<i16>(70 + i)).counted_text(channel.name).counted_text(channel.unit);
      file.counted_text(channel.comment).f64_field(44000.5).i32_field(param_length);
      file.bytes_field(numbered_record(static_cast<std::size_t>(param_length)));
    }
    file.patch(8, static_cast<i32>(file.size()));
    return file;
  }
  [[nodiscard]] FileBuilder build() const {
    FileBuilder file = header();
    std::vector<std::size_t> done(channels.size(), 0);
    bool left = !channels.empty();
    for (std::size_t round = 0; left; ++round) {
      left = false;
      for (std::size_t i = 0; i < channels.size(); ++i) {
        const auto& samples = channels[i].samples;
        const std::size_t count =
            std::min(block_lengths[round % block_lengths.size()], samples.size() - done[i]);
        const auto begin = samples.begin() + static_cast<std::ptrdiff_t>(done[i]);
        file.i32_field(static_cast<i32>(count)).values({begin, begin + static_cast<std::ptrdiff_t>(count)});
        done[i] += count;
        left = left || done[i] < samples.size();
      }
    }
    return file;
  }
};

}  // namespace trendaro
