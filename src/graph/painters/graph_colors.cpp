#include "graph/painters/graph_colors.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>
#include <array>
#include <cmath>

namespace trendaro {
namespace {

struct SystemColor {
  QPalette::ColorGroup group;
  QPalette::ColorRole role;
};

constexpr auto kActive = QPalette::Active;
constexpr auto kDisabled = QPalette::Disabled;

// In the order of the desktop's numbered colours.
constexpr std::array kSystemColors = {
    SystemColor{kActive, QPalette::Mid},
    SystemColor{kActive, QPalette::Dark},
    SystemColor{kActive, QPalette::Highlight},
    SystemColor{kActive, QPalette::Mid},
    SystemColor{kActive, QPalette::Window},
    SystemColor{kActive, QPalette::Base},
    SystemColor{kActive, QPalette::Shadow},
    SystemColor{kActive, QPalette::WindowText},
    SystemColor{kActive, QPalette::Text},
    SystemColor{kActive, QPalette::HighlightedText},
    SystemColor{kActive, QPalette::Button},
    SystemColor{kActive, QPalette::Button},
    SystemColor{kActive, QPalette::Dark},
    SystemColor{kActive, QPalette::Highlight},
    SystemColor{kActive, QPalette::HighlightedText},
    SystemColor{kActive, QPalette::Button},
    SystemColor{kActive, QPalette::Dark},
    SystemColor{kDisabled, QPalette::Text},
    SystemColor{kActive, QPalette::ButtonText},
    SystemColor{kDisabled, QPalette::WindowText},
    SystemColor{kActive, QPalette::Light},
    SystemColor{kActive, QPalette::Shadow},
    SystemColor{kActive, QPalette::Midlight},
    SystemColor{kActive, QPalette::ToolTipText},
    SystemColor{kActive, QPalette::ToolTipBase},
};

constexpr std::array kUnsetCurveColors = {0xB4771F, 0x0E7FFF, 0x2CA02C, 0x2827D6, 0xBD6794, 0x4B568C};

constexpr f64 kReadableContrast = 3;
constexpr f64 kMiddleLuminance = 0.18;  // as far from black as from white
constexpr f64 kShadeStep = 0.05;

// How bright a colour looks, from 0 to 1.
f64 luminance(const QColor& color) {
  const auto light = [](f64 part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * light(color.redF()) + 0.7152 * light(color.greenF()) + 0.0722 * light(color.blueF());
}

f64 contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace

QColor graph_color(i32 color) {
  const auto bits = static_cast<u32>(color);
  if ((bits & 0x80000000U) != 0) {
    const u32 index = bits & 0xFFU;
    if (index >= kSystemColors.size()) return Qt::black;
    return QGuiApplication::palette().color(kSystemColors[index].group, kSystemColors[index].role);
  }
  return QColor(static_cast<int>(bits & 0xFFU), static_cast<int>(bits >> 8 & 0xFFU),
                static_cast<int>(bits >> 16 & 0xFFU));
}

QColor blended(const QColor& color, const QColor& back, f64 share) {
  const auto mix = [share](int over, int under) {
    return static_cast<int>(over * share + under * (1 - share) + 0.5);
  };
  return QColor(mix(color.red(), back.red()), mix(color.green(), back.green()),
                mix(color.blue(), back.blue()));
}

QColor readable_on(const QColor& color, const QColor& back) {
  const QColor pole = luminance(back) > kMiddleLuminance ? Qt::black : Qt::white;
  for (f64 share = 1; share > 0; share -= kShadeStep) {
    const QColor shade = blended(color, pole, share);
    if (contrast(shade, back) >= kReadableContrast) return shade;
  }
  return pole;
}

i32 color_number(const QColor& color) {
  return color.blue() << 16 | color.green() << 8 | color.red();
}

QColor curve_color(const GraphProperties& shown, std::size_t subset) {
  if (subset < shown.SubsetColors.size()) return graph_color(shown.SubsetColors[subset]);
  return graph_color(kUnsetCurveColors[subset % kUnsetCurveColors.size()]);
}

}  // namespace trendaro
