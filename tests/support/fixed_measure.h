#pragma once

#include "graph/text_measure.h"

namespace trendaro {

// Every character is 7 pixels wide, every line 14 pixels high; a UTF-8 character counts once.
class FixedMeasure : public TextMeasure {
 public:
  [[nodiscard]] f64 width(TextRole, std::string_view text) const override {
    f64 characters = 0;
    for (const char byte : text)
      if ((static_cast<unsigned char>(byte) & 0xC0) != 0x80) ++characters;
    return characters * 7;
  }
  [[nodiscard]] f64 height(TextRole) const override { return 14; }
};

}  // namespace trendaro
