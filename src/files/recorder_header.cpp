#include "files/recorder_header.h"

#include <algorithm>
#include <limits>

#include "app/paths.h"
#include "app/run_time_error.h"
#include "app/text_codepage.h"
#include "files/file_conversions.h"
#include "files/recorder_settings.h"
#include "files/recorder_tables.h"

namespace trendaro {
namespace {

constexpr i32 kMostChannels = std::numeric_limits<i16>::max();
constexpr i64 kDateTextBytes = 24;
constexpr std::size_t kCommentTextBytes = 80;
constexpr std::size_t kUnitBytes = 4;
constexpr i32 kSubChannelMask = 0xFF0000;
constexpr i32 kHighestPlainMask = 256;

bool is_recorder_id(i32 id) {
  return id == kRecording || id == kReducedRecording || id == kRecordingOfDoubles ||
         id == kReducedRecordingOfDoubles;
}

bool is_reduced(i32 id) {
  return id == kReducedRecording || id == kReducedRecordingOfDoubles;
}

std::vector<u8> read_start(const InputFile& file, i64 count) {
  std::vector<u8> bytes(static_cast<std::size_t>(std::min(count, file.size())));
  const ReadResult read = file.read_at(0, bytes.data(), static_cast<i64>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(delivered_bytes(read)));
  return bytes;
}

void read_fixed_fields(RecorderHeader& header, const ByteView& view) {
  header.entry_count = view.number<i32>(4);
  header.row_count = view.number<i32>(12);
  header.sample_format = view.number<i32>(16);
  header.rate_hertz = whole_recorder_rate(view.number<i32>(20));
  header.reduce_factor = is_reduced(header.id) ? view.number<i32>(24) : 0;
  header.data_offset = view.number<i32>(is_reduced(header.id) ? 28 : 24);

  if (header.entry_count < 0) throw RunTimeError{kIndexOutOfRange};
  const i32 channels_of_entry = header.id == kReducedRecording ? 2 : 1;
  if (header.entry_count > kMostChannels / channels_of_entry) throw RunTimeError{kOverflow};
  header.channel_count = static_cast<i16>(header.entry_count * channels_of_entry);
}

// The fields that all columns of a table entry have in common.
RecorderColumn read_entry(const RecorderHeader& header, const ByteView& view, i32 entry) {
  const i64 place = kRecorderFixedBytes + kRecorderEntryBytes * entry;
  RecorderColumn column;
  column.entry_channel = view.number<i32>(place);
  column.scale = view.number<f32>(place + 4);
  if (IsAllOnes(column.scale)) column.scale = kDefaultRecorderScale;
  column.offset = view.number<f32>(place + 8);
  column.unit = utf8_from_codepage(right_trimmed(view.text(place + 12, kUnitBytes)));
  if (column.has_settings())
    column.settings_block =
        kRecorderFixedBytes + kRecorderEntryBytes * header.entry_count + kSettingsBytes * entry;
  return column;
}

// Makes the columns of one entry. `sub_channel` passes from column to column: a name takes it as it stood
// ahead of the column's own mask.
void add_columns(RecorderHeader& header, const ByteView& view, i32 entry, i32& sub_channel) {
  const i32 mask = view.number<i32>(kRecorderFixedBytes + kRecorderEntryBytes * entry + 16);
  const RecorderColumn common = read_entry(header, view, entry);
  const std::string_view field =
      common.has_settings() ? view.text(common.settings_block, kNameFieldBytes) : std::string_view{};
  for (std::size_t signal = 0; signal < kRecorderSignals.size(); ++signal) {
    if ((mask & (1 << signal)) == 0) continue;
    if (header.columns.size() >= static_cast<std::size_t>(kMostChannels)) throw RunTimeError{kOverflow};
    RecorderColumn& column = header.columns.emplace_back(common);
    column.signal = signal;
    column.name = split_recorder_name(field, column.entry_channel, sub_channel);
    column.name_field = utf8_from_codepage(field);
    if (mask > kHighestPlainMask) sub_channel = (mask & kSubChannelMask) >> 16;
    column.sub_channel = sub_channel;
  }
}

// The comment begins with what is left of the date field.
void read_closing_block(RecorderHeader& header, const ByteView& view, i32 carry_entries) {
  const i64 place = kRecorderFixedBytes + kRecorderEntryBytes * header.entry_count +
                    kSettingsBytes * (header.entry_count - carry_entries);
  header.date_text = CutAtNul(utf8_from_codepage(view.text(place, kDateTextBytes)));
  header.comment_text = utf8_from_codepage(view.text(place + kDateTextBytes, kCommentTextBytes));
}

}  // namespace

std::optional<RecorderHeader> read_recorder_header(const InputFile& file) {
  RecorderHeader header;
  const ReadResult id = file.read_at(0, &header.id, sizeof header.id);
  if (id.failed || id.bytes < i64{sizeof header.id} || !is_recorder_id(header.id)) return std::nullopt;
  header.bytes = read_start(file, kRecorderFixedBytes);
  read_fixed_fields(header, ByteView{header.bytes});

  header.bytes =
      read_start(file, kRecorderFixedBytes + (kRecorderEntryBytes + kSettingsBytes) * header.entry_count +
                           kRecorderDateBytes + kRecorderCommentBytes);
  const ByteView view{header.bytes};
  i32 sub_channel = 0;
  i32 carry_entries = 0;
  for (i32 entry = 0; entry < header.entry_count; ++entry) {
    add_columns(header, view, entry, sub_channel);
    const i64 place = kRecorderFixedBytes + kRecorderEntryBytes * entry;
    if (view.number<i32>(place) == kTimeCarryChannel) ++carry_entries;
  }
  header.channel_count = static_cast<i16>(header.channel_count - carry_entries);
  read_closing_block(header, view, carry_entries);
  return header;
}

}  // namespace trendaro
