// Whatever an axis shows, its ticks can be read.

#include <cmath>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "support/axis_ticks.h"

namespace trendaro {
namespace {

// Spans from a nanosecond to 1000 years, in days, eight to a decade.
std::vector<f64> all_spans() {
  std::vector<f64> spans;
  for (f64 span = 1e-9 / 86400; span < 366e3; span *= std::pow(10, 0.125)) spans.push_back(span);
  return spans;
}

constexpr f64 kWidths[] = {300, 301, 400, 700, 1024, 3840};

TEST(ReadableTicksTest, AnyLogarithmicAxisHasTwoLabels) {
  const FixedMeasure measure;
  for (f64 decades = 0.05; decades < 590; decades *= 1.07)
    for (const f64 start : {1.0, 3.3e-9, 9e5, 1e-300})
      for (const f64 length : {60.0, 90.0, 300.0, 555.0, 1600.0}) {
        const f64 maximum = start * std::pow(10, decades);
        if (!(maximum < 1e300)) continue;
        SCOPED_TRACE(testing::Message() << start << " " << decades << " decades " << length << " px");
        TickRequest request = request_of(start, maximum, length, 2);
        request.vertical = length < 100;
        const AxisTicks ticks = number_ticks(request, measure);
        ASSERT_GE(with_labels(ticks).size(), 2U);
        if (!request.vertical) {
          ASSERT_NO_FATAL_FAILURE(expect_neighbours_apart(request, with_labels(ticks)));
        }
      }
}

TEST(ReadableTicksTest, EverySpanOfADateAxisHasTwoLabelsAndNamesItsYear) {
  const FixedMeasure measure;
  for (const f64 start : {0.0, 0.9999999, 1.0, 45291.75, 45292.3456789})
    for (const f64 span : all_spans())
      for (const f64 width : kWidths) {
        SCOPED_TRACE(testing::Message() << start << " " << span * 86400 << " s " << width << " px");
        const TickRequest request = request_of(start, start + span, width);
        const AxisTicks ticks = date_ticks(request, measure);
        ASSERT_NO_FATAL_FAILURE(expect_labels_tell_the_scale(request, ticks));
        // A year has four digits on end in the label of a year or in the second line.
        ASSERT_TRUE(std::any_of(ticks.major.begin(), ticks.major.end(), [&](const Tick& tick) {
          return !tick.label.empty() && (tick.day.size() >= 4 || tick.label.size() == 4);
        }));
      }
}

TEST(ReadableTicksTest, EverySpanOfANumberAxisHasTwoLabels) {
  const FixedMeasure measure;
  for (const f64 start : {0.0, 0.1, -0.37, 123456.789, -9.99e9, 45291.75})
    for (const f64 span : all_spans())
      for (const f64 width : kWidths) {
        SCOPED_TRACE(testing::Message() << start << " " << span << " " << width << " px");
        const TickRequest request = request_of(start, start + span, width);
        ASSERT_NO_FATAL_FAILURE(expect_labels_tell_the_scale(request, number_ticks(request, measure)));
      }
}

TEST(ReadableTicksTest, EverySpanOfALowUprightAxisHasTwoLabels) {
  const FixedMeasure measure;
  for (const f64 start : {0.0, 0.1, -0.37, 1100.0})
    for (const f64 span : all_spans())
      for (const f64 height : {40.0, 50.0, 66.0, 90.0, 200.0}) {
        SCOPED_TRACE(testing::Message() << start << " " << span << " " << height << " px");
        TickRequest request = request_of(start, start + span, height);
        request.vertical = true;
        ASSERT_GE(with_labels(number_ticks(request, measure)).size(), 2U);
      }
}

// Too short for two labels, but never without one.
TEST(ReadableTicksTest, EverySpanOfAShortAxisHasALabel) {
  const FixedMeasure measure;
  for (const f64 start : {0.0, 0.1, 45291.75})
    for (const f64 span : all_spans()) {
      SCOPED_TRACE(testing::Message() << start << " " << span);
      const TickRequest request = request_of(start, start + span, 150);
      ASSERT_GE(with_labels(number_ticks(request, measure)).size(), 1U);
      ASSERT_GE(with_labels(date_ticks(request, measure)).size(), 1U);
    }
}

// Whatever the limits: ticks rise, lie inside, are few, and labels of neighbours differ and keep apart.
TEST(ReadableTicksTest, AnyRangeGivesReadableTicks) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<f64> exponent(-12, 12);
  std::uniform_real_distribution<f64> part(-1, 1);
  const FixedMeasure measure;
  for (int round = 0; round < 3000; ++round) {
    const f64 centre = part(random) * std::pow(10, exponent(random));
    const f64 width = std::max(std::pow(10, exponent(random)), std::abs(centre) * 1e-11);
    const TickRequest request = request_of(centre, centre + width, 150 + 1200 * std::abs(part(random)));
    const AxisTicks ticks = number_ticks(request, measure);
    SCOPED_TRACE(testing::Message() << centre << " " << width << " " << request.scale.last << " px");
    ASSERT_LE(ticks.major.size(), 40U);
    for (std::size_t i = 0; i < ticks.major.size(); ++i) {
      const f64 pixel = pixel_of(request.scale, ticks.major[i].value);
      ASSERT_GE(pixel, -0.01);
      ASSERT_LE(pixel, request.scale.last + 0.01);
      if (i > 0) {
        ASSERT_GT(ticks.major[i].value, ticks.major[i - 1].value);
      }
    }
    if (request.scale.last >= 300) {
      ASSERT_NO_FATAL_FAILURE(expect_labels_tell_the_scale(request, ticks));
    }
    ASSERT_NO_FATAL_FAILURE(expect_neighbours_apart(request, with_labels(ticks)));
  }
}

// With any distances: ticks rise, lie inside, keep apart and are not too many, on every kind of axis.
TEST(ReadableTicksTest, AnyManualDistanceGivesReadableTicks) {
  std::mt19937_64 random(8);
  std::uniform_real_distribution<f64> exponent(-9, 4);
  std::uniform_real_distribution<f64> part(-1, 1);
  const FixedMeasure measure;
  for (int round = 0; round < 3000; ++round) {
    const f64 width = std::pow(10, exponent(random));
    const f64 start = round % 3 == 0 ? width * 1e-3 : 45000 * part(random);
    TickRequest request =
        request_of(start, start + width, 150 + 1200 * std::abs(part(random)), 1 + round % 2);
    request.manual_line = width * std::pow(10, exponent(random) / 4);
    request.manual_tick = request.manual_line * std::abs(part(random));
    for (const AxisTicks& ticks : {number_ticks(request, measure), date_ticks(request, measure)}) {
      ASSERT_LE(ticks.major.size(), 1001U);
      ASSERT_LE(ticks.minor.size(), 2000U);
      for (std::size_t i = 0; i < ticks.major.size(); ++i) {
        const f64 pixel = pixel_of(request.scale, ticks.major[i].value);
        ASSERT_GE(pixel, -0.1);
        ASSERT_LE(pixel, request.scale.last + 0.1);
        if (i == 0) continue;
        const f64 former = pixel_of(request.scale, ticks.major[i - 1].value);
        ASSERT_GE(pixel - former, 3.9) << start << " " << width;
      }
    }
  }
}

}  // namespace
}  // namespace trendaro
