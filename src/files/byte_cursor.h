#pragma once

#include <string>
#include <vector>

#include "app/types.h"
#include "files/input_file.h"

namespace trendaro {

// Reads little-endian fields from a file, through a buffer, at a position of its own.
//
// A read past the end gives zero or an empty text, takes the position to the end and leaves ok() false for
// good; reads after a seek back deliver again. So a header can be read on without a test and asked at its
// end. The cursor keeps the size that the file had when it was made.
class ByteCursor {
 public:
  // `file` must outlive the cursor.
  explicit ByteCursor(const InputFile& file, i64 position = 0);

  u8 read_u8();
  i16 read_i16();
  i32 read_i32();
  f32 read_f32();
  f64 read_f64();
  // `count` bytes as they stand; empty when fewer are left, or for a count below 0.
  std::string read_bytes(i64 count);
  // An i16 length and that many bytes as they stand. Throws RunTimeError{kInvalidArgument} for a negative
  // length.
  std::string read_counted_bytes();
  // The same, turned into UTF-8.
  std::string read_counted_text();
  // A counted text whose length of 0 or less means that no bytes follow; UTF-8.
  std::string read_optional_text();
  // Reads up to `count` bytes to `destination`; large reads go there straight. Delivering less than `count`
  // leaves ok() false as well.
  ReadResult read_into(void* destination, i64 count);

  // Passes a counted text without reading its bytes; throws as read_counted_bytes.
  void skip_counted_text();

  [[nodiscard]] i64 position() const { return position_; }
  // Size of the file when the cursor was made.
  [[nodiscard]] i64 size() const { return size_; }
  // Bytes between position and end; 0 behind the end.
  [[nodiscard]] i64 left() const { return position_ < size_ ? size_ - position_ : 0; }
  // Goes to a byte counted from the start, or onwards from here; behind the end is allowed. A place ahead of
  // the start gives false and leaves the position.
  bool seek(i64 position);
  bool skip(i64 distance);

  // False from the first read on that did not deliver what it was asked for.
  [[nodiscard]] bool ok() const { return ok_; }
  // True when the system reported an error, which is more than a file that is too short.
  [[nodiscard]] bool device_failed() const { return device_failed_; }

 private:
  bool fill(i64 count);
  bool fetch(void* destination, i64 count);
  void fail();
  template <typename Number>
  Number number();

  const InputFile& file_;
  i64 position_ = 0;
  i64 size_ = 0;
  std::vector<char> buffer_;
  i64 buffer_begin_ = 0;  // position in the file of the buffer's first byte
  i64 buffer_end_ = 0;
  i64 next_fill_;  // bytes to ask for when the buffer is filled next
  bool ok_ = true;
  bool device_failed_ = false;
};

}  // namespace trendaro
