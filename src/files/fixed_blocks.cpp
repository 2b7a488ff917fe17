#include "files/fixed_blocks.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "app/run_time_error.h"
#include "files/block_walk.h"
#include "files/sample_reading.h"

namespace trendaro {
namespace {

constexpr i64 kPrefixBytes = 4;

// Where the blocks of one channel are taken from. The length ahead of a block is never stepped over, so each
// read begins on it, and a round is one block longer than the blocks of all channels; that is how these files
// are read.
struct FixedPlaces {
  i64 first = 0;         // position of the first read
  i64 block_values = 0;  // values of a block; 0 or less: there are none
  i64 stride = 0;        // bytes from one read to the next

  [[nodiscard]] i64 block_bytes() const { return block_values * kSampleBytes; }
};

FixedPlaces find_places(const LoaderResult& result, ByteCursor& cursor, const BlockHeader& header,
                        i16 channel) {
  FixedPlaces places;
  cursor.seek(header.header_end);
  places.block_values = cursor.read_i32();
  cursor.seek(header.header_end);
  const i64 block_with_prefix = places.block_bytes() + kPrefixBytes;
  i64 ahead = 0;
  if (__builtin_mul_overflow(block_with_prefix, i64{channel} - 1, &ahead) ||
      ahead > std::numeric_limits<i16>::max() || ahead < std::numeric_limits<i16>::min())
    throw RunTimeError{kOverflow};
  cursor.skip(ahead);
  places.first = cursor.position();
  places.stride = places.block_bytes() + block_with_prefix * result.FileChannelCount;
  return places;
}

i64 bytes_of_block(const FixedPlaces& places, const ByteCursor& cursor) {
  return std::clamp(places.block_bytes(), i64{0}, cursor.left());
}

void set_points(LoaderResult& result, i16 channel, i64 points) {
  if (points > std::numeric_limits<i32>::max()) throw RunTimeError{kOverflow};
  result.FileChannelPoints[static_cast<std::size_t>(channel)] = static_cast<i32>(points);
}

// Calls `take` with the bytes of each of the channel's blocks from `round` on, the cursor standing on it,
// while it gives true.
template <typename Take>
void for_blocks(const FixedPlaces& places, ByteCursor& cursor, i64 round, Take take) {
  for (i64 position = places.first + round * places.stride;; position += places.stride) {
    cursor.seek(position);
    const i64 bytes = bytes_of_block(places, cursor);
    if (bytes == 0 || !take(bytes)) return;
  }
}

// Values of all the channel's blocks.
i64 count_values(const FixedPlaces& places, const ByteCursor& cursor) {
  if (places.block_values <= 0 || places.first >= cursor.size()) return 0;
  const i64 last_round = (cursor.size() - 1 - places.first) / places.stride;
  const i64 last_bytes =
      std::min(cursor.size() - places.first - last_round * places.stride, places.block_bytes());
  return last_round * places.block_values + rounded_values(last_bytes);
}

void hand_on(LoaderResult& result, ByteCursor& cursor, const FixedPlaces& places, i16 channel,
             const BlockSink& sink) {
  set_points(result, channel, count_values(places, cursor));
  std::vector<f64> buffer;
  for_blocks(places, cursor, 0, [&](i64 bytes) {
    buffer.assign(static_cast<std::size_t>(rounded_values(bytes)), 0);
    read_or_zero(cursor, buffer.data(), rounded_values(bytes) * kSampleBytes);
    sink(buffer);
    return true;
  });
}

}  // namespace

void load_fixed_blocks(LoaderResult& result, ByteCursor& cursor, const BlockHeader& header, i16 channel) {
  const FixedPlaces places = find_places(result, cursor, header, channel);
  expect_estimate_to_give_slots(result, channel);
  const i64 points = count_values(places, cursor);
  set_points(result, channel, points);
  make_room(result.FileChannelValues, points);
  f64* next = result.FileChannelValues.data();
  for_blocks(places, cursor, 0, [&](i64 bytes) {
    read_or_zero(cursor, next, rounded_values(bytes) * kSampleBytes);
    next += rounded_values(bytes);
    return true;
  });
}

void pass_on_fixed_blocks(LoaderResult& result, ByteCursor& cursor, const BlockHeader& header, i16 channel,
                          const BlockSink& sink) {
  hand_on(result, cursor, find_places(result, cursor, header, channel), channel, sink);
}

void pass_fixed_blocks(LoaderResult& result, ByteCursor& cursor, const BlockHeader& header, i16 channel,
                       const BlockSink& sink) {
  const FixedPlaces places = find_places(result, cursor, header, channel);
  expect_estimate_to_give_slots(result, channel);
  hand_on(result, cursor, places, channel, sink);
}

void read_fixed_range(const LoaderResult& result, ByteCursor& cursor, const BlockHeader& header, i16 channel,
                      i64 first, i64 count, SampleArray& destination) {
  const FixedPlaces places = find_places(result, cursor, header, channel);
  const i64 end = std::min(count_values(places, cursor), count > std::numeric_limits<i64>::max() - first
                                                             ? std::numeric_limits<i64>::max()
                                                             : first + count);
  if (first >= end) return;
  make_room(destination, end - first);
  i64 round = first / places.block_values;
  f64* next = destination.data();
  for_blocks(places, cursor, round, [&](i64 bytes) {
    const i64 begin = std::max(first - round * places.block_values, i64{0});
    const i64 stop = std::min(end - round * places.block_values, rounded_values(bytes));
    cursor.skip(begin * kSampleBytes);
    read_or_zero(cursor, next, (stop - begin) * kSampleBytes);
    next += stop - begin;
    return ++round * places.block_values < end;
  });
}

}  // namespace trendaro
