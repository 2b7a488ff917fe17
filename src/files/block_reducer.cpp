#include "files/block_reducer.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <limits>
#include <span>

#include "app/paths.h"
#include "app/run_time_error.h"
#include "files/byte_copy.h"
#include "files/pair_search.h"
#include "files/reduce_job.h"

namespace trendaro {
namespace {

constexpr i16 kReducedId = 5010;
constexpr i64 kDataOffsetPlace = 2;
constexpr i32 kLongestBlock = 2049;
constexpr i16 kNumericSamples = 0;
constexpr i16 kSampleBytes = 8;
// The tag of a date value, stored where the channel's date would stand: no usable day number.
constexpr i16 kDateTag = 7;

using BlockBuffer = std::array<f64, kLongestBlock>;

void require_source(bool delivered) {
  if (!delivered) throw RunTimeError{kDeviceError};
}

template <typename Number>
i16 as_i16(Number value) {
  if (value > std::numeric_limits<i16>::max()) throw RunTimeError{kOverflow};
  return static_cast<i16>(value);
}

// Places of the source that the header names.
struct BlockLayout {
  i16 channel_count = 0;
  i32 data_offset = 0;
};

BlockLayout copy_file_header(ReduceJob& job) {
  BlockLayout layout;
  static_cast<void>(job.source.read_i16());
  const i32 channel_count = job.source.read_i32();
  layout.data_offset = job.source.read_i32();
  job.target.write_i16(kReducedId);
  job.target.write_i32(0);  // place of the data, known at the end
  const i16 comment_length = job.source.read_i16();
  job.target.write_counted_bytes(comment_length > 0 ? job.source.read_bytes(comment_length) : std::string());
  require_source(job.source.ok() && channel_count >= 0);
  layout.channel_count = as_i16(channel_count);
  job.target.write_i16(layout.channel_count);
  job.target.write_i32(0);  // padded length
  // The reduced form of a block file names no channel offsets.
  for (i16 channel = 0; channel < layout.channel_count; ++channel) job.target.write_i32(0);
  job.target.write_i32(job.block);
  return layout;
}

void write_empty_extra_record(ByteWriter& target) {
  for (int byte = 0; byte < 3; ++byte) target.write_u8(0);
  target.write_i16(0);
  target.write_i16(0);
}

void write_date_tag(ByteWriter& target) {
  target.write_i16(kDateTag);
  for (int word = 0; word < 3; ++word) target.write_i16(0);
}

// Turns one channel header into that of a standard file; `number` counts from 1.
ReducedChannel copy_channel_header(ReduceJob& job, i16 number) {
  ReducedChannel channel;
  static_cast<void>(job.source.read_i16());
  const std::string name = job.source.read_counted_bytes();
  const std::string unit = job.source.read_counted_bytes();
  const std::string comment = job.source.read_counted_bytes();
  static_cast<void>(job.source.read_f64());
  const i32 param_length = job.source.read_i32();
  job.target.write_i16(number);
  channel.points_at = as_i16(job.target.position());
  job.target.write_i32(0);
  job.target.write_counted_bytes(right_trimmed(name));
  job.target.write_counted_bytes(right_trimmed(unit));
  job.target.write_counted_bytes(comment);
  job.target.write_i16(kNumericSamples);
  job.target.write_i16(kSampleBytes);
  write_date_tag(job.target);
  job.target.write_i32(param_length);
  copy_bytes(job.source, job.target, param_length);
  write_empty_extra_record(job.target);
  require_source(job.source.ok());
  return channel;
}

std::vector<ReducedChannel> copy_channel_headers(ReduceJob& job, i16 channel_count) {
  std::vector<ReducedChannel> channels;
  for (i16 number = 1; number <= channel_count; ++number)
    channels.push_back(copy_channel_header(job, number));
  return channels;
}

void append_block(ReducedChannel& channel, std::span<const f64> values, i32 block) {
  while (!values.empty()) {
    const std::size_t missing = static_cast<std::size_t>(block) - channel.window.size();
    const std::size_t count = std::min(missing, values.size());
    channel.window.insert(channel.window.end(), values.begin(), values.begin() + static_cast<i64>(count));
    values = values.subspan(count);
    if (count == missing) ReduceBlockWindow(channel, block);
  }
}

// Reads the next block into the buffer and gives its values; nothing for an empty block. At the end of the
// file `ended` is raised. A value that is cut short counts when more than half of it is there, or half of it
// behind an odd number of whole ones; it takes its missing bytes from the block before.
std::span<const f64> read_block(ByteCursor& source, BlockBuffer& buffer, bool& ended) {
  if (source.left() < i64{sizeof(i32)}) {
    ended = true;
    return {};
  }
  const i32 length = source.read_i32();
  require_source(source.ok());
  if (length <= 0) return {};
  if (length > kLongestBlock) throw RunTimeError{kIndexOutOfRange};
  const i64 bytes = std::min(i64{length} * kSampleBytes, source.left());
  ended = bytes == 0;
  require_source(source.read_into(buffer.data(), bytes).bytes == bytes);
  const f64 count = std::nearbyint(static_cast<f64>(bytes) / kSampleBytes);
  return std::span(buffer).first(static_cast<std::size_t>(count));
}

void read_rounds(ReduceJob& job, std::vector<ReducedChannel>& channels) {
  BlockBuffer buffer{};
  const f64 size = static_cast<f64>(job.source.size());
  bool ended = channels.empty();
  while (!ended) {
    for (ReducedChannel& channel : channels) {
      append_block(channel, read_block(job.source, buffer, ended), job.block);
      if (ended) break;
    }
    job.progress(static_cast<f64>(job.source.position()) / size);
  }
}

void write_results(ByteWriter& target, const std::vector<ReducedChannel>& channels) {
  for (const ReducedChannel& channel : channels) {
    if (channel.results.size() > std::numeric_limits<i32>::max()) throw RunTimeError{kOverflow};
    target.write_values(channel.results);
    target.patch_i32(channel.points_at, static_cast<i32>(channel.results.size()));
  }
}

}  // namespace

void ReduceBlockWindow(ReducedChannel& channel, i32 block) {
  assert(channel.window.size() == static_cast<std::size_t>(block));
  const ValuePair pair = find_pair(std::span(channel.window).first(static_cast<std::size_t>(block)));
  channel.results.push_back(pair.first);
  channel.results.push_back(pair.second);
  channel.window.clear();
}

ReduceStatus reduce_block_form(ReduceJob& job) {
  const BlockLayout layout = copy_file_header(job);
  std::vector<ReducedChannel> channels = copy_channel_headers(job, layout.channel_count);
  const i64 header_end = job.target.position();
  if (header_end > std::numeric_limits<i32>::max()) throw RunTimeError{kOverflow};
  require_source(job.source.seek(layout.data_offset));
  read_rounds(job, channels);
  job.target.patch_i32(kDataOffsetPlace, static_cast<i32>(header_end));
  write_results(job.target, channels);
  return ReduceStatus::Done;
}

}  // namespace trendaro
