#pragma once

#include <cstddef>

namespace trendaro {

// Has the memory of `count` elements brought near, without waiting for it.
template <typename T>
void ask_for_memory(const T* first, std::size_t count) {
  constexpr std::size_t kCacheLine = 64;
  constexpr std::size_t kStep = sizeof(T) < kCacheLine ? kCacheLine / sizeof(T) : 1;
  for (std::size_t i = 0; i < count; i += kStep) __builtin_prefetch(first + i);
}

}  // namespace trendaro
