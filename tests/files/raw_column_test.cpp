#include "files/raw_column.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace trendaro {
namespace {

constexpr f32 kNan = std::numeric_limits<f32>::quiet_NaN();
constexpr f32 kInfinity = std::numeric_limits<f32>::infinity();

// Rounds to f32 out of the compiler's sight, which might keep more digits otherwise.
f32 float_of(f32 number) {
  volatile f32 kept = number;
  return kept;
}

// What a raw sample stands for.
f64 physical(i16 raw, f32 scale, f32 offset) {
  const f32 scaled = float_of(float_of(256.0F / 7680000.0F) * static_cast<f32>(raw));
  return f64{float_of(float_of(scaled * scale) - offset)};
}

f64 physical(i32 raw, f32 scale, f32 offset) {
  return f64{1.0F / 1966080000.0F} * raw * f64{scale} - f64{offset};
}

f64 physical(f32 raw, f32, f32) {
  return f64{raw};
}

template <typename Raw>
constexpr i32 format_of() {
  if (std::is_same_v<Raw, i16>) return kSamplesI16;
  return std::is_same_v<Raw, i32> ? kSamplesI32 : kSamplesF32;
}

// Every value's bits; all that are no numbers are taken for one.
std::vector<u64> bits_of(const std::vector<f64>& values) {
  constexpr f64 kNoNumber = std::numeric_limits<f64>::quiet_NaN();
  std::vector<u64> bits;
  for (const f64 value : values) bits.push_back(std::bit_cast<u64>(std::isnan(value) ? kNoNumber : value));
  return bits;
}

// A column on its own among noise. The bytes end with its last sample, and begin with its first one.
template <typename Raw>
struct ColumnBytes {
  i64 stride;
  std::vector<u8> bytes;
  std::vector<f64> expected;

