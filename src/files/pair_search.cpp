#include "files/pair_search.h"

#include <algorithm>
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
constexpr std::size_t kSegments = 4;
constexpr std::size_t kShortestRun = kLanes * kSegments;

struct Extremes {
  f64 least = 0;
  f64 greatest = 0;
};

// Four stretches of one length that cover a run; neighbours may overlap.
struct Segments {
  std::size_t length = 0;  // a multiple of kLanes
  const f64* begin[kSegments] = {};
};

Segments segments_of(std::span<const f64> run) {
  const std::size_t quarter = (run.size() + kSegments - 1) / kSegments;
  Segments segments{.length = (quarter + kLanes - 1) / kLanes * kLanes, .begin = {}};
  for (std::size_t i = 0; i < kSegments; ++i)
    segments.begin[i] = run.data() + std::min(i * segments.length, run.size() - segments.length);
  return segments;
}

// The lane by lane minimum of the four vectors' own lanes: minimum i belongs to vector i. Comparisons with a
// value that is not a number cannot occur here any more.
__attribute__((target("avx2"))) inline __m256d least_of_each(const __m256d (&of)[kSegments]) {
  const __m256d low = _mm256_min_pd(_mm256_unpacklo_pd(of[0], of[1]), _mm256_unpackhi_pd(of[0], of[1]));
  const __m256d high = _mm256_min_pd(_mm256_unpacklo_pd(of[2], of[3]), _mm256_unpackhi_pd(of[2], of[3]));
  return _mm256_min_pd(_mm256_permute2f128_pd(low, high, 0x20), _mm256_permute2f128_pd(low, high, 0x31));
}

__attribute__((target("avx2"))) inline __m256d greatest_of_each(const __m256d (&of)[kSegments]) {
  const __m256d low = _mm256_max_pd(_mm256_unpacklo_pd(of[0], of[1]), _mm256_unpackhi_pd(of[0], of[1]));
  const __m256d high = _mm256_max_pd(_mm256_unpacklo_pd(of[2], of[3]), _mm256_unpackhi_pd(of[2], of[3]));
  return _mm256_max_pd(_mm256_permute2f128_pd(low, high, 0x20), _mm256_permute2f128_pd(low, high, 0x31));
}

// Each gives its result in all lanes.
__attribute__((target("avx2"))) inline __m256d least_everywhere(__m256d of) {
  const __m256d halves = _mm256_min_pd(of, _mm256_permute2f128_pd(of, of, 0x01));
  return _mm256_min_pd(halves, _mm256_permute_pd(halves, 0x5));
}

__attribute__((target("avx2"))) inline __m256d greatest_everywhere(__m256d of) {
  const __m256d halves = _mm256_max_pd(of, _mm256_permute2f128_pd(of, of, 0x01));
  return _mm256_max_pd(halves, _mm256_permute_pd(halves, 0x5));
}

// Number of the first lane that equals `wanted`, which some lane does.
__attribute__((target("avx2"))) inline unsigned first_equal(__m256d lanes, __m256d wanted) {
  return static_cast<unsigned>(
      __builtin_ctz(static_cast<unsigned>(_mm256_movemask_pd(_mm256_cmp_pd(lanes, wanted, _CMP_EQ_OQ)))));
}

// The first value from `values` on that equals one of the extremes; one of them is there, in a stretch that
// is a multiple of kLanes long.
__attribute__((target("avx2"))) const f64* find_either(const f64* values, Extremes wanted) {
  const __m256d least = _mm256_set1_pd(wanted.least);
  const __m256d greatest = _mm256_set1_pd(wanted.greatest);
  for (;; values += kLanes) {
    const __m256d next = _mm256_loadu_pd(values);
    const int hits = _mm256_movemask_pd(
        _mm256_or_pd(_mm256_cmp_pd(next, least, _CMP_EQ_OQ), _mm256_cmp_pd(next, greatest, _CMP_EQ_OQ)));
    if (hits != 0) return values + __builtin_ctz(static_cast<unsigned>(hits));
  }
}

// Of zeros of both signs the vectors may have met either; the earliest one counts.
f64 earliest_equal(const f64* segment, f64 value) {
  return value == 0 ? *find_either(segment, {value, value}) : value;
}

// A segment of its own for each accumulator: where the extremes lie in different segments, their order is
// known without a search, whose end the processor would guess wrong once a run. The first operand of the
// comparisons is passed over when it is not a number, as in the plain loop.
__attribute__((target("avx2"))) ValuePair find_pair_by_vectors(std::span<const f64> run) {
  const f64 start = run.front();
  if (start != start) return {start, start};
  const Segments segments = segments_of(run);
  const __m256d first = _mm256_set1_pd(start);
  __m256d least[kSegments] = {first, first, first, first};
  __m256d greatest[kSegments] = {first, first, first, first};
  for (std::size_t index = 0; index < segments.length; index += kLanes)
    for (std::size_t i = 0; i < kSegments; ++i) {
      const __m256d next = _mm256_loadu_pd(segments.begin[i] + index);
      least[i] = _mm256_min_pd(next, least[i]);
      greatest[i] = _mm256_max_pd(next, greatest[i]);
    }
  const __m256d least_each = least_of_each(least);
  const __m256d greatest_each = greatest_of_each(greatest);
  const __m256d least_of_all = least_everywhere(least_each);
  const __m256d greatest_of_all = greatest_everywhere(greatest_each);
  const Extremes found{_mm256_cvtsd_f64(least_of_all), _mm256_cvtsd_f64(greatest_of_all)};
  if (found.least == found.greatest) return {start, start};
  const unsigned least_in = first_equal(least_each, least_of_all);
  const unsigned greatest_in = first_equal(greatest_each, greatest_of_all);
  bool least_first = least_in < greatest_in;
  if (least_in == greatest_in) least_first = *find_either(segments.begin[least_in], found) == found.least;
  // Chosen by index and not by a branch, which would be guessed wrong every other time.
  const f64 extremes[2] = {earliest_equal(segments.begin[least_in], found.least),
                           earliest_equal(segments.begin[greatest_in], found.greatest)};
  const unsigned earlier = least_first ? 0 : 1;
  return {extremes[earlier], extremes[1 - earlier]};
}

}  // namespace

ValuePair find_pair(std::span<const f64> run) {
  if (run.size() < kShortestRun || !__builtin_cpu_supports("avx2")) return find_pair_plainly(run);
  return find_pair_by_vectors(run);
}

#else

ValuePair find_pair(std::span<const f64> run) {
  return find_pair_plainly(run);
}

#endif

}  // namespace trendaro
