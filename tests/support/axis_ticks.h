#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "graph/axis_ticks.h"
#include "support/fixed_measure.h"

namespace trendaro {

inline TickRequest request_of(f64 minimum, f64 maximum, f64 pixels, i32 kind = 1) {
  TickRequest request;
  request.scale = make_scale(minimum, maximum, kind);
  request.scale.first = 0;
  request.scale.last = pixels;
  return request;
}

inline std::string labels_of(const AxisTicks& ticks) {
  std::string text;
  for (const Tick& tick : ticks.major) {
    text += (text.empty() ? "" : " ") + tick.label;
    if (!tick.day.empty()) text += "/" + tick.day;
  }
  return text;
}

inline std::string number_labels(f64 minimum, f64 maximum, f64 pixels, i32 kind = 1) {
  return labels_of(number_ticks(request_of(minimum, maximum, pixels, kind), FixedMeasure()));
}

inline std::string date_labels(f64 minimum, f64 maximum, f64 pixels) {
  return labels_of(date_ticks(request_of(minimum, maximum, pixels), FixedMeasure()));
}

// The labels that are left when some were thinned out.
inline std::string kept_labels_of(AxisTicks ticks) {
  std::erase_if(ticks.major, [](const Tick& tick) { return tick.label.empty() && tick.day.empty(); });
  return labels_of(ticks);
}

// Labels that are there, in the order of the axis.
inline std::vector<Tick> with_labels(const AxisTicks& ticks) {
  std::vector<Tick> labelled;
  for (const Tick& tick : ticks.major)
    if (!tick.label.empty()) labelled.push_back(tick);
  return labelled;
}

inline void expect_neighbours_apart(const TickRequest& request, const std::vector<Tick>& labelled) {
  const FixedMeasure measure;
  for (std::size_t i = 1; i < labelled.size(); ++i) {
    const Tick& former = labelled[i - 1];
    ASSERT_NE(labelled[i].label + labelled[i].day, former.label + former.day);
    const f64 apart = pixel_of(request.scale, labelled[i].value) - pixel_of(request.scale, former.value);
    ASSERT_GE(
        apart,
        (measure.width(TextRole::Axis, labelled[i].label) + measure.width(TextRole::Axis, former.label)) / 2);
  }
}

inline void expect_labels_tell_the_scale(const TickRequest& request, const AxisTicks& ticks) {
  const std::vector<Tick> labelled = with_labels(ticks);
  ASSERT_GE(labelled.size(), 2U);
  ASSERT_LE(ticks.major.size(), 130U);
  for (const Tick& tick : ticks.major) {
    const f64 pixel = pixel_of(request.scale, tick.value);
    ASSERT_GE(pixel, -0.1);
    ASSERT_LE(pixel, request.scale.last + 0.1);
  }
  ASSERT_NO_FATAL_FAILURE(expect_neighbours_apart(request, labelled));
}

}  // namespace trendaro
