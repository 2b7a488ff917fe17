#include "app/bus_samples.h"

#include <algorithm>
#include <bit>
#include <cerrno>

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "app/run_time_error.h"

namespace trendaro {
namespace {

static_assert(std::endian::native == std::endian::little);

bool write_all(int descriptor, std::span<const char> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace

QDBusUnixFileDescriptor samples_to_send(std::span<const f64> values) {
  QDBusUnixFileDescriptor file;
  const int descriptor = ::memfd_create("samples", MFD_CLOEXEC);
  if (descriptor < 0) throw RunTimeError{kOutOfMemory};
  file.giveFileDescriptor(descriptor);
  if (!write_all(descriptor, {reinterpret_cast<const char*>(values.data()), values.size_bytes()}))
    throw RunTimeError{kOutOfMemory};
  return file;
}

i64 samples_in(const QDBusUnixFileDescriptor& file) {
  struct stat status {};
  if (!file.isValid() || ::fstat(file.fileDescriptor(), &status) != 0 || !S_ISREG(status.st_mode))
    throw RunTimeError{kTypeMismatch};
  return static_cast<i64>(status.st_size) / i64{sizeof(f64)};
}

// Reads and no mapping: the other process may still cut the file short.
i64 receive_samples(const QDBusUnixFileDescriptor& file, i64 first, std::span<f64> values) {
  const i64 count = std::clamp<i64>(samples_in(file) - first, 0, static_cast<i64>(values.size()));
  const i64 begin = first * i64{sizeof(f64)};
  auto* place = reinterpret_cast<char*>(values.data());
  const i64 bytes = count * i64{sizeof(f64)};
  for (i64 done = 0; done < bytes;) {
    const ssize_t read =
        ::pread(file.fileDescriptor(), place + done, static_cast<std::size_t>(bytes - done), begin + done);
    if (read < 0 && errno == EINTR) continue;
    if (read <= 0) throw RunTimeError{kDeviceError};
    done += read;
  }
  return count;
}

}  // namespace trendaro
