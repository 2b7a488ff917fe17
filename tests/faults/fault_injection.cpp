#include "faults/fault_injection.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace trendaro {
namespace {

// The linker's and the language's hooks take no argument of ours, so that this stands outside of functions.
struct Injection {
  bool at_work = false;
  FaultPlan plan;
  int calls = 0;
  int struck = 0;
};
Injection injection;

bool strikes() {
  if (!injection.at_work) return false;
  ++injection.calls;
  const FaultPlan& plan = injection.plan;
  const bool hit =
      plan.first > 0 && (plan.from_then_on ? injection.calls >= plan.first : injection.calls == plan.first);
  injection.struck += hit ? 1 : 0;
  return hit;
}

bool fails() {
  return injection.plan.fault == Fault::Error && strikes();
}

int failure(int number) {
  errno = number;
  return -1;
}

// Runs a transfer of `count` bytes as the plan wants it.
template <typename Transfer>
ssize_t transferred(std::size_t count, Transfer transfer) {
  if (!strikes()) return transfer(count);
  if (injection.plan.fault == Fault::Interrupted) return failure(EINTR);
  if (injection.plan.fault == Fault::Partial) return transfer((count + 1) / 2);
  return failure(EIO);
}

// Bytes from a position to the bad place of the plan.
long long sound_bytes_from(long long position) {
  if (!injection.at_work || injection.plan.bad_place < 0) return std::numeric_limits<long long>::max();
  return std::max(injection.plan.bad_place - position, 0LL);
}

void* allocated(std::size_t bytes) {
  return fails() ? nullptr : std::malloc(bytes == 0 ? 1 : bytes);
}

}  // namespace

FaultsAtWork::FaultsAtWork(FaultPlan plan) {
  injection = {.at_work = true, .plan = plan, .calls = 0, .struck = 0};
}

FaultsAtWork::~FaultsAtWork() {
  injection.at_work = false;
}

int struck_calls() {
  return injection.struck;
}

int open_descriptors() {
  int count = 0;
  DIR* folder = opendir("/proc/self/fd");
  while (readdir(folder) != nullptr) ++count;
  closedir(folder);
  return count;
}

}  // namespace trendaro

extern "C" {

int __real_open(const char* path, int flags, ...);
int __real_close(int descriptor);
ssize_t __real_read(int descriptor, void* bytes, std::size_t count);
ssize_t __real_pread(int descriptor, void* bytes, std::size_t count, off_t position);
ssize_t __real_write(int descriptor, const void* bytes, std::size_t count);
ssize_t __real_pwrite(int descriptor, const void* bytes, std::size_t count, off_t position);
off_t __real_lseek(int descriptor, off_t position, int whence);
int __real_fstat(int descriptor, struct stat* status);
void* __real_aligned_alloc(std::size_t alignment, std::size_t bytes);

int __wrap_open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const unsigned mode = va_arg(arguments, unsigned);
  va_end(arguments);
  return trendaro::fails() ? trendaro::failure(EMFILE) : __real_open(path, flags, mode);
}
// A failing close has closed all the same.
int __wrap_close(int descriptor) {
  const int result = __real_close(descriptor);
  return trendaro::fails() ? trendaro::failure(EIO) : result;
}
ssize_t __wrap_read(int descriptor, void* bytes, std::size_t count) {
  return trendaro::transferred(count, [&](std::size_t most) { return __real_read(descriptor, bytes, most); });
}
ssize_t __wrap_pread(int descriptor, void* bytes, std::size_t count, off_t position) {
  const long long sound = trendaro::sound_bytes_from(position);
  if (sound == 0) return trendaro::failure(EIO);
  count = std::min(count, static_cast<std::size_t>(sound));
  return trendaro::transferred(
      count, [&](std::size_t most) { return __real_pread(descriptor, bytes, most, position); });
}
ssize_t __wrap_write(int descriptor, const void* bytes, std::size_t count) {
  return trendaro::transferred(count,
                               [&](std::size_t most) { return __real_write(descriptor, bytes, most); });
}
ssize_t __wrap_pwrite(int descriptor, const void* bytes, std::size_t count, off_t position) {
  return trendaro::transferred(
      count, [&](std::size_t most) { return __real_pwrite(descriptor, bytes, most, position); });
}
off_t __wrap_lseek(int descriptor, off_t position, int whence) {
  return trendaro::fails() ? trendaro::failure(EIO) : __real_lseek(descriptor, position, whence);
}
int __wrap_fstat(int descriptor, struct stat* status) {
  return trendaro::fails() ? trendaro::failure(EIO) : __real_fstat(descriptor, status);
}
void* __wrap_aligned_alloc(std::size_t alignment, std::size_t bytes) {
  return trendaro::fails() ? nullptr : __real_aligned_alloc(alignment, bytes);
}

}  // extern "C"

void* operator new(std::size_t bytes) {
  void* block = trendaro::allocated(bytes);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}
void* operator new[](std::size_t bytes) {
  return ::operator new(bytes);
}
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
  return trendaro::allocated(bytes);
}
void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete[](void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  std::free(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
  std::free(block);
}
