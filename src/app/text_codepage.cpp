#include "app/text_codepage.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "app/types.h"

namespace trendaro {
namespace {

// Characters of the bytes 0x80 to 0x9F; bytes without a character keep their own number.
constexpr std::array<u16, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

u32 character_of(u8 byte) {
  return byte >= 0x80 && byte <= 0x9F ? kHighControls[byte - 0x80U] : byte;
}

void append_utf8(std::string& text, u32 character) {
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += static_cast<char>(0xC0 | (character >> 6));
    text += static_cast<char>(0x80 | (character & 0x3F));
  } else {
    text += static_cast<char>(0xE0 | (character >> 12));
    text += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
    text += static_cast<char>(0x80 | (character & 0x3F));
  }
}

// The character at `position`, which moves behind it. A broken sequence counts as one unknown character a
// byte.
u32 next_character(std::string_view text, std::size_t& position) {
  const auto lead = static_cast<u8>(text[position++]);
  if (lead < 0x80) return lead;
  const std::size_t followers = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
  if (followers == 0 || position + followers > text.size()) return 0xFFFD;
  u32 character = lead & (0x3FU >> followers);
  for (std::size_t i = 0; i < followers; ++i) {
    const auto byte = static_cast<u8>(text[position + i]);
    if ((byte & 0xC0) != 0x80) return 0xFFFD;
    character = (character << 6) | (byte & 0x3F);
  }
  position += followers;
  return character;
}

char byte_of(u32 character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
  const auto found = std::find(kHighControls.begin(), kHighControls.end(), character);
  return found == kHighControls.end() ? '?' : static_cast<char>(0x80 + (found - kHighControls.begin()));
}

}  // namespace

std::string utf8_from_codepage(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) append_utf8(text, character_of(static_cast<u8>(byte)));
  return text;
}

std::string codepage_from_utf8(std::string_view text) {
  std::string bytes;
  for (std::size_t position = 0; position < text.size();) bytes += byte_of(next_character(text, position));
  return bytes;
}

}  // namespace trendaro
