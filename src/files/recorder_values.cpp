#include "files/recorder_values.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "app/run_time_error.h"
#include "files/raw_column.h"

namespace trendaro {
namespace {

constexpr i64 kReadBytes = i64{1} << 21;
// Small enough that the rows are still in the processor's cache when the next column is looked at.
constexpr i64 kPassBytes = i64{1} << 19;
constexpr i64 kPassRows = i64{1} << 14;
constexpr i64 kFreeRows = 1'000'000;
constexpr i64 kClaimedToPresentRows = 8;

// Reads the values of one column in large reads. What lies behind the end of the file, or behind an error of
// the device, is 0.
void read_raw_column(const InputFile& file, const RecorderHeader& header, const RawColumn& column, i64 first,
                     std::span<f64> destination) {
  const i64 count = static_cast<i64>(destination.size());
  const i64 stride = row_bytes(header);
  const i64 place = header.data_offset + column.offset;
  const i64 rows_at_once = std::min(count, std::max<i64>(1, kReadBytes / stride));
  bool ended = file.size() <= place;
  bool failed = false;
  std::vector<u8> buffer(ended ? 0 : static_cast<std::size_t>(rows_at_once * stride));
  i64 done = 0;
  while (!ended && done < count) {
    const i64 rows = std::min(rows_at_once, count - done);
    const ReadResult read =
        file.read_at(place + (first + done) * stride, buffer.data(), (rows - 1) * stride + column.needed);
    const i64 whole = whole_rows(column, stride, read.bytes);
    decode_column(column, buffer.data(), stride,
                  destination.subspan(static_cast<std::size_t>(done), static_cast<std::size_t>(whole)));
    done += whole;
    ended = whole < rows;
    failed = read.failed;
  }
  std::fill(destination.begin() + done, destination.end(), 0.0);
  if (failed) throw RunTimeError{kDeviceError};
}

void add_double_values(const InputFile& file, const RecorderHeader& header, i32 channel, i64 first,
                       std::span<f64> destination) {
  std::vector<f64> carry(std::min<std::size_t>(destination.size(), kReadBytes / sizeof(f64)));
  for (std::size_t done = 0; done < destination.size();) {
    const std::size_t count = std::min(carry.size(), destination.size() - done);
    read_double_column(file, header, channel, first + static_cast<i64>(done), {carry.data(), count});
    for (std::size_t i = 0; i < count; ++i) destination[done + i] += carry[i];
    done += count;
  }
}

}  // namespace

bool is_credible_row_count(i64 claimed, i64 there) {
  return claimed <= kFreeRows + kClaimedToPresentRows * there;
}

i64 row_count_to_hold(const InputFile& file, const RecorderHeader& header) {
  if (header.row_count < 0) throw RunTimeError{kIndexOutOfRange};
  const i64 data_bytes = std::max<i64>(0, file.size() - std::max(0, header.data_offset));
  const i64 rows_there = data_bytes / std::max<i64>(1, row_bytes(header));
  if (!is_credible_row_count(header.row_count, rows_there)) throw RunTimeError{kOutOfMemory};
  return header.row_count;
}

void read_recorder_values(const InputFile& file, const RecorderHeader& header, i32 channel, i64 first,
                          std::span<f64> destination) {
  if (header.of_doubles()) {
    read_double_column(file, header, channel, first, destination);
    if (header.columns[static_cast<std::size_t>(channel) - 1].entry_channel == kTimeChannel)
      add_double_values(file, header, channel + 1, first, destination);
    return;
  }
  if (destination.empty()) return;
  if (!has_raw_values(header)) {
    std::fill(destination.begin(), destination.end(), 0.0);
    return;
  }
  read_raw_column(file, header, find_raw_column(header, channel), first, destination);
}

void pass_raw_columns(const InputFile& file, const RecorderHeader& header, std::span<const i16> channels,
                      const TakeColumn& take) {
  const i64 rows = row_count_to_hold(file, header);
  if (rows == 0) return;
  std::vector<RawColumn> columns;
  if (has_raw_values(header))
    for (const i16 channel : channels) columns.push_back(find_raw_column(header, channel));
  const i64 stride = row_bytes(header);
  const i64 rows_at_once = std::min(rows, std::clamp<i64>(kPassBytes / stride, 1, kPassRows));
  std::vector<u8> buffer(static_cast<std::size_t>(rows_at_once * stride));
  std::vector<f64> run(static_cast<std::size_t>(rows_at_once));
  bool failed = false;
  for (i64 first = 0; first < rows; first += rows_at_once) {
    const i64 count = std::min(rows_at_once, rows - first);
    const std::span<f64> values(run.data(), static_cast<std::size_t>(count));
    const ReadResult read =
        columns.empty() ? ReadResult{}
                        : file.read_at(header.data_offset + first * stride, buffer.data(), count * stride);
    for (std::size_t i = 0; i < channels.size(); ++i) {
      std::size_t whole = 0;
      if (!columns.empty()) {
        whole = static_cast<std::size_t>(whole_rows(columns[i], stride, read.bytes - columns[i].offset));
        decode_column(columns[i], buffer.data() + columns[i].offset, stride, values.first(whole));
      }
      std::fill(values.begin() + static_cast<std::ptrdiff_t>(whole), values.end(), 0.0);
      take(i, first, values);
    }
    failed = failed || read.failed;
    if (failed) columns.clear();
  }
  if (failed) throw RunTimeError{kDeviceError};
}

void read_double_column(const InputFile& file, const RecorderHeader& header, i32 channel, i64 first,
                        std::span<f64> destination) {
  // Rows behind the last one would belong to the next channel.
  const i64 rows = std::max<i64>(0, header.row_count - first);
  const i64 wanted = std::min<i64>(static_cast<i64>(destination.size()), rows);
  const i64 place = header.data_offset + (i64{channel - 1} * header.row_count + first) * i64{sizeof(f64)};
  ReadResult read;
  if (header.data_offset >= 0) read = file.read_at(place, destination.data(), wanted * i64{sizeof(f64)});
  std::fill(destination.begin() + read.bytes / i64{sizeof(f64)}, destination.end(), 0.0);
  if (read.failed) throw RunTimeError{kDeviceError};
}

}  // namespace trendaro
