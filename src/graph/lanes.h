#pragma once

#include <algorithm>
#include <cstddef>

#include <experimental/simd>

namespace trendaro {

// Values that are looked at together. Spelled out, for the compiler does not find them in loops this short.
template <typename T>
using Lanes = std::experimental::native_simd<T>;

template <typename T>
Lanes<T> load_lanes(const T* from) {
  return Lanes<T>(from, std::experimental::element_aligned);
}

// The least and the greatest of at least one value, none of which is NaN.
template <typename T>
T least_of(const T* values, std::size_t count) {
  constexpr std::size_t kStep = Lanes<T>::size();
  T least = values[0];
  std::size_t i = 0;
  if (count >= kStep) {
    Lanes<T> lanes = load_lanes(values);
    for (i = kStep; i + kStep <= count; i += kStep)
      lanes = std::experimental::min(lanes, load_lanes(values + i));
    least = hmin(lanes);
  }
  for (; i < count; ++i) least = std::min(least, values[i]);
  return least;
}
template <typename T>
T greatest_of(const T* values, std::size_t count) {
  constexpr std::size_t kStep = Lanes<T>::size();
  T greatest = values[0];
  std::size_t i = 0;
  if (count >= kStep) {
    Lanes<T> lanes = load_lanes(values);
    for (i = kStep; i + kStep <= count; i += kStep)
      lanes = std::experimental::max(lanes, load_lanes(values + i));
    greatest = hmax(lanes);
  }
  for (; i < count; ++i) greatest = std::max(greatest, values[i]);
  return greatest;
}

// Index of the first of the values that equals `value`, which one of them does.
template <typename T>
std::size_t first_equal_of(const T* values, std::size_t count, T value) {
  constexpr std::size_t kStep = Lanes<T>::size();
  std::size_t i = 0;
  while (i + kStep <= count && none_of(load_lanes(values + i) == value)) i += kStep;
  while (i + 1 < count && values[i] != value) ++i;
  return i;
}

}  // namespace trendaro
