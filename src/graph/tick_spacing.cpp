#include "graph/tick_spacing.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace trendaro {
namespace {

constexpr f64 kLeastLineDistance = 4;  // pixels
constexpr f64 kMostLines = 1000;

f64 label_size(const TickRequest& request, const TextMeasure& measure, const std::string& label) {
  return request.vertical ? measure.height(TextRole::Axis) : measure.width(TextRole::Axis, label);
}

f64 label_gap(const TickRequest& request, const TextMeasure& measure) {
  return measure.height(TextRole::Axis) * (request.vertical ? 0.1 : 0.9);
}

}  // namespace

f64 axis_length(const TickRequest& request) {
  return std::abs(request.scale.last - request.scale.first);
}

f64 least_distance(const TickRequest& request, f64 step) {
  const AxisScale& scale = request.scale;
  if (!scale.logarithmic) return step / (scale.maximum - scale.minimum) * axis_length(request);
  const f64 before_last = std::max(scale.minimum, scale.maximum - step);
  return std::abs(pixel_of(scale, scale.maximum) - pixel_of(scale, before_last));
}

bool manual_is_usable(const TickRequest& request) {
  const AxisScale& scale = request.scale;
  const f64 line = request.manual_line;
  const f64 size = std::max(std::abs(scale.minimum), std::abs(scale.maximum));
  if (!(line > size * 16 * std::numeric_limits<f64>::epsilon())) return false;
  if ((scale.maximum - scale.minimum) / line > kMostLines) return false;
  if (least_distance(request, line) < kLeastLineDistance) return false;
  return !scale.logarithmic || line <= scale.maximum;
}

bool labels_fit(const TickRequest& request, const TextMeasure& measure, const std::vector<Tick>& ticks) {
  const f64 gap = label_gap(request, measure);
  for (std::size_t i = 1; i < ticks.size(); ++i) {
    const f64 distance =
        std::abs(pixel_of(request.scale, ticks[i].value) - pixel_of(request.scale, ticks[i - 1].value));
    const f64 needed =
        (label_size(request, measure, ticks[i - 1].label) + label_size(request, measure, ticks[i].label)) /
            2 +
        gap;
    if (distance < needed) return false;
  }
  return true;
}

void thin_out_labels(const TickRequest& request, const TextMeasure& measure, std::vector<Tick>& ticks) {
  for (std::size_t every = 1; every <= ticks.size(); ++every) {
    std::vector<Tick> kept;
    for (std::size_t i = 0; i < ticks.size(); i += every) kept.push_back(ticks[i]);
    if (!labels_fit(request, measure, kept)) continue;
    for (std::size_t i = 0; i < ticks.size(); ++i)
      if (i % every != 0) ticks[i] = {ticks[i].value, {}, {}};
    break;
  }
}

}  // namespace trendaro
