#include "graph/axis_ticks.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "graph/tick_spacing.h"

namespace trendaro {
namespace {

constexpr std::size_t kMostTicks = 7000;  // the widest picture has room for no more

// A distance of m x 10^e, with m from 1, 2, 5.
struct Step {
  int mantissa = 1;
  int exponent = 0;

  [[nodiscard]] f64 size() const { return mantissa * std::pow(10.0, exponent); }
  // Divides where the power is negative: 3 / 10 is nearer to 0.3 than 3 x 0.1.
  [[nodiscard]] f64 multiple(f64 count) const {
    const f64 power = std::pow(10.0, std::abs(exponent));
    return exponent < 0 ? count * mantissa / power : count * mantissa * power;
  }
  [[nodiscard]] Step next() const {
    if (mantissa == 1) return {2, exponent};
    if (mantissa == 2) return {5, exponent};
    return {1, exponent + 1};
  }
  [[nodiscard]] Step former() const {
    if (mantissa == 5) return {2, exponent};
    if (mantissa == 2) return {1, exponent};
    return {5, exponent - 1};
  }
};

Step smallest_step_from(f64 least) {
  Step step{1, static_cast<int>(std::floor(std::log10(least)))};
  while (step.size() < least * (1 - 1e-9)) step = step.next();
  return step;
}

// Values at whole multiples between the limits; a limit that misses a multiple by rounding alone has it.
template <typename Multiple>
std::vector<f64> multiples_between(const AxisScale& scale, f64 step, Multiple multiple) {
  const f64 slack = 1e-6;
  const f64 first = std::ceil(scale.minimum / step - slack);
  const f64 last = std::floor(scale.maximum / step + slack);
  std::vector<f64> values;
  if (!(last - first < static_cast<f64>(kMostTicks))) return values;
  for (f64 count = first; count <= last; ++count) values.push_back(multiple(count) + 0.0);
  return values;
}

std::vector<Tick> labelled(const TickRequest& request, const std::vector<f64>& values, f64 step) {
  const std::vector<std::string> labels = tick_labels(values, step, request.format, request.power);
  std::vector<Tick> ticks;
  for (std::size_t i = 0; i < values.size(); ++i) ticks.push_back({values[i], labels[i], {}});
  return ticks;
}

std::vector<f64> minor_values(const TickRequest& request, f64 step, f64 major_step) {
  const f64 pixels = step / (request.scale.maximum - request.scale.minimum) * axis_length(request);
  if (pixels < kMinorSpacing && !request.scale.logarithmic) return {};
  std::vector<f64> values =
      multiples_between(request.scale, step, [step](f64 count) { return count * step; });
  std::erase_if(values, [&](f64 value) {
    return std::abs(value / major_step - std::round(value / major_step)) < 1e-6;
  });
  return values;
}

// The distance below which ticks would crowd.
f64 least_step(const TickRequest& request, const TextMeasure& measure) {
  const f64 line = measure.height(TextRole::Axis);
  const f64 length = axis_length(request);
  // A low axis gets its labels closer together, so that it still has some.
  const f64 spacing = request.vertical ? std::clamp(length / 8, line * 1.15, line * 2.8) : line * 4.5;
  const f64 span = request.scale.maximum - request.scale.minimum;
  return std::max(span / std::max(1.0, length / spacing), finest_step(request.scale));
}

AxisTicks stepped_ticks(const TickRequest& request, Step step) {
  AxisTicks ticks;
  ticks.major = labelled(
      request,
      multiples_between(request.scale, step.size(), [step](f64 count) { return step.multiple(count); }),
      step.size());
  const f64 parts = step.mantissa == 2 ? 4 : 5;
  ticks.minor = minor_values(request, step.size() / parts, step.size());
  return ticks;
}

AxisTicks linear_ticks(const TickRequest& request, const TextMeasure& measure) {
  Step step = smallest_step_from(least_step(request, measure));
  AxisTicks ticks = stepped_ticks(request, step);
  // Each try is coarser; no label is left to collide after a few decades.
  for (int tries = 0; tries < 12 && !labels_fit(request, measure, ticks.major); ++tries) {
    step = step.next();
    ticks = stepped_ticks(request, step);
  }
  drop_crowded_ends(request, measure, ticks.major);
  for (int tries = 0; tries < kFinerTries && label_count(ticks.major) < 2; ++tries) {
    step = step.former();
    if (step.size() < finest_step(request.scale)) break;
    AxisTicks finer = stepped_ticks(request, step);
    thin_out_labels(request, measure, finer.major);
    drop_crowded_ends(request, measure, finer.major);
    if (label_count(finer.major) > label_count(ticks.major)) ticks = std::move(finer);
  }
  return ticks;
}

AxisTicks manual_ticks(const TickRequest& request, const TextMeasure& measure) {
  const f64 line = request.manual_line;
  AxisTicks ticks;
  ticks.major = labelled(
      request, multiples_between(request.scale, line, [line](f64 count) { return count * line; }), line);
  thin_out_labels(request, measure, ticks.major);
  drop_crowded_ends(request, measure, ticks.major);
  const bool room =
      !request.scale.logarithmic || least_distance(request, request.manual_tick) >= kMinorSpacing;
  if (request.manual_tick > 0 && room) ticks.minor = minor_values(request, request.manual_tick, line);
  return ticks;
}

bool inside(const AxisScale& scale, f64 value) {
  return value >= scale.minimum * (1 - 1e-9) && value <= scale.maximum * (1 + 1e-9);
}

// The labelled values of a logarithmic axis: one in every so many decades, or 1, 2 and 5 in each.
struct DecadeLevel {
  int every;
  bool has_parts;

