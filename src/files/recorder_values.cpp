#include "files/recorder_values.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "app/run_time_error.h"
#include "files/byte_view.h"

namespace trendaro {
namespace {

constexpr f32 kRawScale32 = 1.0F / 1966080000.0F;
constexpr f32 kRawScale16 = 256.0F / 7680000.0F;

constexpr i64 kReadBytes = i64{1} << 21;
constexpr i64 kFreeRows = 1'000'000;
constexpr i64 kClaimedToPresentRows = 8;

bool is_known_format(i32 sample_format) {
  return sample_format == kSamplesI32 || sample_format == kSamplesI16 || sample_format == kSamplesF32;
}

i64 sample_bytes(const RecorderHeader& header) {
  if (header.of_doubles()) return sizeof(f64);
  return header.sample_format == kSamplesI16 ? sizeof(i16) : sizeof(i32);
}

i64 row_bytes(const RecorderHeader& header) {
  return static_cast<i64>(header.columns.size()) * sample_bytes(header);
}

// Goes through the rows `first` and following in large reads. `read_row(bytes)` gives the value of a row from
// the bytes at its `needed` first bytes behind `place`, the place in the file of row 0.
template <typename ReadRow>
void read_rows(const InputFile& file, i64 place, i64 stride, i64 needed, i64 first,
               std::span<f64> destination, ReadRow read_row) {
  const i64 count = static_cast<i64>(destination.size());
  const i64 rows_at_once = std::min(count, std::max<i64>(1, kReadBytes / stride));
  i64 done = 0;
  if (count > 0 && place >= 0 && file.size() > place) {
    std::vector<u8> buffer(static_cast<std::size_t>((rows_at_once - 1) * stride + needed));
    while (done < count) {
      const i64 rows = std::min(rows_at_once, count - done);
      const ReadResult read =
          file.read_at(place + (first + done) * stride, buffer.data(), (rows - 1) * stride + needed);
      const i64 bytes = delivered_bytes(read);
      const i64 whole = bytes < needed ? 0 : (bytes - needed) / stride + 1;
      const u8* row = buffer.data();
      f64* value = destination.data() + done;
      for (i64 i = 0; i < whole; ++i, row += stride) value[i] = read_row(row);
      done += whole;
      if (whole < rows) break;
    }
  }
  std::fill(destination.begin() + done, destination.end(), 0.0);
}

// The columns that a value is made of: its own, and behind it that of the carry in a time channel.
struct Source {
  const InputFile& file;
  i64 place;   // of the sample in row 0
  i64 stride;  // from row to row
  i64 first;   // row of the first value
  const RecorderColumn& column;
  const RecorderColumn* carry;  // null outside of time channels
};

template <typename Raw, typename Physical>
void read_samples(const Source& source, std::span<f64> destination, Physical physical) {
  const f32 scale = source.column.scale;
  const f32 offset = source.column.offset;
  if (source.carry == nullptr) {
    read_rows(source.file, source.place, source.stride, sizeof(Raw), source.first, destination,
              [=](const u8* row) { return physical(number_at<Raw>(row), scale, offset); });
    return;
  }
  const f32 carry_scale = source.carry->scale;
  const f32 carry_offset = source.carry->offset;
  read_rows(source.file, source.place, source.stride, 2 * sizeof(Raw), source.first, destination,
            [=](const u8* row) {
              return physical(number_at<Raw>(row), scale, offset) +
                     physical(number_at<Raw>(row + sizeof(Raw)), carry_scale, carry_offset);
            });
}

void read_raw_values(const Source& source, i32 sample_format, std::span<f64> destination) {
  switch (sample_format) {
    case kSamplesI32:
      read_samples<i32>(source, destination,
                        [](i32 raw, f32 scale, f32 offset) { return physical_i32(raw, scale, offset); });
      break;
    case kSamplesI16:
      if (source.carry != nullptr)
        read_samples<u16>(source, destination, [](u16 raw, f32 scale, f32 offset) {
          return physical_time_word(raw, scale, offset);
        });
      else
        read_samples<i16>(source, destination,
                          [](i16 raw, f32 scale, f32 offset) { return physical_i16(raw, scale, offset); });
      break;
    case kSamplesF32:
      read_samples<f32>(source, destination, [](f32 raw, f32, f32) { return f64{raw}; });
      break;
  }
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

f64 physical_i32(i32 raw, f32 scale, f32 offset) {
  return f64{kRawScale32} * raw * f64{scale} - f64{offset};
}

f64 physical_i16(i16 raw, f32 scale, f32 offset) {
  return f64{kRawScale16 * static_cast<f32>(raw) * scale - offset};
}

f64 physical_time_word(u16 raw, f32 scale, f32 offset) {
  return f64{kRawScale16} * raw * f64{scale} - f64{offset};
}

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
  const auto index = static_cast<std::size_t>(channel) - 1;
  const bool is_time = header.columns[index].entry_channel == kTimeChannel;
  if (header.of_doubles()) {
    read_double_column(file, header, channel, first, destination);
    if (is_time) add_double_values(file, header, channel + 1, first, destination);
    return;
  }
  if (destination.empty()) return;
  if (header.data_offset < 0 || !is_known_format(header.sample_format)) {
    std::fill(destination.begin(), destination.end(), 0.0);
    return;
  }
  if (is_time && index + 1 >= header.columns.size()) throw RunTimeError{kIndexOutOfRange};
  const i64 place = header.data_offset + static_cast<i64>(index) * sample_bytes(header);
  // In a reduced recording the column behind a time column may be the other half of its envelope; it is added
  // all the same.
  const RecorderColumn* carry = is_time ? &header.columns[index + 1] : nullptr;
  read_raw_values({file, place, row_bytes(header), first, header.columns[index], carry}, header.sample_format,
                  destination);
}

void read_double_column(const InputFile& file, const RecorderHeader& header, i32 channel, i64 first,
                        std::span<f64> destination) {
  // Rows behind the last one would belong to the next channel.
  const i64 rows = std::max<i64>(0, header.row_count - first);
  const i64 wanted = std::min<i64>(static_cast<i64>(destination.size()), rows);
  const i64 place = header.data_offset + (i64{channel - 1} * header.row_count + first) * i64{sizeof(f64)};
  i64 there = 0;
  if (header.data_offset >= 0) {
    const ReadResult read = file.read_at(place, destination.data(), wanted * i64{sizeof(f64)});
    there = delivered_bytes(read) / i64{sizeof(f64)};
  }
  std::fill(destination.begin() + there, destination.end(), 0.0);
}

}  // namespace trendaro
