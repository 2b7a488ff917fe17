#include "files/raw_column.h"

#include <cstddef>

#include "app/run_time_error.h"
#include "files/byte_view.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace trendaro {
namespace {

constexpr f32 kRawScale32 = 1.0F / 1966080000.0F;
constexpr f32 kRawScale16 = 256.0F / 7680000.0F;

i64 sample_bytes(const RecorderHeader& header) {
  if (header.of_doubles()) return sizeof(f64);
  return header.sample_format == kSamplesI16 ? sizeof(i16) : sizeof(i32);
}

f64 physical_f32(f32 raw, f32, f32) {
  return f64{raw};
}

template <typename Raw, auto physical>
void decode_as(const RawColumn& column, const u8* sample, i64 stride, std::span<f64> values) {
  const f32 scale = column.column->scale;
  const f32 offset = column.column->offset;
  if (column.carry == nullptr) {
    for (f64& value : values) {
      value = physical(number_at<Raw>(sample), scale, offset);
      sample += stride;
    }
    return;
  }
  const f32 carry_scale = column.carry->scale;
  const f32 carry_offset = column.carry->offset;
  for (f64& value : values) {
    value = physical(number_at<Raw>(sample), scale, offset) +
            physical(number_at<Raw>(sample + sizeof(Raw)), carry_scale, carry_offset);
    sample += stride;
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

bool has_raw_values(const RecorderHeader& header) {
  const i32 format = header.sample_format;
  return header.data_offset >= 0 && (format == kSamplesI32 || format == kSamplesI16 || format == kSamplesF32);
}

i64 row_bytes(const RecorderHeader& header) {
  return static_cast<i64>(header.columns.size()) * sample_bytes(header);
}

RawColumn find_raw_column(const RecorderHeader& header, i32 channel) {
  const auto index = static_cast<std::size_t>(channel) - 1;
  const bool is_time = header.columns[index].entry_channel == kTimeChannel;
  if (is_time && index + 1 >= header.columns.size()) throw RunTimeError{kIndexOutOfRange};
  const i64 bytes = sample_bytes(header);
  // In a reduced recording the column behind a time column may be the other half of its envelope; it is added
  // all the same.
  return {.sample_format = header.sample_format,
          .offset = static_cast<i64>(index) * bytes,
          .needed = is_time ? 2 * bytes : bytes,
          .column = &header.columns[index],
          .carry = is_time ? &header.columns[index + 1] : nullptr};
}

i64 whole_rows(const RawColumn& column, i64 stride, i64 bytes) {
  return bytes < column.needed ? 0 : (bytes - column.needed) / stride + 1;
}

void decode_column_plainly(const RawColumn& column, const u8* sample, i64 stride, std::span<f64> values) {
  switch (column.sample_format) {
    case kSamplesI32:
      return decode_as<i32, physical_i32>(column, sample, stride, values);
    case kSamplesI16:
      if (column.carry == nullptr) return decode_as<i16, physical_i16>(column, sample, stride, values);
      return decode_as<u16, physical_time_word>(column, sample, stride, values);
    case kSamplesF32:
      return decode_as<f32, physical_f32>(column, sample, stride, values);
  }
}

#if defined(__x86_64__)
namespace {

constexpr std::size_t kWords = 8;
constexpr std::size_t kDoubleWords = 4;

// The 16 bytes that have the sample of row `lane` in that lane. Picking lanes by blends is cheaper than
// inserting one sample after the other, and the first load begins with the first sample and the last one ends
// with the last sample, whatever the stride.
__m128i load_for_lane(const u8* sample, i64 stride, i64 lane, i64 lane_bytes) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(sample + lane * (stride - lane_bytes)));
}

__attribute__((target("avx2"))) inline __m128i gather_words(const u8* sample, i64 stride) {
  const auto row = [&](i64 lane) { return load_for_lane(sample, stride, lane, sizeof(i16)); };
  const __m128i low =
      _mm_blend_epi16(_mm_blend_epi16(row(0), row(1), 0x02), _mm_blend_epi16(row(2), row(3), 0x08), 0x0C);
  const __m128i high =
      _mm_blend_epi16(_mm_blend_epi16(row(4), row(5), 0x20), _mm_blend_epi16(row(6), row(7), 0x80), 0xC0);
  return _mm_blend_epi16(low, high, 0xF0);
}

__attribute__((target("avx2"))) inline __m128i gather_double_words(const u8* sample, i64 stride) {
  const auto row = [&](i64 lane) { return load_for_lane(sample, stride, lane, sizeof(i32)); };
  return _mm_blend_epi32(_mm_blend_epi32(row(0), row(1), 0x02), _mm_blend_epi32(row(2), row(3), 0x08), 0x0C);
}

// Each decodes the rows up to the last that fill a vector and gives their number. The operations are those of
// the plain loop in the same order, so that every bit is the same.
__attribute__((target("avx2"))) std::size_t decode_words(const RecorderColumn& column, const u8* sample,
                                                         i64 stride, std::span<f64> values) {
  const __m256 raw_scale = _mm256_set1_ps(kRawScale16);
  const __m256 scale = _mm256_set1_ps(column.scale);
  const __m256 offset = _mm256_set1_ps(column.offset);
  std::size_t done = 0;
  for (; done + kWords <= values.size(); done += kWords) {
    const __m256 raw = _mm256_cvtepi32_ps(_mm256_cvtepi16_epi32(gather_words(sample, stride)));
    const __m256 physical = _mm256_sub_ps(_mm256_mul_ps(_mm256_mul_ps(raw_scale, raw), scale), offset);
    _mm256_storeu_pd(&values[done], _mm256_cvtps_pd(_mm256_castps256_ps128(physical)));
    _mm256_storeu_pd(&values[done + kWords / 2], _mm256_cvtps_pd(_mm256_extractf128_ps(physical, 1)));
    sample += static_cast<i64>(kWords) * stride;
  }
  return done;
}

__attribute__((target("avx2"))) std::size_t decode_double_words(const RecorderColumn& column,
                                                                const u8* sample, i64 stride,
                                                                std::span<f64> values) {
  const __m256d raw_scale = _mm256_set1_pd(f64{kRawScale32});
  const __m256d scale = _mm256_set1_pd(f64{column.scale});
  const __m256d offset = _mm256_set1_pd(f64{column.offset});
  std::size_t done = 0;
  for (; done + kDoubleWords <= values.size(); done += kDoubleWords) {
    const __m256d raw = _mm256_cvtepi32_pd(gather_double_words(sample, stride));
    const __m256d physical = _mm256_sub_pd(_mm256_mul_pd(_mm256_mul_pd(raw_scale, raw), scale), offset);
    _mm256_storeu_pd(&values[done], physical);
    sample += static_cast<i64>(kDoubleWords) * stride;
  }
  return done;
}

__attribute__((target("avx2"))) std::size_t decode_floats(const u8* sample, i64 stride,
                                                          std::span<f64> values) {
  std::size_t done = 0;
  for (; done + kDoubleWords <= values.size(); done += kDoubleWords) {
    const __m128 raw = _mm_castsi128_ps(gather_double_words(sample, stride));
    _mm256_storeu_pd(&values[done], _mm256_cvtps_pd(raw));
    sample += static_cast<i64>(kDoubleWords) * stride;
  }
  return done;
}

// Decodes the first rows and gives their number.
std::size_t decode_by_vectors(const RawColumn& column, const u8* sample, i64 stride, std::span<f64> values) {
  if (column.carry != nullptr || !__builtin_cpu_supports("avx2")) return 0;
  if (column.sample_format == kSamplesI16) return decode_words(*column.column, sample, stride, values);
  if (column.sample_format == kSamplesI32) return decode_double_words(*column.column, sample, stride, values);
  return decode_floats(sample, stride, values);
}

}  // namespace

void decode_column(const RawColumn& column, const u8* sample, i64 stride, std::span<f64> values) {
  const std::size_t done = decode_by_vectors(column, sample, stride, values);
  decode_column_plainly(column, sample + static_cast<i64>(done) * stride, stride, values.subspan(done));
}

#else

void decode_column(const RawColumn& column, const u8* sample, i64 stride, std::span<f64> values) {
  decode_column_plainly(column, sample, stride, values);
}

#endif

}  // namespace trendaro
