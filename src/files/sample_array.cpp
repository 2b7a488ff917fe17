#include "files/sample_array.h"

#include <cstdlib>

#include <sys/mman.h>

namespace trendaro {
namespace {

constexpr std::size_t kHugePage = std::size_t{2} << 20;

std::size_t whole_huge_pages(std::size_t bytes) {
  return (bytes + kHugePage - 1) / kHugePage * kHugePage;
}

}  // namespace

void* allocate_samples(std::size_t bytes) {
  if (bytes < kHugePage) return ::operator new(bytes);
  if (bytes > static_cast<std::size_t>(-1) - kHugePage) throw std::bad_alloc();
  void* block = std::aligned_alloc(kHugePage, whole_huge_pages(bytes));
  if (block == nullptr) throw std::bad_alloc();
  // Only a wish: without huge pages the array works as well, only slower.
  static_cast<void>(madvise(block, whole_huge_pages(bytes), MADV_HUGEPAGE));
  return block;
}

void release_samples(void* block, std::size_t bytes) noexcept {
  if (bytes < kHugePage)
    ::operator delete(block);
  else
    std::free(block);
}

}  // namespace trendaro
