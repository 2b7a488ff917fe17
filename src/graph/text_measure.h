#pragma once

#include <cstddef>
#include <string_view>

#include "app/types.h"

namespace trendaro {

// What a text of a graph is for; each role has its own font.
enum class TextRole : u8 {
  MainTitle,
  SubTitle,
  Axis,
  Legend,
  Annotation,      // of points and shapes
  AxisAnnotation,  // of marks at an axis
  LineAnnotation,  // of whole lines
  Table,
};
inline constexpr std::size_t kTextRoles = 8;

// Measures texts for the layout, so that it needs no toolkit. All lengths are pixels, texts are UTF-8.
class TextMeasure {
 public:
  virtual ~TextMeasure() = default;
  [[nodiscard]] virtual f64 width(TextRole role, std::string_view text) const = 0;
  // Height of a line of text.
  [[nodiscard]] virtual f64 height(TextRole role) const = 0;
};

}  // namespace trendaro
