#include "files/input_file.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "app/run_time_error.h"

namespace trendaro {
namespace {

// One read call delivers at most about 2 GiB, whatever it is asked for.
constexpr i64 kLongestRead = i64{1} << 30;

bool is_regular(int descriptor) {
  struct stat status {};
  return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

InputFile::InputFile(const std::string& path) {
  // Without O_NONBLOCK the opening of a pipe would wait for a writer.
  descriptor_ = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor_ < 0) return;
  if (!is_regular(descriptor_)) {
    close(descriptor_);
    descriptor_ = -1;
    return;
  }
  static_cast<void>(posix_fadvise(descriptor_, 0, 0, POSIX_FADV_SEQUENTIAL));
}

InputFile::~InputFile() {
  if (descriptor_ >= 0) close(descriptor_);
}

i64 InputFile::size() const {
  struct stat status {};
  if (fstat(descriptor_, &status) != 0) throw RunTimeError{kDeviceError};
  return status.st_size;
}

ReadResult InputFile::read_at(i64 position, void* destination, i64 count) const {
  ReadResult result;
  while (result.bytes < count) {
    const i64 wanted = std::min(count - result.bytes, kLongestRead);
    const ssize_t got = pread(descriptor_, static_cast<char*>(destination) + result.bytes,
                              static_cast<size_t>(wanted), position + result.bytes);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) result.failed = true;
    if (got <= 0) break;
    result.bytes += got;
  }
  return result;
}

i64 delivered_bytes(const ReadResult& read) {
  if (read.failed) throw RunTimeError{kDeviceError};
  return read.bytes;
}

bool is_same_file(int descriptor, int other_descriptor) {
  struct stat one {};
  struct stat other {};
  if (fstat(descriptor, &one) != 0 || fstat(other_descriptor, &other) != 0) return true;
  return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

}  // namespace trendaro