  [[nodiscard]] std::vector<int> parts() const {
    return has_parts ? std::vector<int>{1, 2, 5} : std::vector<int>{1};
  }
};

constexpr std::array kDecadeLevels = {
    DecadeLevel{1, true},    DecadeLevel{1, false},   DecadeLevel{2, false},  DecadeLevel{3, false},
    DecadeLevel{5, false},   DecadeLevel{10, false},  DecadeLevel{20, false}, DecadeLevel{50, false},
    DecadeLevel{100, false}, DecadeLevel{200, false}, DecadeLevel{500, false}};

// The values of every so many decades that lie on the axis.
std::vector<DecadePart> decade_parts(const AxisScale& scale, int every, const std::vector<int>& parts) {
  const int first = static_cast<int>(std::floor(std::log10(scale.minimum)));
  const int last = static_cast<int>(std::ceil(std::log10(scale.maximum)));
  std::vector<DecadePart> values;
  for (int decade = first; decade <= last; ++decade)
    if (decade % every == 0)
      for (const int part : parts)
        if (inside(scale, decade_value({decade, part}))) values.push_back({decade, part});
  return values;
}

// The ratio itself may lie beyond the largest number.
f64 decades_of(const AxisScale& scale) {
  const f64 ratio = scale.maximum / scale.minimum;
  return std::isfinite(ratio) ? std::log10(ratio) : std::log10(scale.maximum) - std::log10(scale.minimum);
}

// All parts of the decades where there is room, else the densest decades that have it.
std::vector<DecadePart> decade_minors(const TickRequest& request, int every) {
  const f64 decade_pixels = axis_length(request) / decades_of(request.scale);
  if (every == 1 && decade_pixels >= kMinorSpacing * 8)
    return decade_parts(request.scale, 1, {1, 2, 3, 4, 5, 6, 7, 8, 9});
  for (const int apart : {1, 2, 5, 10, 20, 50, 100})
    if (apart < every && every % apart == 0 && apart * decade_pixels >= kMinorSpacing)
      return decade_parts(request.scale, apart, {1});
  return {};
}

AxisTicks decade_ticks(const TickRequest& request, const DecadeLevel& level) {
  const std::vector<int> parts = level.parts();
  const std::vector<DecadePart> labelled = decade_parts(request.scale, level.every, parts);
  const std::vector<std::string> labels = decade_labels(labelled, request.format, request.power);
  AxisTicks ticks;
  for (std::size_t i = 0; i < labelled.size(); ++i)
    ticks.major.push_back({decade_value(labelled[i]), labels[i], {}});
  for (const DecadePart& minor : decade_minors(request, level.every)) {
    const bool is_major =
        minor.exponent % level.every == 0 && std::find(parts.begin(), parts.end(), minor.part) != parts.end();
    if (!is_major) ticks.minor.push_back(decade_value(minor));
  }
  return ticks;
}

AxisTicks logarithmic_ticks(const TickRequest& request, const TextMeasure& measure) {
  if (decades_of(request.scale) < 1) return linear_ticks(request, measure);
  std::size_t level = 0;
  AxisTicks ticks = decade_ticks(request, kDecadeLevels[level]);
  while (!labels_fit(request, measure, ticks.major) && level + 1 < kDecadeLevels.size())
    ticks = decade_ticks(request, kDecadeLevels[++level]);
  drop_crowded_ends(request, measure, ticks.major);
  while (level > 0 && label_count(ticks.major) < 2) {
    AxisTicks finer = decade_ticks(request, kDecadeLevels[--level]);
    thin_out_labels(request, measure, finer.major);
    drop_crowded_ends(request, measure, finer.major);
    if (label_count(finer.major) > label_count(ticks.major)) ticks = std::move(finer);
  }
  return ticks;
}

}  // namespace

AxisTicks number_ticks(const TickRequest& request, const TextMeasure& measure) {
  if (!(axis_length(request) >= 1)) return {};
  if (manual_is_usable(request)) return manual_ticks(request, measure);
  if (request.scale.logarithmic) return logarithmic_ticks(request, measure);
  return linear_ticks(request, measure);
}

}  // namespace trendaro
