#pragma once

#include <string>

#include "app/types.h"

namespace trendaro {

// What a read delivered. Fewer bytes than asked without a failure means that the file ended.
struct ReadResult {
  i64 bytes = 0;
  bool failed = false;  // the system reported an error; `bytes` arrived before it
};

// A regular file opened for reading, closed by its destructor. Bytes are read from a given position, never
// through a mapping, so that a file cut short meanwhile only delivers less.
class InputFile {
 public:
  // Folders, pipes and devices count as not opened.
  explicit InputFile(const std::string& path);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  [[nodiscard]] bool is_open() const { return descriptor_ >= 0; }
  // Bytes in the file at this moment. Throws RunTimeError{kDeviceError} when the system cannot tell: a file
  // taken for empty would be a success that is none.
  [[nodiscard]] i64 size() const;
  // Reads up to `count` bytes from the byte `position` on. A negative position fails; a `count` of 0 or less
  // reads nothing.
  ReadResult read_at(i64 position, void* destination, i64 count) const;

  // The system's handle, for questions about the file itself.
  [[nodiscard]] int descriptor() const { return descriptor_; }

 private:
  int descriptor_ = -1;
};

// The bytes that a read delivered. Throws RunTimeError{kDeviceError} when the system reported an error.
i64 delivered_bytes(const ReadResult& read);

// True when both handles name one and the same file, by whatever paths it was opened, and also when the
// system cannot tell: what is asked is whether one may be written without harm to the other.
bool is_same_file(int descriptor, int other_descriptor);

}  // namespace trendaro
