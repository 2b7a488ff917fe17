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

// The same for memory far from what was at work, most of all on pages the processor has no address of at
// hand: it leaves out what it is merely asked for there (measured), so that the first element is read. Work
// that waits for nothing goes on meanwhile; ask for many of them in a row.
template <typename T>
void reach_for_memory(const T* first, std::size_t count) {
  static_cast<void>(*static_cast<const volatile T*>(first));
  ask_for_memory(first, count);
}

}  // namespace trendaro
