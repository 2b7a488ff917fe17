#pragma once

#include <string>
#include <vector>

#include "app/types.h"
#include "support/file_builder.h"

namespace trendaro {

// One entry of a recording's channel table, with its settings block.
struct RecorderEntry {
  i32 channel = 1;
  f32 scale = 30000;
  f32 offset = 0;
  std::string unit = "V";
  i32 mask = 1;
  std::string name_field = {};              // filled with blanks to 47 bytes
  FileBuilder settings = blank_settings();  // 225 bytes; the name field is laid over them

  static FileBuilder blank_settings() { return FileBuilder().zeros(225); }
};

// A recording field by field. Raw samples are appended to `data` as the format wants them.
struct RecorderBuilder {
  i32 id = 6001;
  i32 row_count = 0;
  i32 sample_format = 1255;
  i32 rate_code = 6308;   // 100 Hz
  i32 reduce_factor = 0;  // ids 6002 and 6012
  i32 gap = 0;            // bytes between the comments and the data
  std::vector<RecorderEntry> entries = {};
  std::string date = "Fri Mar 05 12:34:56 2021";
  std::string comment = "Kommentar";
  FileBuilder data = {};

  [[nodiscard]] bool is_reduced() const { return id == 6002 || id == 6012; }
  [[nodiscard]] i32 header_bytes() const {
    i32 size = 32 + 20 * static_cast<i32>(entries.size());
    for (const RecorderEntry& entry : entries)
      if (entry.channel < 17) size += 225;
    return size + 26 + 160;
  }
  [[nodiscard]] i32 data_offset() const { return header_bytes() + gap; }

  [[nodiscard]] FileBuilder build() const {
    FileBuilder file;
    file.i32_field(id).i32_field(static_cast<i32>(entries.size())).i32_field(0).i32_field(row_count);
    file.i32_field(sample_format).i32_field(rate_code);
    if (is_reduced()) file.i32_field(reduce_factor).i32_field(data_offset());
    if (!is_reduced()) file.i32_field(data_offset()).i32_field(0);
    for (const RecorderEntry& entry : entries) {
      file.i32_field(entry.channel).f32_field(entry.scale).f32_field(entry.offset);
      file.fixed_text(entry.unit, 4).i32_field(entry.mask);
    }
    for (const RecorderEntry& entry : entries) {
      if (entry.channel >= 17) continue;
      file.fixed_text(entry.name_field, 47).bytes_field(entry.settings.bytes().substr(47));
    }
    file.fixed_text(date, 26, '\0').fixed_text(comment, 160);
    file.zeros(static_cast<std::size_t>(gap)).bytes_field(data.bytes());
    return file;
  }
};

// A name field as the recorder writes it.
inline std::string quoted_name(const std::string& name) {
  return '"' + name + '"';
}

}  // namespace trendaro
