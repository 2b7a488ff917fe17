#pragma once

#include <bit>
#include <cstddef>
#include <cstring>
#include <span>
#include <string_view>
#include <type_traits>

#include "app/types.h"

namespace trendaro {

static_assert(std::endian::native == std::endian::little,
              "the files are little-endian and read as they stand");

// The number at `bytes`, which need no alignment.
template <typename Number>
Number number_at(const u8* bytes) {
  static_assert(std::is_arithmetic_v<Number>);
  Number value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

// The start of a file in memory, fields taken by their offset. A field that does not lie wholly in the bytes
// that are there is zero or empty.
struct ByteView {
  std::span<const u8> bytes;

  template <typename Number>
  [[nodiscard]] Number number(i64 offset) const {
    return holds(offset, sizeof(Number)) ? number_at<Number>(bytes.data() + offset) : Number{};
  }
  // `length` bytes as they stand in the file.
  [[nodiscard]] std::string_view text(i64 offset, std::size_t length) const {
    if (!holds(offset, length)) return {};
    return {reinterpret_cast<const char*>(bytes.data()) + offset, length};
  }
  [[nodiscard]] bool holds(i64 offset, std::size_t length) const {
    return offset >= 0 && static_cast<u64>(offset) <= bytes.size() &&
           bytes.size() - static_cast<std::size_t>(offset) >= length;
  }
};

}  // namespace trendaro
