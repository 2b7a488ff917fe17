#include "graph/tick_spacing.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace trendaro {
namespace {

constexpr f64 kLeastLineDistance = 4;  // pixels
constexpr f64 kMostLines = 1000;
// Between texts of which one may have moved in from an end, in lines.
constexpr f64 kEndGap = 0.4;
constexpr f64 kDayGap = 0.4;

f64 label_size(const TickRequest& request, const TextMeasure& measure, const std::string& label) {
  return request.vertical ? measure.height(TextRole::Axis) : measure.width(TextRole::Axis, label);
}

// Where a text stands along an x axis.
struct TextSpan {
  f64 start, end;
};

TextSpan text_span(const TickRequest& request, const TextMeasure& measure, f64 value,
                   const std::string& text) {
  const f64 width = std::ceil(measure.width(TextRole::Axis, text));
  const f64 centred = pixel_of(request.scale, value) - width / 2;
  const f64 last_start = std::max(request.room_start, request.room_end - width);
  const f64 start = std::clamp(centred, request.room_start, last_start);
  return {start, start + width};
}

bool touch(const TextSpan& one, const TextSpan& other, f64 gap) {
  return one.end + gap > other.start && other.end + gap > one.start;
}

bool ends_collide(const TickRequest& request, const TextMeasure& measure, const Tick& one,
                  const Tick& other) {
  return touch(text_span(request, measure, one.value, one.label),
               text_span(request, measure, other.value, other.label),
               measure.height(TextRole::Axis) * kEndGap);
}

std::vector<Tick*> labelled_ticks(std::vector<Tick>& ticks) {
  std::vector<Tick*> labelled;
  for (Tick& tick : ticks)
    if (!tick.label.empty()) labelled.push_back(&tick);
  return labelled;
}

void take_label(Tick& tick) {
  tick = {tick.value, {}, {}};
}

std::vector<Tick> each_from(const std::vector<Tick>& ticks, std::size_t first, std::size_t every) {
  std::vector<Tick> kept;
  for (std::size_t i = first; i < ticks.size(); i += every) kept.push_back(ticks[i]);
  return kept;
}

f64 label_gap(const TickRequest& request, const TextMeasure& measure) {
  return measure.height(TextRole::Axis) * (request.vertical ? 0.1 : 0.9);
}

}  // namespace

f64 axis_length(const TickRequest& request) {
  return std::abs(request.scale.last - request.scale.first);
}

f64 finest_step(const AxisScale& scale) {
  return std::max(std::abs(scale.minimum), std::abs(scale.maximum)) * 4 * std::numeric_limits<f64>::epsilon();
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

void drop_crowded_ends(const TickRequest& request, const TextMeasure& measure, std::vector<Tick>& ticks) {
  if (request.vertical) return;
  std::vector<Tick*> labelled = labelled_ticks(ticks);
  if (labelled.size() > 1 && ends_collide(request, measure, *labelled[0], *labelled[1])) {
    take_label(*labelled.front());
    labelled.erase(labelled.begin());
  }
  if (labelled.size() > 1 && ends_collide(request, measure, *labelled.back(), *labelled[labelled.size() - 2]))
    take_label(*labelled.back());
}

bool days_collide(const TickRequest& request, const TextMeasure& measure, const Tick& one,
                  const Tick& other) {
  return touch(text_span(request, measure, one.value, one.day),
               text_span(request, measure, other.value, other.day), measure.height(TextRole::Axis) * kDayGap);
}

std::size_t label_count(const std::vector<Tick>& ticks) {
  const auto count =
      std::count_if(ticks.begin(), ticks.end(), [](const Tick& tick) { return !tick.label.empty(); });
  return static_cast<std::size_t>(count);
}

void thin_out_labels(const TickRequest& request, const TextMeasure& measure, std::vector<Tick>& ticks) {
  const auto zero =
      std::find_if(ticks.begin(), ticks.end(), [](const Tick& tick) { return tick.value == 0; });
  const std::size_t zero_index = zero == ticks.end() ? 0 : static_cast<std::size_t>(zero - ticks.begin());
  for (std::size_t every = 1; every <= ticks.size(); ++every) {
    const std::vector<Tick> through_zero = each_from(ticks, zero_index % every, every);
    const std::vector<Tick> from_first = each_from(ticks, 0, every);
    const bool keeps_zero = through_zero.size() == from_first.size();
    if (!labels_fit(request, measure, keeps_zero ? through_zero : from_first)) continue;
    for (std::size_t i = 0; i < ticks.size(); ++i)
      if (i % every != (keeps_zero ? zero_index % every : 0)) take_label(ticks[i]);
    break;
  }
}

}  // namespace trendaro
