#pragma once

#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <vector>

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace trendaro::fuzz {

// Ends the process where a property does not hold, so that the fuzzer keeps the input.
inline void require(bool holds) {
  if (!holds) std::abort();
}

// A file that lives in memory and has a path that can be opened.
class MemoryFile {
 public:
  MemoryFile() : descriptor_(memfd_create("fuzz", MFD_CLOEXEC)) { require(descriptor_ >= 0); }
  explicit MemoryFile(std::span<const std::uint8_t> content) : MemoryFile() {
    for (std::size_t done = 0; done < content.size();) {
      const ssize_t count =
          pwrite(descriptor_, content.data() + done, content.size() - done, static_cast<off_t>(done));
      require(count > 0);
      done += static_cast<std::size_t>(count);
    }
  }
  ~MemoryFile() { close(descriptor_); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  [[nodiscard]] std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }
  [[nodiscard]] std::size_t size() const {
    struct stat status = {};
    require(fstat(descriptor_, &status) == 0);
    return static_cast<std::size_t>(status.st_size);
  }
  // The whole content.
  [[nodiscard]] std::vector<std::uint8_t> content() const {
    std::vector<std::uint8_t> bytes(size());
    require(pread(descriptor_, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()));
    return bytes;
  }

 private:
  int descriptor_;
};

}  // namespace trendaro::fuzz
