#include "files/byte_writer.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <limits>

#include <fcntl.h>
#include <unistd.h>

#include "app/text_codepage.h"

namespace trendaro {
namespace {

static_assert(std::endian::native == std::endian::little);

constexpr std::size_t kBufferBytes = std::size_t{1} << 20;
constexpr std::size_t kLongestText = std::numeric_limits<i16>::max();

template <typename Number>
std::string_view bytes_of(const Number& value) {
  return {reinterpret_cast<const char*>(&value), sizeof value};
}

}  // namespace

ByteWriter::ByteWriter(const std::string& path) {
  // Without O_NONBLOCK the opening of a pipe would wait for a reader.
  descriptor_ = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666);
  ok_ = descriptor_ >= 0;
}

ByteWriter::~ByteWriter() {
  if (is_open()) finish();
}

void ByteWriter::write_out(const char* bytes, std::size_t count) {
  std::size_t written = 0;
  while (ok_ && written < count) {
    const ssize_t result =
        pwrite(descriptor_, bytes + written, count - written, buffer_begin_ + static_cast<i64>(written));
    if (result > 0)
      written += static_cast<std::size_t>(result);
    else if (result == 0 || errno != EINTR)
      ok_ = false;
  }
  buffer_begin_ += static_cast<i64>(count);
}

void ByteWriter::flush() {
  write_out(buffer_.data(), buffer_.size());
  buffer_.clear();
}

void ByteWriter::write_bytes(std::string_view bytes) {
  if (!ok_) return;
  if (buffer_.size() + bytes.size() > kBufferBytes) flush();
  if (bytes.size() >= kBufferBytes)
    write_out(bytes.data(), bytes.size());
  else
    buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
}

void ByteWriter::write_u8(u8 value) {
  write_bytes(bytes_of(value));
}
void ByteWriter::write_i16(i16 value) {
  write_bytes(bytes_of(value));
}
void ByteWriter::write_i32(i32 value) {
  write_bytes(bytes_of(value));
}
void ByteWriter::write_f32(f32 value) {
  write_bytes(bytes_of(value));
}
void ByteWriter::write_f64(f64 value) {
  write_bytes(bytes_of(value));
}

void ByteWriter::write_values(std::span<const f64> values) {
  write_bytes({reinterpret_cast<const char*>(values.data()), values.size_bytes()});
}

void ByteWriter::write_counted_text(std::string_view text) {
  write_counted_bytes(codepage_from_utf8(text));
}

void ByteWriter::write_counted_bytes(std::string_view bytes) {
  const std::string_view kept = bytes.substr(0, kLongestText);
  write_i16(static_cast<i16>(kept.size()));
  write_bytes(kept);
}

void ByteWriter::seek(i64 position) {
  flush();
  if (position < 0)
    ok_ = false;
  else
    buffer_begin_ = position;
}

void ByteWriter::patch_i32(i64 place, i32 value) {
  const i64 here = position();
  seek(place);
  write_i32(value);
  seek(here);
}

bool ByteWriter::finish() {
  if (!is_open()) return false;
  flush();
  if (close(descriptor_) != 0) ok_ = false;
  descriptor_ = -1;
  return ok_;
}

}  // namespace trendaro
