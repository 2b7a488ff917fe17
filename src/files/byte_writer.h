#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/types.h"

namespace trendaro {

// Writes little-endian fields into a file, through a buffer. The first write that fails makes ok() false for
// good, and what follows is dropped. A buffered write may fail late: a file is complete only when finish()
// has given true.
class ByteWriter {
 public:
  // Opens the file, or creates it. What it holds already stays until it is written over, also behind the end
  // of shorter new content.
  explicit ByteWriter(const std::string& path);
  // Writes out and closes; the result of finish() is the way to learn of a failure.
  ~ByteWriter();
  ByteWriter(const ByteWriter&) = delete;
  ByteWriter& operator=(const ByteWriter&) = delete;

  [[nodiscard]] bool is_open() const { return descriptor_ >= 0; }
  // The system's handle, as is_same_file takes it.
  [[nodiscard]] int descriptor() const { return descriptor_; }
  [[nodiscard]] bool ok() const { return ok_; }

  void write_u8(u8 value);
  void write_i16(i16 value);
  void write_i32(i32 value);
  void write_f32(f32 value);
  void write_f64(f64 value);
  void write_bytes(std::string_view bytes);
  void write_values(std::span<const f64> values);
  // An i16 length and the bytes of Windows-1252 for a UTF-8 text; bytes behind the 32767th are cut off.
  void write_counted_text(std::string_view text);
  // The same for bytes as they stand.
  void write_counted_bytes(std::string_view bytes);

  // Place of the next byte, counted from the start.
  [[nodiscard]] i64 position() const { return buffer_begin_ + static_cast<i64>(buffer_.size()); }
  // Goes on at another place; a place ahead of the start is a failure.
  void seek(i64 position);
  // Writes one field elsewhere; the position stays.
  void patch_i32(i64 place, i32 value);

  // Writes out and closes. True when every byte arrived.
  bool finish();

 private:
  void write_out(const char* bytes, std::size_t count);
  void flush();

  int descriptor_ = -1;
  std::vector<char> buffer_;
  i64 buffer_begin_ = 0;  // position in the file of the buffer's first byte
  bool ok_ = false;
};

}  // namespace trendaro
