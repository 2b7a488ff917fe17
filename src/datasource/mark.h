#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "app/types.h"

namespace trendaro {

// The contents of a mark cell.
struct Mark {
  i16 index = 0;  // channel in the file, from 1
  i16 layer = 1;  // 1 to 3
  i16 side = 1;   // 1 left, 2 right

  friend bool operator==(const Mark&, const Mark&) = default;
};

// "7_2_1". Layer and side have one digit each.
std::string mark_text(const Mark& mark);
// The mark of a cell; nothing when the cell holds a plain index.
std::optional<Mark> parse_mark(std::string_view cell);
// The channel index of a marked or unmarked cell; 0 when it holds none.
i16 mark_index(std::string_view cell);

}  // namespace trendaro
