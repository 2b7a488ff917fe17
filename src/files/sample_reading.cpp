#include "files/sample_reading.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace trendaro {

i64 rounded_values(i64 bytes) {
  return static_cast<i64>(std::nearbyint(static_cast<f64>(bytes) / kSampleBytes));
}

void read_or_zero(ByteCursor& cursor, void* destination, i64 bytes) {
  if (bytes <= 0) return;
  const ReadResult result = cursor.read_into(destination, bytes);
  std::memset(static_cast<char*>(destination) + result.bytes, 0,
              static_cast<std::size_t>(bytes - result.bytes));
}

void make_room(SampleArray& values, i64 count) {
  const auto wanted = static_cast<std::size_t>(std::max<i64>(count, 0));
  values.clear();
  if (values.capacity() < wanted || values.capacity() / 2 > wanted) SampleArray().swap(values);
  values.resize(wanted);
}

bool read_samples(ByteCursor& cursor, i64 count, SampleArray& values) {
  make_room(values, std::min(count, cursor.left() / kSampleBytes));
  const ReadResult result = cursor.read_into(values.data(), static_cast<i64>(values.size()) * kSampleBytes);
  values.resize(static_cast<std::size_t>(result.bytes / kSampleBytes));
  return static_cast<i64>(values.size()) == count;
}

bool pass_samples(ByteCursor& cursor, i64 count, const TakeValues& take) {
  // Small enough that the samples are still in the processor's cache when they are looked at.
  constexpr i64 kRun = (i64{1} << 20) / kSampleBytes;
  SampleArray run;
  for (i64 left = count; left > 0; left -= kRun) {
    const bool complete = read_samples(cursor, std::min(left, kRun), run);
    if (!run.empty()) take(run);
    if (!complete) return false;
  }
  return true;
}

}  // namespace trendaro
