#pragma once

#include <optional>
#include <string>
#include <vector>

#include "support/record_builder.h"

namespace trendaro {

// A channel of a standard file, as it is to stand there. Texts are the bytes of the file.
struct StandardChannel {
  std::string name = "Kraft";
  std::string unit = "kN";
  std::string date = "05.03.2021";
  std::string time = "12:00:00";
  std::string comment = "Bemerkung";
  i16 kind = 0;   // 1: `texts` are the samples
  i16 width = 8;  // SampleBytes
  f64 channel_date = 44260.5;
  ChannelParamRecord record = {};
  std::optional<std::string> record_bytes = {};  // in place of the record's own
  ChannelExtraRecord extra = {};
  std::string extension = {};
  std::vector<f64> values = {};
  std::vector<std::string> texts = {};
  std::optional<i32> points = {};  // in place of the number of samples
};

struct StandardFileLayout {
  i16 id = 5012;
  std::string comment = "Prüfstand";
  std::string reserved_text = {};  // each of the 32
  i32 padded_length = 0;
  i32 reduce_block = 0;
  std::vector<StandardChannel> channels = {};
  std::optional<i16> channel_count = {};  // in place of the number of channels

  [[nodiscard]] FileBuilder header() const {
    FileBuilder file;
    file.i16_field(id);
    if (id >= 5009) file.i32_field(0);
    if (id >= 5005) file.counted_text(comment);
    if (id >= 5011)
      for (int text = 0; text < 32; ++text) file.counted_text(reserved_text);
    file.i16_field(channel_count.value_or(static_cast<i16>(channels.size())));
    if (id >= 5010) {
      file.i32_field(padded_length);
      file.zeros(4 * channels.size());
      file.i32_field(reduce_block);
    }
    i16 number = 1;
    for (const StandardChannel& channel : channels) add_header(file, channel, number++);
    return file;
  }

  // Header and samples, each channel at its own length.
  [[nodiscard]] FileBuilder build() const {
    FileBuilder file = header();
    for (const StandardChannel& channel : channels) {
      file.values(channel.values);
      for (const std::string& text : channel.texts) file.counted_text(text);
    }
    return file;
  }

 private:
  void add_header(FileBuilder& file, const StandardChannel& channel, i16 number) const {
    if (id >= 5006) file.i16_field(number);
    file.i32_field(channel.points.value_or(
        static_cast<i32>(channel.kind == 1 ? channel.texts.size() : channel.values.size())));
    file.counted_text(channel.name).counted_text(channel.unit);
    if (id <= 5009) file.counted_text(channel.date).counted_text(channel.time);
    file.counted_text(channel.comment);
    if (id >= 5007) file.i16_field(channel.kind).i16_field(channel.width);
    if (id >= 5010) file.f64_field(channel.channel_date);
    if (id >= 5008) {
      const std::string record = channel.record_bytes.value_or(param_record_bytes(channel.record));
      file.i32_field(static_cast<i32>(record.size())).bytes_field(record);
    }
    if (id >= 5009) file.bytes_field(extra_record_bytes(channel.extra));
    if (id >= 5012) file.i32_field(static_cast<i32>(channel.extension.size())).bytes_field(channel.extension);
  }
};

}  // namespace trendaro
