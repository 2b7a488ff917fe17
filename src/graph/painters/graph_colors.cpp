#include "graph/painters/graph_colors.h"

#include <QGuiApplication>
#include <QPalette>
#include <array>

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

QColor curve_color(const GraphProperties& shown, std::size_t subset) {
  if (subset < shown.SubsetColors.size()) return graph_color(shown.SubsetColors[subset]);
  return graph_color(kUnsetCurveColors[subset % kUnsetCurveColors.size()]);
}

}  // namespace trendaro
