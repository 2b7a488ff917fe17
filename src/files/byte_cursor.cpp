#include "files/byte_cursor.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "app/run_time_error.h"
#include "app/text_codepage.h"

namespace trendaro {
namespace {

// Files and memory share their byte order, so that numbers are copied as they stand.
static_assert(std::endian::native == std::endian::little);

// The first read behind a jump is short, since the next jump may follow at once; reads in sequence grow.
constexpr i64 kShortestFill = i64{4} << 10;
constexpr i64 kLongestFill = i64{256} << 10;

}  // namespace

ByteCursor::ByteCursor(const InputFile& file, i64 position)
    : file_(file), position_(position), size_(file.size()), next_fill_(kShortestFill) {}

void ByteCursor::fail() {
  ok_ = false;
  position_ = std::max(position_, size_);
}

// Brings the next `count` bytes, at most kShortestFill, into the buffer.
bool ByteCursor::fill(i64 count) {
  if (position_ >= buffer_begin_ && position_ + count <= buffer_end_) return true;
  if (left() < count) return false;
  const bool in_sequence = position_ >= buffer_begin_ && position_ <= buffer_end_ && buffer_end_ > 0;
  next_fill_ = in_sequence ? std::min(next_fill_ * 2, kLongestFill) : kShortestFill;
  if (static_cast<i64>(buffer_.size()) < next_fill_) buffer_.resize(static_cast<std::size_t>(next_fill_));
  const ReadResult result = file_.read_at(position_, buffer_.data(), next_fill_);
  // What was read ahead of need may yet arrive, or never be asked for.
  device_failed_ = device_failed_ || (result.failed && result.bytes < count);
  buffer_begin_ = position_;
  buffer_end_ = position_ + result.bytes;
  return result.bytes >= count;
}

bool ByteCursor::fetch(void* destination, i64 count) {
  if (!fill(count)) {
    fail();
    return false;
  }
  std::memcpy(destination, buffer_.data() + (position_ - buffer_begin_), static_cast<std::size_t>(count));
  position_ += count;
  return true;
}

template <typename Number>
Number ByteCursor::number() {
  Number value = 0;
  fetch(&value, sizeof value);
  return value;
}

u8 ByteCursor::read_u8() {
  return number<u8>();
}
i16 ByteCursor::read_i16() {
  return number<i16>();
}
i32 ByteCursor::read_i32() {
  return number<i32>();
}
f32 ByteCursor::read_f32() {
  return number<f32>();
}
f64 ByteCursor::read_f64() {
  return number<f64>();
}

std::string ByteCursor::read_bytes(i64 count) {
  if (count < 0 || left() < count) {
    fail();
    return {};
  }
  std::string bytes(static_cast<std::size_t>(count), '\0');
  if (read_into(bytes.data(), count).bytes < count) return {};
  return bytes;
}

std::string ByteCursor::read_counted_bytes() {
  const i16 length = read_i16();
  if (length < 0) throw RunTimeError{kInvalidArgument};
  return read_bytes(length);
}

std::string ByteCursor::read_counted_text() {
  return utf8_from_codepage(read_counted_bytes());
}

std::string ByteCursor::read_optional_text() {
  const i16 length = read_i16();
  return length > 0 ? utf8_from_codepage(read_bytes(length)) : std::string();
}

ReadResult ByteCursor::read_into(void* destination, i64 count) {
  if (count <= 0) return {};
  if (count <= kShortestFill && fill(count)) {
    fetch(destination, count);
    return {count, false};
  }
  const ReadResult result = file_.read_at(position_, destination, count);
  device_failed_ = device_failed_ || result.failed;
  position_ += result.bytes;
  if (result.bytes < count) fail();
  return result;
}

void ByteCursor::skip_counted_text() {
  const i16 length = read_i16();
  if (length < 0) throw RunTimeError{kInvalidArgument};
  skip(length);
}

bool ByteCursor::seek(i64 position) {
  if (position < 0) return false;
  position_ = position;
  return true;
}

bool ByteCursor::skip(i64 distance) {
  i64 target = 0;
  return !__builtin_add_overflow(position_, distance, &target) && seek(target);
}

}  // namespace trendaro
