#pragma once

#include <string>
#include <string_view>

namespace trendaro {

// Files hold Windows-1252, memory holds UTF-8. The five bytes without a character (0x81, 0x8D, 0x8F, 0x90,
// 0x9D) become the control characters of the same number, so that every byte comes back as it was.
std::string utf8_from_codepage(std::string_view bytes);

// The way back. A character that Windows-1252 lacks becomes "?".
std::string codepage_from_utf8(std::string_view text);

}  // namespace trendaro
