#pragma once

#include <limits>
#include <string>
#include <vector>

#include "app/types.h"
#include "graph/graph_scale.h"
#include "graph/text_measure.h"
#include "graph/tick_labels.h"

namespace trendaro {

struct Tick {
  f64 value = 0;      // in axis units
  std::string label;  // may be empty
  std::string day;    // second line of a date axis: the day or year where it changes; empty otherwise
};

struct AxisTicks {
  std::vector<Tick> major;  // rising values
  std::vector<f64> minor;   // between them; none where they would lie too close
};

// What the ticks of one axis are chosen for.
struct TickRequest {
  AxisScale scale;        // its pixels count
  bool vertical = false;  // labels stand above each other instead of side by side
  NumberFormat format;
  f64 manual_tick = 0;  // distance of minor ticks, 0 automatic
  f64 manual_line = 0;  // distance of labelled ticks, 0 automatic
  int power = 0;        // labels are values divided by 10^power
  // Pixels between which the labels of an x axis stand; one at the end of the axis moves in from there.
  f64 room_start = -std::numeric_limits<f64>::infinity();
  f64 room_end = std::numeric_limits<f64>::infinity();
};

// Ticks at multiples of 1, 2 or 5 times a power of ten, or at powers of ten and their parts on a logarithmic
// axis. Labels never overlap, and there are at least two where the axis is long enough; ticks too close for
// that go without one. A manual distance that would crowd the axis is left aside.
AxisTicks number_ticks(const TickRequest& request, const TextMeasure& measure);

// Ticks of an axis in days since 30 December 1899, at whole calendar units from years down to 1, 2 or 5 times
// a power of ten of a second. Labels do not repeat the day: it stands at the first label and wherever it
// changes.
AxisTicks date_ticks(const TickRequest& request, const TextMeasure& measure);

}  // namespace trendaro
