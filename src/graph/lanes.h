#pragma once

#include <algorithm>
#include <cstddef>

#include <experimental/simd>

namespace trendaro {

// Values that are looked at together. Spelled out, for the compiler does not find them in loops this short,
// nor does it always dissolve a call for so few of them.
template <typename T>
using Lanes = std::experimental::native_simd<T>;

template <typename T>
Lanes<T> load_lanes(const T* from) {
  return Lanes<T>(from, std::experimental::element_aligned);
}

// One of at least one value, none of which is NaN: what is left when `choose` takes one of two, or of two
// Lanes in each lane, again and again.
template <typename T, typename Choose>
T chosen_of(const T* values, std::size_t count, Choose choose) {
  constexpr std::size_t kStep = Lanes<T>::size();
  if (count < kStep) {
    T chosen = values[0];
    for (std::size_t i = 1; i < count; ++i) chosen = choose(chosen, values[i]);
    return chosen;
  }
  // The last step, which may look at some values once more, stands first.
  Lanes<T> chosen = load_lanes(values + count - kStep);
  for (std::size_t i = 0; i + kStep < count; i += kStep) chosen = choose(chosen, load_lanes(values + i));
  return reduce(chosen, choose);
}

template <typename T>
T least_of(const T* values, std::size_t count) {
  return chosen_of(
      values, count, [](const auto& a, const auto& b) __attribute__((always_inline)) {
        using std::min;
        return min(a, b);
      });
}

template <typename T>
T greatest_of(const T* values, std::size_t count) {
  return chosen_of(
      values, count, [](const auto& a, const auto& b) __attribute__((always_inline)) {
        using std::max;
        return max(a, b);
      });
}

// Index of the first of the values that equals `value`, which one of them does.
template <typename T>
std::size_t first_equal_of(const T* values, std::size_t count, T value) {
  constexpr std::size_t kStep = Lanes<T>::size();
  const auto equal_at = [&](std::size_t i) { return load_lanes(values + i) == value; };
  std::size_t i = 0;
  for (; i + 4 * kStep <= count; i += 4 * kStep)
    if (any_of((equal_at(i) || equal_at(i + kStep)) || (equal_at(i + 2 * kStep) || equal_at(i + 3 * kStep))))
      break;
  for (; i + kStep <= count; i += kStep) {
    const auto equal = equal_at(i);
    if (any_of(equal)) return i + static_cast<std::size_t>(find_first_set(equal));
  }
  while (i + 1 < count && values[i] != value) ++i;
  return i;
}

}  // namespace trendaro
