#include "files/pair_search.h"

#include <cassert>
#include <cstddef>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace trendaro {

ValuePair find_pair_plainly(std::span<const f64> run) {
  assert(!run.empty());
  f64 least = run[0];
  f64 greatest = run[0];
  bool least_came_last = false;
  for (const f64 value : run.subspan(1)) {
    if (value > greatest) {
      greatest = value;
      least_came_last = false;
    }
    if (value < least) {
      least = value;
      least_came_last = true;
    }
  }
  return least_came_last ? ValuePair{greatest, least} : ValuePair{least, greatest};
}

#if defined(__x86_64__)
namespace {

constexpr std::size_t kLanes = 4;
constexpr std::size_t kStride = 4 * kLanes;

struct Extremes {
  f64 least = 0;
  f64 greatest = 0;
};

// `begin` is a number. Both instructions give their second operand when the first is not a number, so such
// values are passed over as in the plain loop. Overlapping the last vectors is harmless: an extreme may be
// met twice.
__attribute__((target("avx2"))) Extremes find_extremes(const f64* values, std::size_t count) {
  const __m256d start = _mm256_set1_pd(values[0]);
  __m256d least[4] = {start, start, start, start};
  __m256d greatest[4] = {start, start, start, start};
  std::size_t index = 0;
  for (; index + kStride <= count; index += kStride)
    for (std::size_t part = 0; part < 4; ++part) {
      const __m256d next = _mm256_loadu_pd(values + index + part * kLanes);
      least[part] = _mm256_min_pd(next, least[part]);
      greatest[part] = _mm256_max_pd(next, greatest[part]);
    }
  for (; index < count; index += kLanes) {
    const __m256d next = _mm256_loadu_pd(values + (index + kLanes <= count ? index : count - kLanes));
    least[0] = _mm256_min_pd(next, least[0]);
    greatest[0] = _mm256_max_pd(next, greatest[0]);
  }
  const __m256d low = _mm256_min_pd(_mm256_min_pd(least[0], least[1]), _mm256_min_pd(least[2], least[3]));
  const __m256d high =
      _mm256_max_pd(_mm256_max_pd(greatest[0], greatest[1]), _mm256_max_pd(greatest[2], greatest[3]));
  const __m128d low_half = _mm_min_pd(_mm256_castpd256_pd128(low), _mm256_extractf128_pd(low, 1));
  const __m128d high_half = _mm_max_pd(_mm256_castpd256_pd128(high), _mm256_extractf128_pd(high, 1));
  return {_mm_cvtsd_f64(_mm_min_sd(low_half, _mm_unpackhi_pd(low_half, low_half))),
          _mm_cvtsd_f64(_mm_max_sd(high_half, _mm_unpackhi_pd(high_half, high_half)))};
}

__attribute__((target("avx2"))) inline unsigned hits(const f64* values, __m256d least, __m256d greatest) {
  const __m256d next = _mm256_loadu_pd(values);
  return static_cast<unsigned>(_mm256_movemask_pd(
      _mm256_or_pd(_mm256_cmp_pd(next, least, _CMP_EQ_OQ), _mm256_cmp_pd(next, greatest, _CMP_EQ_OQ))));
}

// The first value of the run that equals one of the extremes; one of them is there. Looks at whole strides,
// because the branch that ends the search is guessed wrong about once a run.
__attribute__((target("avx2"))) const f64* find_either(const f64* values, std::size_t count,
                                                       Extremes wanted) {
  const __m256d least = _mm256_set1_pd(wanted.least);
  const __m256d greatest = _mm256_set1_pd(wanted.greatest);
  const f64* place = values;
  for (; place + kStride <= values + count; place += kStride) {
    unsigned mask = 0;
    for (unsigned part = 0; part < 4; ++part)
      mask |= hits(place + part * kLanes, least, greatest) << (part * kLanes);
    if (mask != 0) return place + __builtin_ctz(mask);
  }
  for (const f64* last = values + count - kLanes; place < last; place += kLanes)
    if (const unsigned mask = hits(place, least, greatest); mask != 0) return place + __builtin_ctz(mask);
  const f64* last = values + count - kLanes;
  return last + __builtin_ctz(hits(last, least, greatest));
}

const f64* find_zero(const f64* values) {
  while (*values != 0) ++values;
  return values;
}

__attribute__((target("avx2"))) ValuePair find_pair_by_vectors(std::span<const f64> run) {
  const f64 start = run.front();
  if (start != start) return {start, start};
  const Extremes found = find_extremes(run.data(), run.size());
  if (found.least == found.greatest) return {start, start};
  const f64* first = find_either(run.data(), run.size(), found);
  const f64 other[2] = {found.least, found.greatest};
  const f64 second = other[*first == found.least ? 1 : 0];
  // The vectors may have met the zeros of both signs in any order; the earliest one counts.
  return {*first, second == 0 ? *find_zero(first) : second};
}

}  // namespace

ValuePair find_pair(std::span<const f64> run) {
  if (run.size() < kLanes || !__builtin_cpu_supports("avx2")) return find_pair_plainly(run);
  return find_pair_by_vectors(run);
}

#else

ValuePair find_pair(std::span<const f64> run) {
  return find_pair_plainly(run);
}

#endif

}  // namespace trendaro
