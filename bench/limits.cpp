#include "limits.h"

#include <algorithm>
#include <cstdlib>

#include <benchmark/benchmark.h>

#include "files/input_file.h"

namespace trendaro::bench {
namespace {

constexpr i64 kBufferBytes = i64{1} << 20;

// The compiler makes vectors of this: a minimum and a maximum of their own in each of 16 lanes.
__attribute__((target("avx2"), optimize("O3"))) f64 scan(std::span<const f64> values) {
  constexpr std::size_t kLanes = 16;
  f64 least[kLanes];
  f64 greatest[kLanes];
  std::fill_n(least, kLanes, values[0]);
  std::fill_n(greatest, kLanes, values[0]);
  for (std::size_t i = 0; i + kLanes <= values.size(); i += kLanes)
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      const f64 value = values[i + lane];
      least[lane] = value < least[lane] ? value : least[lane];
      greatest[lane] = value > greatest[lane] ? value : greatest[lane];
    }
  return *std::max_element(greatest, greatest + kLanes) - *std::min_element(least, least + kLanes);
}

}  // namespace

void read_through_buffer(const std::string& path) {
  const InputFile file(path);
  std::vector<char> buffer(kBufferBytes);
  i64 position = 0;
  while (const i64 bytes = file.read_at(position, buffer.data(), kBufferBytes).bytes) position += bytes;
  benchmark::DoNotOptimize(buffer.data());
}

void read_into_fresh_array(const std::string& path) {
  const InputFile file(path);
  const i64 size = file.size();
  SampleArray values(static_cast<std::size_t>(size / 8 + 1));
  if (file.read_at(0, values.data(), size).bytes != size) std::abort();
  benchmark::DoNotOptimize(values.data());
}

void read_and_store(const std::string& path, i64 values) {
  read_through_buffer(path);
  SampleArray array(static_cast<std::size_t>(values));
  std::fill(array.begin(), array.end(), 1.5);
  benchmark::DoNotOptimize(array.data());
}

void read_and_scan(const std::string& path, std::span<const f64> in_memory) {
  read_through_buffer(path);
  benchmark::DoNotOptimize(scan(in_memory));
}

}  // namespace trendaro::bench
