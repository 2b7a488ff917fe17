#include "files/file_conversions.h"

#include <algorithm>
#include <bit>

#include "app/paths.h"

namespace trendaro {
namespace {

bool begins_character(char byte) {
  return (static_cast<u8>(byte) & 0xC0) != 0x80;
}

// Bytes of the first `count` characters.
std::size_t bytes_of_first(std::string_view text, std::size_t count) {
  std::size_t position = 0;
  while (position < text.size() && count-- > 0) {
    ++position;
    while (position < text.size() && !begins_character(text[position])) ++position;
  }
  return position;
}

std::string_view left(std::string_view text, std::size_t count) {
  return text.substr(0, bytes_of_first(text, count));
}

std::string_view right(std::string_view text, std::size_t count) {
  const auto characters = static_cast<std::size_t>(std::count_if(text.begin(), text.end(), begins_character));
  return characters <= count ? text : text.substr(bytes_of_first(text, characters - count));
}

}  // namespace

f64 FileSizeAsReal(const InputFile& file) {
  return static_cast<f64>(file.size());
}

bool IsAllOnes(f32 field) {
  return std::bit_cast<u32>(field) == 0xFFFFFFFFU;
}

std::string CutAtNul(std::string_view text) {
  return std::string(right_trimmed(text.substr(0, text.find('\0'))));
}

std::string RecorderDateToText(std::string_view text) {
  const std::string_view start = left(text, 19);
  const std::string with_year = std::string(left(start, 11)).append(right(text, 4));
  return std::string(right(with_year, 11)).append(right(start, 9));
}

}  // namespace trendaro
