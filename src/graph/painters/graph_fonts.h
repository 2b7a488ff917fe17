#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <array>

#include "graph/graph_properties.h"
#include "graph/text_measure.h"

namespace trendaro {

// The fonts of a graph by its settings, and their measures.
class GraphFonts : public TextMeasure {
 public:
  explicit GraphFonts(const GraphProperties& shown);

  [[nodiscard]] const QFont& font(TextRole role) const { return fonts_[static_cast<std::size_t>(role)]; }
  [[nodiscard]] f64 width(TextRole role, std::string_view text) const override;
  [[nodiscard]] f64 height(TextRole role) const override;

 private:
  std::array<QFont, kTextRoles> fonts_;
  std::array<QFontMetricsF, kTextRoles> metrics_;
};

}  // namespace trendaro
