#include "output/template_text.h"

#include <algorithm>

namespace trendaro {
namespace {

constexpr char kHexDigits[] = "0123456789abcdef";

bool is_control(char letter) {
  return static_cast<unsigned char>(letter) < 0x20 || letter == 0x7F;
}

int hex_digit(char letter) {
  const auto* const found = std::find(kHexDigits, kHexDigits + 16, letter);
  return found == kHexDigits + 16 ? -1 : static_cast<int>(found - kHexDigits);
}

}  // namespace

void append_quoted(std::string& out, std::string_view text) {
  out += '"';
  for (const char letter : text) {
    if (is_control(letter)) {
      out += "\\x";
      out += kHexDigits[(letter >> 4) & 0xF];
      out += kHexDigits[letter & 0xF];
      continue;
    }
    if (letter == '"' || letter == '\\') out += '\\';
    out += letter;
  }
  out += '"';
}

bool take_quoted(std::string_view& rest, std::string& text) {
  text.clear();
  if (!take_token(rest, "\"")) return false;
  while (!rest.empty()) {
    const char letter = rest.front();
    rest.remove_prefix(1);
    if (letter == '"') return true;
    if (letter != '\\') {
      text += letter;
      continue;
    }
    if (rest.empty()) return false;
    const char escaped = rest.front();
    rest.remove_prefix(1);
    if (escaped == 'x') {
      if (rest.size() < 2 || hex_digit(rest[0]) < 0 || hex_digit(rest[1]) < 0) return false;
      text += static_cast<char>(hex_digit(rest[0]) * 16 + hex_digit(rest[1]));
      rest.remove_prefix(2);
    } else {
      text += escaped;
    }
  }
  return false;
}

void skip_blanks(std::string_view& rest) {
  rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
}

bool take_token(std::string_view& rest, std::string_view token) {
  if (!rest.starts_with(token)) return false;
  rest.remove_prefix(token.size());
  return true;
}

}  // namespace trendaro
