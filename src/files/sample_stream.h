#pragma once

#include <functional>
#include <span>

#include "app/types.h"
#include "files/input_file.h"
#include "files/sample_array.h"

namespace trendaro {

// f64 samples of a file in their order, in runs of any length. Behind the runs stand large reads: a read a
// run costs several times the bytes themselves.
class SampleStream {
 public:
  // Starts at a byte counted from the file's start. `longest_run` is the most values that will be taken at
  // once; memory for it is held against the file's size. `on_read` is told the position behind each read, in
  // bytes. `file` must outlive the stream.
  SampleStream(const InputFile& file, i64 position, i64 longest_run, std::function<void(i64)> on_read);

  // The next `count` values, at least 1; valid until the next call. Empty when the file has fewer, a read
  // failed, or the run is longer than agreed.
  std::span<const f64> take(i64 count);

 private:
  void read_on();

  const InputFile& file_;
  i64 position_;  // in the file, of the byte behind the buffer's last
  std::function<void(i64)> on_read_;
  SampleArray buffer_;
  i64 begin_ = 0;  // values of the buffer that are still to be taken
  i64 end_ = 0;
};

}  // namespace trendaro
