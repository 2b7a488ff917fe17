#include "graph/axis_layout.h"

#include <algorithm>
#include <cmath>

#include "graph/auto_scale.h"

namespace trendaro {
namespace {

constexpr f64 kLargestUnscaled = 10000;
constexpr f64 kSmallestUnscaled = 0.01;
constexpr std::ptrdiff_t kLeastReadable = 4;  // characters

// The power of ten that automatic data scaling takes out of the labels.
int power_of(const GraphProperties& shown, const AxisScale& scale) {
  const f64 size = std::max(std::abs(scale.minimum), std::abs(scale.maximum));
  if (!shown.AutoScaleData || scale.logarithmic || size == 0) return 0;
  if (size < kLargestUnscaled && size >= kSmallestUnscaled) return 0;
  return std::clamp(static_cast<int>(std::floor(std::log10(size))), -5, 5);
}

std::string superscript(int number) {
  constexpr const char* digits[] = {"⁰", "¹", "²", "³", "⁴", "⁵", "⁶", "⁷", "⁸", "⁹"};
  return (number < 0 ? "⁻" : "") + std::string(digits[std::abs(number) % 10]);
}

std::string title_with_power(const AxisSettings& axis) {
  if (axis.power == 0) return axis.title;
  return axis.title + (axis.title.empty() ? "×10" : "  ×10") + superscript(axis.power);
}

// Characters of a text that was cut, its ellipsis left out.
std::ptrdiff_t kept_characters(const std::string& cut) {
  return std::count_if(cut.begin(), cut.end(),
                       [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }) -
         1;
}

// A single manual distance serves for both.
void set_manual(AxisSettings& axis, bool on, f64 tick, f64 line) {
  if (!on) return;
  axis.manual_tick = std::isfinite(tick) && tick > 0 ? tick : 0;
  axis.manual_line = std::isfinite(line) && line > 0 ? line : axis.manual_tick;
}

bool y_is_zoomed(const GraphProperties& shown, f64 minimum, f64 maximum) {
  return shown.ZoomActive && shown.AllowZooming > 1 && maximum > minimum;
}

AxisSettings left_settings(const GraphProperties& shown, const LayerProperties& layer) {
  AxisSettings axis;
  axis.side = AxisSide::Left;
  const bool zoomed = y_is_zoomed(shown, layer.ZoomMinY, layer.ZoomMaxY);
  axis.automatic = !zoomed && layer.ManualScaleControlY == 0;
  axis.scale = zoomed ? make_scale(layer.ZoomMinY, layer.ZoomMaxY, layer.YAxisScaleControl)
                      : make_scale(layer.ManualMinY, layer.ManualMaxY, layer.YAxisScaleControl);
  axis.inverted = layer.InvertedYAxis;
  axis.format = parse_number_format(layer.AxisFormatY);
  axis.power = power_of(shown, axis.scale);
  axis.title = layer.YAxisLabel;
  axis.color = layer.YAxisColor;
  set_manual(axis, layer.ManualYAxisTicknLine, layer.ManualYAxisTick, layer.ManualYAxisLine);
  return axis;
}

AxisSettings right_settings(const GraphProperties& shown, const LayerProperties& layer) {
  AxisSettings axis;
  axis.side = AxisSide::Right;
  const bool zoomed = y_is_zoomed(shown, layer.ZoomMinRY, layer.ZoomMaxRY);
  axis.automatic = !zoomed && layer.ManualScaleControlRY == 0;
  axis.scale = zoomed ? make_scale(layer.ZoomMinRY, layer.ZoomMaxRY, layer.RYAxisScaleControl)
                      : make_scale(layer.ManualMinRY, layer.ManualMaxRY, layer.RYAxisScaleControl);
  axis.inverted = layer.InvertedRYAxis;
  axis.format = parse_number_format(layer.AxisFormatRY);
  axis.power = power_of(shown, axis.scale);
  axis.title = layer.RYAxisLabel;
  axis.color = layer.RYAxisColor;
  set_manual(axis, layer.ManualRYAxisTicknLine, layer.ManualRYAxisTick, layer.ManualRYAxisLine);
  return axis;
}

f64 widest_label(const AxisTicks& ticks, const TextMeasure& measure) {
  f64 width = 0;
  for (const Tick& tick : ticks.major)
    width = std::max(width, std::ceil(measure.width(TextRole::Axis, tick.label)));
  return width;
}

bool has_days(const AxisTicks& ticks) {
  return std::any_of(ticks.major.begin(), ticks.major.end(),
                     [](const Tick& tick) { return !tick.day.empty(); });
}

bool lies_inside(const PixelRectangle& box, const PixelRectangle& bounds) {
  return box.x >= bounds.x - 0.5 && box.y >= bounds.y - 0.5 && box.right() <= bounds.right() + 0.5 &&
         box.bottom() <= bounds.bottom() + 0.5;
}

// The box of the label at `pixel`, `line` lines away from the axis.
PixelRectangle label_box(const AxisLayout& axis, const std::string& text, f64 pixel, int line,
                         const PixelRectangle& area, const TextMeasure& measure) {
  const f64 width = std::ceil(measure.width(TextRole::Axis, text));
  const f64 height = measure.height(TextRole::Axis);
  const f64 distance = label_distance(measure);
  if (axis.side == AxisSide::Bottom)
    return {pixel - width / 2, area.bottom() + distance + line * height, width, height};
  if (axis.side == AxisSide::Left) return {area.x - distance - width, pixel - height / 2, width, height};
  return {area.right() + distance, pixel - height / 2, width, height};
}

// Whether a label would run into the one placed last in its line.
bool touches_last_label(const AxisLayout& axis, const PixelRectangle& box, const TextMeasure& measure) {
  if (axis.side != AxisSide::Bottom) return false;
  const f64 gap = measure.height(TextRole::Axis) * 0.4;
  return std::any_of(axis.labels.begin(), axis.labels.end(), [&](const PlacedText& label) {
    return label.box.y == box.y && label.box.right() + gap > box.x && label.box.x < box.right() + gap;
  });
}

void place_label(AxisLayout& axis, const std::string& text, f64 pixel, int line, const PixelRectangle& area,
                 const PixelRectangle& bounds, const TextMeasure& measure) {
  if (text.empty()) return;
  PixelRectangle box = label_box(axis, text, pixel, line, area, measure);
  // A label at the end of the x axis moves in from the edge rather than being lost.
  if (axis.side == AxisSide::Bottom)
    box.x = std::clamp(box.x, bounds.x, std::max(bounds.x, bounds.right() - box.width));
  if (!lies_inside(box, bounds) || touches_last_label(axis, box, measure)) return;
  const auto alignment = axis.side == AxisSide::Left    ? TextAlignment::Right
                         : axis.side == AxisSide::Right ? TextAlignment::Left
                                                        : TextAlignment::Centre;
  axis.labels.push_back({text, box, TextRole::Axis, alignment, false, axis.color});
}

PlacedText axis_title(const AxisSettings& axis, f64 thickness, const PixelRectangle& area,
                      const PixelRectangle& bounds, const TextMeasure& measure) {
  const f64 height = measure.height(TextRole::Axis);
  if (axis.side == AxisSide::Bottom) {
    const PixelRectangle box{area.x, area.bottom() + thickness - height, area.width, height};
    return {title_with_power(axis), box, TextRole::Axis, TextAlignment::Centre, false, axis.color};
  }
  const f64 x = axis.side == AxisSide::Left ? bounds.x : bounds.right() - height;
  return {title_with_power(axis),
          {x, area.y, height, area.height},
          TextRole::Axis,
          TextAlignment::Centre,
          true,
          axis.color};
}

}  // namespace

AxisSettings x_axis_settings(const GraphProperties& shown) {
  AxisSettings axis;
  const bool zoomed = shown.ZoomActive && shown.ZoomMaxX > shown.ZoomMinX;
  axis.dates = shown.DateTimeMode == 1;
  f64 low = zoomed ? shown.ZoomMinX : shown.ManualMinX;
  f64 high = zoomed ? shown.ZoomMaxX : shown.ManualMaxX;
  // The hundredth of a value that other axes get would be a year and more.
  if (axis.dates && low == high) {
    low -= kDateHalfWidth;
    high += kDateHalfWidth;
  }
  axis.scale = make_scale(low, high, shown.XAxisScaleControl);
  axis.automatic = !zoomed && shown.ManualScaleControlX == 0;
  axis.inverted = shown.InvertedXAxis;
  axis.format = parse_number_format(shown.AxisFormatX);
  axis.power = axis.dates ? 0 : power_of(shown, axis.scale);
  axis.title = shown.XAxisLabel;
  axis.color = shown.XAxisColor;
  set_manual(axis, shown.ManualXAxisTicknLine, shown.ManualXAxisTick, shown.ManualXAxisLine);
  return axis;
}

AxisSettings y_axis_settings(const GraphProperties& shown, std::size_t layer, AxisSide side) {
  const LayerProperties& settings = shown.layers[layer];
  return side == AxisSide::Right ? right_settings(shown, settings) : left_settings(shown, settings);
}

void set_pixels(AxisSettings& axis, f64 start, f64 length) {
  const bool rising = (axis.side == AxisSide::Bottom) != axis.inverted;
  axis.scale.first = rising ? start : start + length;
  axis.scale.last = rising ? start + length : start;
}

void fit_title(AxisSettings& axis, const TextMeasure& measure) {
  const f64 length = std::abs(axis.scale.last - axis.scale.first);
  if (measure.width(TextRole::Axis, title_with_power(axis)) <= length) return;
  axis.power = 0;
  if (measure.width(TextRole::Axis, axis.title) <= length) return;
  axis.title = elided(axis.title, length, TextRole::Axis, measure);
  if (kept_characters(axis.title) < kLeastReadable) axis.title.clear();
}

AxisTicks axis_ticks(const AxisSettings& axis, const TextMeasure& measure) {
  const TickRequest request{axis.scale,       axis.side != AxisSide::Bottom,
                            axis.format,      axis.manual_tick,
                            axis.manual_line, axis.power,
                            axis.room_start,  axis.room_end};
  return axis.dates ? date_ticks(request, measure) : number_ticks(request, measure);
}

f64 tick_length(const TextMeasure& measure) {
  return std::round(measure.height(TextRole::Axis) * 0.35);
}

f64 label_distance(const TextMeasure& measure) {
  return std::round(measure.height(TextRole::Axis) * 0.55);
}

f64 axis_thickness(const AxisSettings& axis, const AxisTicks& ticks, const TextMeasure& measure) {
  const f64 height = measure.height(TextRole::Axis);
  const f64 title = title_with_power(axis).empty() ? 0 : height + std::round(height * 0.35);
  if (axis.side == AxisSide::Bottom)
    return label_distance(measure) + height * (has_days(ticks) ? 2 : 1) + title;
  return label_distance(measure) + widest_label(ticks, measure) + title;
}

AxisLayout place_axis(const AxisSettings& axis, const AxisTicks& ticks, const PixelRectangle& area,
                      const PixelRectangle& bounds, const TextMeasure& measure) {
  AxisLayout placed;
  placed.side = axis.side;
  placed.scale = axis.scale;
  placed.color = axis.color;
  for (const Tick& tick : ticks.major) {
    const f64 pixel = pixel_of(axis.scale, tick.value);
    placed.major.push_back(pixel);
    place_label(placed, tick.label, pixel, 0, area, bounds, measure);
    place_label(placed, tick.day, pixel, 1, area, bounds, measure);
  }
  for (const f64 value : ticks.minor) placed.minor.push_back(pixel_of(axis.scale, value));
  placed.title = axis_title(axis, axis_thickness(axis, ticks, measure), area, bounds, measure);
  return placed;
}

}  // namespace trendaro
