#pragma once

#include <array>
#include <cstddef>

#include "app/types.h"

namespace trendaro {

inline constexpr i32 kBenchRate = 2400;  // rows a second

// One signal of the run. Its samples are raw i16; value = raw x resolution + zero.
struct BenchSignal {
  const char* name;         // UTF-8
  const char* unit;         // UTF-8, at most four characters
  const char* device_unit;  // as the amplifier spells it
  const char* place;        // where it is measured
  f32 resolution;
  f32 zero;
};

inline constexpr std::size_t kBenchSignals = 8;
extern const std::array<BenchSignal, kBenchSignals> bench_signals;

// A run of an engine on a test bench: idle, a ramp through a resonance to full speed, a hold, and back. The
// same row gives the same samples whenever it is asked for, so that a file can be written row by row or
// channel by channel.
class TestBench {
 public:
  explicit TestBench(f64 seconds) : seconds_(seconds) {}

  // Raw sample of signal `signal` (from 0) in row `row` (from 0).
  [[nodiscard]] i16 raw(std::size_t signal, i64 row) const;

 private:
  [[nodiscard]] f64 value(std::size_t signal, i64 row) const;

  f64 seconds_;
};

// True for the row of the one vibration shock in its stretch of ten seconds.
bool is_shock(i64 row);

}  // namespace trendaro
