#pragma once

#include <limits>
#include <string>

#include "graph/graph_layout.h"

namespace trendaro {

// The settings of one axis, gathered from the graph's properties.
struct AxisSettings {
  AxisSide side = AxisSide::Bottom;
  AxisScale scale;         // limits; pixels come with the place
  bool automatic = false;  // scales itself to its data, and no zoom narrows it
  bool inverted = false;   // the highest value stands at the left or at the bottom
  bool dates = false;      // values are days since 30 December 1899
  std::string title;       // without the power
  NumberFormat format;
  f64 manual_tick = 0, manual_line = 0;  // distances in axis units, 0 automatic
  int power = 0;                         // labels are values divided by 10^power, and the title tells it
  i32 color = 0;                         // 0x00BBGGRR
  // Pixels between which the labels of an x axis stand.
  f64 room_start = -std::numeric_limits<f64>::infinity();
  f64 room_end = std::numeric_limits<f64>::infinity();
};

// The settings of an axis that is on show; `layer` from 0. Its scale has no pixels yet.
AxisSettings x_axis_settings(const GraphProperties& shown);
AxisSettings y_axis_settings(const GraphProperties& shown, std::size_t layer, AxisSide side);

// Gives the scale its pixels: an x axis runs from `start` to the right, a y axis from the bottom up.
void set_pixels(AxisSettings& axis, f64 start, f64 length);

// Cuts the title to the length of the axis. A power of ten that would be cut off with it goes back into the
// labels, and a title of which too little is left to be read goes away.
void fit_title(AxisSettings& axis, const TextMeasure& measure);

// Where the axis has ticks and lines, and what stands at them, once it has its pixels.
AxisTicks axis_ticks(const AxisSettings& axis, const TextMeasure& measure);

// Length of a tick mark and the distance from the axis to its labels.
f64 tick_length(const TextMeasure& measure);
f64 label_distance(const TextMeasure& measure);

// Room that labels and title take beside the area.
f64 axis_thickness(const AxisSettings& axis, const AxisTicks& ticks, const TextMeasure& measure);

// Puts an axis at its side of `area`. Labels that would leave `bounds` are dropped.
AxisLayout place_axis(const AxisSettings& axis, const AxisTicks& ticks, const PixelRectangle& area,
                      const PixelRectangle& bounds, const TextMeasure& measure);

}  // namespace trendaro
