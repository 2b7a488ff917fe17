#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/types.h"
#include "files/byte_view.h"
#include "files/input_file.h"
#include "files/recorder_name.h"

namespace trendaro {

// File ids of recordings. The reduced ones hold the envelope of each signal as two columns; the f64 ones hold
// physical values, channel after channel, the others rows of raw samples.
inline constexpr i32 kRecording = 6001;
inline constexpr i32 kReducedRecording = 6002;
inline constexpr i32 kRecordingOfDoubles = 6011;
inline constexpr i32 kReducedRecordingOfDoubles = 6012;

// Values of RecorderHeader::sample_format. Any other value means that no values can be read.
inline constexpr i32 kSamplesI32 = 1253;
inline constexpr i32 kSamplesI16 = 1255;
inline constexpr i32 kSamplesF32 = 1257;

// Layout of the header: fixed fields, entries of the channel table, settings blocks, date and comments.
inline constexpr i64 kRecorderFixedBytes = 32;
inline constexpr i64 kRecorderEntryBytes = 20;
inline constexpr i64 kRecorderDateBytes = 26;
inline constexpr i64 kRecorderCommentBytes = 160;

// What an entry without a scale of its own has.
inline constexpr f32 kDefaultRecorderScale = 7680000.0F;

// One column of a recording, that is one output channel.
struct RecorderColumn {
  i32 entry_channel = 0;  // 1 to 16 hardware, 17 time, 18 carry of the time
  f32 scale = 0;
  f32 offset = 0;
  i64 settings_block = 0;  // offset in the header; only where has_settings()
  i32 sub_channel = 0;     // as it stands after this column's mask
  std::size_t signal = 0;  // bit of the signal mask, index in kRecorderSignals
  RecorderName name;
  std::string name_field;  // whole, UTF-8; empty for time channels
  std::string unit;        // UTF-8, right-trimmed

  [[nodiscard]] bool has_settings() const { return entry_channel < kTimeChannel; }
};

// The description of a recording. Fields that a file is too short for are zero or empty.
struct RecorderHeader {
  i32 id = 0;
  i32 entry_count = 0;
  i32 row_count = 0;  // samples per column, as the file claims
  i32 sample_format = 0;
  i32 rate_hertz = 1;     // whole, at least 1
  i32 reduce_factor = 0;  // 0 in a recording that is not reduced
  i32 data_offset = 0;
  i16 channel_count = 0;                // twice the entries with id 6002; one less for each time-carry entry
  std::vector<RecorderColumn> columns;  // index 0 is output channel 1
  std::string date_text;
  std::string comment_text;
  std::vector<u8> bytes;  // the header as it stands in the file, as far as it is there

  // True when each column is an f64 array of its own.
  [[nodiscard]] bool of_doubles() const {
    return id == kRecordingOfDoubles || id == kReducedRecordingOfDoubles;
  }
  // Milliseconds between samples.
  [[nodiscard]] f64 interval() const { return 1000.0 / rate_hertz; }
};

// Reads the header; nothing when the file does not begin with the id of a recording, or the id cannot be
// read. Reads no more than the header, and no more than the file holds. Throws RunTimeError for counts that
// no recording can have (a negative one, or channel numbers beyond i16) and for an error of the device behind
// the id.
std::optional<RecorderHeader> read_recorder_header(const InputFile& file);

}  // namespace trendaro
