#include "graph/painters/graph_fonts.h"

#include <algorithm>
#include <cmath>

namespace trendaro {
namespace {

struct FontSettings {
  const std::string& family;
  bool bold, italic, underline;
};

// Height of the letters of axes and legend in pixels: large, medium, small.
f64 label_size(i32 size_class) {
  if (size_class <= 0) return 15;
  return size_class == 1 ? 12.5 : 10.5;
}

f64 usable_factor(f32 factor) {
  return std::isfinite(factor) && factor > 0 ? std::clamp(static_cast<f64>(factor), 0.3, 5.0) : 1;
}

QFont make_font(const FontSettings& settings, f64 pixels) {
  QFont font(QString::fromUtf8(settings.family.data(), static_cast<qsizetype>(settings.family.size())));
  font.setPixelSize(std::max(6, static_cast<int>(std::lround(pixels))));
  font.setBold(settings.bold);
  font.setItalic(settings.italic);
  font.setUnderline(settings.underline);
  // Widths then stay in proportion at every scale, and a layout fits on screen and on paper.
  font.setHintingPreference(QFont::PreferVerticalHinting);
  return font;
}

// The size of the first table on show; they differ in nothing else.
i32 table_text_size(const GraphProperties& shown) {
  for (const TableProperties& table : shown.tables)
    if (table.TableVisible) return table.TableTextSize;
  return 100;
}

// A size in percent.
f64 percent(i32 size) {
  return size > 0 ? std::clamp(size / 100.0, 0.3, 5.0) : 1;
}

std::array<QFont, kTextRoles> make_fonts(const GraphProperties& shown) {
  const f64 size = label_size(shown.FontSizeClass);
  const f64 axis_size = size * usable_factor(shown.FontScale2);
  const FontSettings title{shown.MainTitleFont, shown.MainTitleBold, shown.MainTitleItalic,
                           shown.MainTitleUnderline};
  const FontSettings subtitle{shown.SubTitleFont, shown.SubTitleBold, shown.SubTitleItalic,
                              shown.SubTitleUnderline};
  const FontSettings label{shown.LabelFont, shown.LabelBold, shown.LabelItalic, shown.LabelUnderline};
  return {make_font(title, size * 1.28 * usable_factor(shown.FontScale1)),
          make_font(subtitle, size * 1.0 * usable_factor(shown.FontScale1)),
          make_font(label, axis_size),
          make_font(label, size * usable_factor(shown.FontScale3)),
          make_font(label, axis_size * percent(shown.AnnotationTextSize)),
          make_font(label, axis_size * percent(shown.AxisAnnotationTextSize)),
          make_font(label, axis_size * percent(shown.LineAnnotationTextSize)),
          make_font(label, axis_size * percent(table_text_size(shown)))};
}

}  // namespace

GraphFonts::GraphFonts(const GraphProperties& shown)
    : fonts_(make_fonts(shown)), metrics_{QFontMetricsF(fonts_[0]), QFontMetricsF(fonts_[1]),
                                          QFontMetricsF(fonts_[2]), QFontMetricsF(fonts_[3]),
                                          QFontMetricsF(fonts_[4]), QFontMetricsF(fonts_[5]),
                                          QFontMetricsF(fonts_[6]), QFontMetricsF(fonts_[7])} {}

f64 GraphFonts::width(TextRole role, std::string_view text) const {
  return metrics_[static_cast<std::size_t>(role)].horizontalAdvance(
      QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

f64 GraphFonts::height(TextRole role) const {
  return std::ceil(metrics_[static_cast<std::size_t>(role)].height());
}

}  // namespace trendaro
