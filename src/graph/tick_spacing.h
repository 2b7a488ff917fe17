#pragma once

#include <vector>

#include "graph/axis_ticks.h"

namespace trendaro {

// Pixels that minor ticks keep apart.
inline constexpr f64 kMinorSpacing = 5;

// Finer steps that are tried until two labels stand. An axis too short for two takes what there is.
inline constexpr int kFinerTries = 6;

// Length of the axis in pixels.
f64 axis_length(const TickRequest& request);

// The distance below which neighbouring values could not be told apart.
f64 finest_step(const AxisScale& scale);

// Pixels between two ticks that lie `step` apart, where they are closest.
f64 least_distance(const TickRequest& request, f64 step);

// Whether lines at the manual distance stand apart, as pixels and as numbers, and a logarithmic axis reaches
// the first one.
bool manual_is_usable(const TickRequest& request);

// Whether no label touches the one before it.
bool labels_fit(const TickRequest& request, const TextMeasure& measure, const std::vector<Tick>& ticks);

// Takes the label of an outermost tick away, with its second line, where it would move in from the end of the
// room and into its neighbour.
void drop_crowded_ends(const TickRequest& request, const TextMeasure& measure, std::vector<Tick>& ticks);

// Whether a second line would run into another one.
bool days_collide(const TickRequest& request, const TextMeasure& measure, const Tick& one, const Tick& other);

// How many ticks have a label. A single one tells no scale.
std::size_t label_count(const std::vector<Tick>& ticks);

// Takes labels away, evenly and with their second lines, until the rest fit. The zero keeps its label where
// that costs none of the others. Every tick stays.
void thin_out_labels(const TickRequest& request, const TextMeasure& measure, std::vector<Tick>& ticks);

}  // namespace trendaro
