#pragma once

#include <cstddef>
#include <new>
#include <vector>

#include "app/types.h"

namespace trendaro {

// Memory for samples: aligned to huge pages where the block is large, and asked for as such, because the page
// faults of a fresh array cost more than reading the samples into it. Throws std::bad_alloc.
void* allocate_samples(std::size_t bytes);
void release_samples(void* block, std::size_t bytes) noexcept;

// Leaves new elements uninitialised, for arrays that are filled by a read right after they are sized.
template <typename T>
struct SampleAllocator {
  using value_type = T;
  SampleAllocator() = default;
  template <typename U>
  SampleAllocator(const SampleAllocator<U>&) {}  // NOLINT: allocators convert into each other

  T* allocate(std::size_t count) {
    if (count > static_cast<std::size_t>(-1) / sizeof(T)) throw std::bad_array_new_length();
    return static_cast<T*>(allocate_samples(count * sizeof(T)));
  }
  void deallocate(T* block, std::size_t count) noexcept { release_samples(block, count * sizeof(T)); }

  template <typename U>
  void construct(U* place) {
    ::new (static_cast<void*>(place)) U;
  }
  template <typename U, typename... Arguments>
  void construct(U* place, Arguments&&... arguments) {
    ::new (static_cast<void*>(place)) U(static_cast<Arguments&&>(arguments)...);
  }

  friend bool operator==(const SampleAllocator&, const SampleAllocator&) { return true; }
};

// Samples of one channel, index from 0. `resize` leaves new elements without a value.
using SampleArray = std::vector<f64, SampleAllocator<f64>>;

// The flat arrays that a graph takes over, index from 0.
using FlatArray = std::vector<f32, SampleAllocator<f32>>;

}  // namespace trendaro