  ColumnBytes(const std::vector<Raw>& samples, i64 columns, const RecorderColumn& column)
      : stride(columns * static_cast<i64>(sizeof(Raw))) {
    std::mt19937 random(static_cast<u32>(samples.size() * 31) + static_cast<u32>(columns));
    if (!samples.empty()) bytes.resize((samples.size() - 1) * static_cast<std::size_t>(stride) + sizeof(Raw));
    for (u8& byte : bytes) byte = static_cast<u8>(random());
    for (std::size_t row = 0; row < samples.size(); ++row) {
      std::memcpy(&bytes[row * static_cast<std::size_t>(stride)], &samples[row], sizeof(Raw));
      expected.push_back(physical(samples[row], column.scale, column.offset));
    }
  }
};

template <typename Raw>
void expect_column(const std::vector<Raw>& samples, i64 columns, f32 scale, f32 offset) {
  RecorderColumn column;
  column.scale = scale;
  column.offset = offset;
  const RawColumn raw{.sample_format = format_of<Raw>(),
                      .offset = 0,
                      .needed = sizeof(Raw),
                      .column = &column,
                      .carry = nullptr};
  const ColumnBytes<Raw> there(samples, columns, column);
  std::vector<f64> values(samples.size(), -1);
  decode_column(raw, there.bytes.data(), there.stride, values);
  EXPECT_EQ(bits_of(values), bits_of(there.expected)) << samples.size() << " rows of " << columns;
  values.assign(samples.size(), -1);
  decode_column_plainly(raw, there.bytes.data(), there.stride, values);
  EXPECT_EQ(bits_of(values), bits_of(there.expected)) << samples.size() << " rows of " << columns;
}

// Samples of any bits. Floats among them are no numbers, infinite or tiny now and then.
template <typename Raw>
std::vector<Raw> random_samples(std::size_t count, std::mt19937& random) {
  std::vector<Raw> samples;
  for (std::size_t i = 0; i < count; ++i) {
    const u32 bits = static_cast<u32>(random());
    Raw sample;
    std::memcpy(&sample, &bits, sizeof sample);
    samples.push_back(sample);
  }
  return samples;
}

TEST(RawColumnTest, EveryNumberOfRowsAndColumnsGivesTheSameBits) {
  std::mt19937 random(4);
  for (std::size_t rows = 0; rows <= 35; ++rows)
    for (const i64 columns : {1, 2, 3, 5, 8, 16, 33}) {
      expect_column(random_samples<i16>(rows, random), columns, 1234.567F, -0.3F);
      expect_column(random_samples<i32>(rows, random), columns, 7680000.0F, 0.7F);
      expect_column(random_samples<f32>(rows, random), columns, 3, 4);
    }
}

TEST(RawColumnTest, EveryWordGivesTheValueOfThePlainRule) {
  std::vector<i16> words;
  for (i32 word = -32768; word <= 32767; ++word) words.push_back(static_cast<i16>(word));
  for (const f32 scale : {7680000.0F, 0.1F, -3e-7F, 1e37F, 0.0F})
    for (const f32 offset : {0.0F, -0.0F, 12345.678F}) expect_column(words, 2, scale, offset);
}

TEST(RawColumnTest, ExtremesOfWideSamplesStand) {
  constexpr i32 kLeast = std::numeric_limits<i32>::min();
  constexpr i32 kMost = std::numeric_limits<i32>::max();
  expect_column<i32>({kLeast, kMost, 0, -1, 1, 16777217, -16777217, 256, kMost - 1}, 3, 1966.08F, 0.25F);
  expect_column<f32>({kInfinity, -kInfinity, kNan, -0.0F, 1e-45F, 3.4e38F, -1, 0.1F, 7}, 3, 5, 6);
}

TEST(RawColumnTest, ScalesThatAreNoNumbersComeThrough) {
  for (const f32 scale : {kNan, kInfinity, -kInfinity}) {
    expect_column<i16>({0, 1, -1, 32767, -32768, 5, 6, 7, 8, 9}, 2, scale, 1);
    expect_column<i32>({0, 1, -1, 32767, -32768, 5}, 2, scale, 1);
    expect_column<i16>({0, 1, -1, 32767, -32768, 5, 6, 7, 8, 9}, 2, 1, scale);
    expect_column<i32>({0, 1, -1, 32767, -32768, 5}, 2, 1, scale);
  }
}

TEST(RawColumnTest, TimeWordsOfManyRowsHaveNoSign) {
  RecorderColumn time;
  time.scale = 30000;
  time.offset = 5;
  RecorderColumn carry;
  carry.scale = 60000;
  const RawColumn raw{
      .sample_format = kSamplesI16, .offset = 0, .needed = 4, .column = &time, .carry = &carry};
  // The raw scale is 1 / 30000: 65535 - 5 + 2 x 65534, row by row one less each.
  std::vector<u16> words;
  for (u16 row = 0; row < 20; ++row) {
    words.push_back(static_cast<u16>(65535 - row));
    words.push_back(static_cast<u16>(65534 - row));
  }
  std::vector<f64> values(20);
  decode_column(raw, reinterpret_cast<const u8*>(words.data()), 4, values);
  for (std::size_t row = 0; row < 20; ++row)
    EXPECT_NEAR(values[row], 196598.0 - 3.0 * static_cast<f64>(row), 0.01) << row;
}

TEST(RawColumnTest, RowsCountWhichHoldTheWholeSample) {
  const RawColumn raw{
      .sample_format = kSamplesI16, .offset = 0, .needed = 2, .column = nullptr, .carry = nullptr};
  EXPECT_EQ(whole_rows(raw, 6, -4), 0);
  EXPECT_EQ(whole_rows(raw, 6, 1), 0);
  EXPECT_EQ(whole_rows(raw, 6, 2), 1);
  EXPECT_EQ(whole_rows(raw, 6, 7), 1);
  EXPECT_EQ(whole_rows(raw, 6, 8), 2);
}

}  // namespace
}  // namespace trendaro
