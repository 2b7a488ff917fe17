#include "graph/axis_ticks.h"

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/fixed_measure.h"

namespace trendaro {
namespace {

TickRequest request_of(f64 minimum, f64 maximum, f64 pixels, i32 kind = 1) {
  TickRequest request;
  request.scale = make_scale(minimum, maximum, kind);
  request.scale.first = 0;
  request.scale.last = pixels;
  return request;
}

std::string labels_of(const AxisTicks& ticks) {
  std::string text;
  for (const Tick& tick : ticks.major) {
    text += (text.empty() ? "" : " ") + tick.label;
    if (!tick.day.empty()) text += "/" + tick.day;
  }
  return text;
}

std::string number_labels(f64 minimum, f64 maximum, f64 pixels, i32 kind = 1) {
  return labels_of(number_ticks(request_of(minimum, maximum, pixels, kind), FixedMeasure()));
}

std::string date_labels(f64 minimum, f64 maximum, f64 pixels) {
  return labels_of(date_ticks(request_of(minimum, maximum, pixels), FixedMeasure()));
}

TEST(AxisTicksTest, StepsAreOneTwoOrFiveTimesAPowerOfTen) {
  EXPECT_EQ(number_labels(0, 10, 700), "0 1 2 3 4 5 6 7 8 9 10");
  EXPECT_EQ(number_labels(0, 10, 500), "0 2 4 6 8 10");
  EXPECT_EQ(number_labels(0, 10, 200), "0 5 10");
  EXPECT_EQ(number_labels(0, 10, 80), "0 10");
}

TEST(AxisTicksTest, LabelsHaveTheDecimalsThatTellNeighboursApart) {
  EXPECT_EQ(number_labels(0, 1, 400), "0.0 0.2 0.4 0.6 0.8 1.0");
  EXPECT_EQ(number_labels(1.0001, 1.0002, 300), "1.00010 1.00015 1.00020");
  EXPECT_EQ(number_labels(123456.789, 123456.7895, 700),
            "123456.7890 123456.7891 123456.7892 123456.7893 123456.7894 123456.7895");
}

TEST(AxisTicksTest, ExponentsComeOnlyWhereThePlainNumberIsLong) {
  EXPECT_EQ(number_labels(0, 1e6, 400), "0 200000 400000 600000 800000 1000000");
  EXPECT_EQ(number_labels(0, 5e-9, 400), "0 1e-9 2e-9 3e-9 4e-9 5e-9");
  EXPECT_EQ(number_labels(0, 4e8, 300), "0 100e6 200e6 300e6 400e6");
  EXPECT_EQ(number_labels(0, 3.2e13, 160), "0 20e12");
}

TEST(AxisTicksTest, NoTickIsMinusZero) {
  EXPECT_EQ(number_labels(-0.3, 0.3, 400), "-0.3 -0.2 -0.1 0.0 0.1 0.2 0.3");
}

TEST(AxisTicksTest, OwnFormatSetsPrefixDecimalsAndSuffix) {
  TickRequest request = request_of(0, 10, 200);
  request.format = parse_number_format("U=|.00|V");
  EXPECT_EQ(labels_of(number_ticks(request, FixedMeasure())), "U=0.00V U=5.00V U=10.00V");
  request.format = parse_number_format("||%");
  EXPECT_EQ(labels_of(number_ticks(request, FixedMeasure())), "0% 5% 10%");
}

TEST(AxisTicksTest, ManualLinesStandAndTheirLabelsAreThinnedOut) {
  TickRequest request = request_of(0, 3, 120);
  request.manual_line = 0.25;
  const AxisTicks ticks = number_ticks(request, FixedMeasure());
  ASSERT_EQ(ticks.major.size(), 13U);
  EXPECT_EQ(ticks.major[0].label, "0.00");
  EXPECT_EQ(ticks.major[1].label, "");
  EXPECT_DOUBLE_EQ(ticks.major[1].value, 0.25);
}

TEST(AxisTicksTest, AManualStepThatCrowdsTheAxisIsLeftAside) {
  TickRequest request = request_of(0, 10, 500);
  request.manual_line = 1e-9;
  EXPECT_EQ(labels_of(number_ticks(request, FixedMeasure())), "0 2 4 6 8 10");
}

TEST(AxisTicksTest, LogarithmicAxisHasDecadesAndTheirParts) {
  EXPECT_EQ(number_labels(1, 1000, 600, 2), "1 2 5 10 20 50 100 200 500 1000");
  EXPECT_EQ(number_labels(1, 1000, 200, 2), "1 10 100 1000");
  EXPECT_EQ(number_labels(0.01, 1, 200, 2), "0.01 0.1 1");
}

TEST(AxisTicksTest, DatesNameTheDayOnceAndWhereItChanges) {
  // 45292 is 1 January 2024.
  EXPECT_EQ(date_labels(45291.75, 45292.25, 400),
            "18:00/31.12.2023 20:00 22:00 00:00/01.01.2024 02:00 04:00 06:00");
}

TEST(AxisTicksTest, DatesFallOnCalendarUnits) {
  const f64 second = 1.0 / 86400;
  EXPECT_EQ(date_labels(45292, 45292 + 20 * second, 300),
            "00:00:00/01.01.2024 00:00:05 00:00:10 00:00:15 00:00:20");
  EXPECT_EQ(date_labels(45292.5, 45292.5 + 0.2 * second, 500),
            "12:00:00.00/01.01.2024 12:00:00.05 12:00:00.10 12:00:00.15 12:00:00.20");
  EXPECT_EQ(date_labels(45290, 45294, 260), "30.12./2023 31.12. 01.01./2024 02.01. 03.01.");
  EXPECT_EQ(date_labels(45292, 45292 + 180, 300), "Jan/2024 Feb Mär Apr Mai Jun");
  EXPECT_EQ(date_labels(36526, 36526 + 3652, 500), "2000 2001 2002 2003 2004 2005 2006 2007 2008 2009");
}

TEST(AxisTicksTest, DatesBeforeDayZeroCount) {
  EXPECT_EQ(date_labels(-1, 1, 400),
            "00:00/29.12.1899 06:00 12:00 18:00 00:00/30.12.1899 06:00 12:00 18:00 "
            "00:00/31.12.1899");
}

TEST(AxisTicksTest, DatesBeyondTheCalendarBecomeNumbers) {
  EXPECT_EQ(date_labels(0, 1e9, 300), "0 0.5e9 1.0e9");
}

// Whatever the limits: ticks rise, lie inside, are few, and labels of neighbours differ and keep apart.
TEST(AxisTicksTest, AnyRangeGivesReadableTicks) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<f64> exponent(-12, 12);
  std::uniform_real_distribution<f64> part(-1, 1);
  const FixedMeasure measure;
  for (int round = 0; round < 3000; ++round) {
    const f64 centre = part(random) * std::pow(10, exponent(random));
    const f64 width = std::max(std::pow(10, exponent(random)), std::abs(centre) * 1e-11);
    const TickRequest request = request_of(centre, centre + width, 150 + 1200 * std::abs(part(random)));
    const AxisTicks ticks = number_ticks(request, measure);
    ASSERT_LE(ticks.major.size(), 40U);
    for (std::size_t i = 0; i < ticks.major.size(); ++i) {
      const f64 pixel = pixel_of(request.scale, ticks.major[i].value);
      ASSERT_GE(pixel, -0.01);
      ASSERT_LE(pixel, request.scale.last + 0.01);
      if (i == 0) continue;
      const std::string& former = ticks.major[i - 1].label;
      ASSERT_NE(ticks.major[i].label, former) << centre << " " << width;
      const f64 gap = pixel - pixel_of(request.scale, ticks.major[i - 1].value);
      ASSERT_GE(
          gap,
          (measure.width(TextRole::Axis, former) + measure.width(TextRole::Axis, ticks.major[i].label)) / 2);
    }
  }
}

TEST(GraphScaleTest, LimitsThatAreNoneBecomeSome) {
  const f64 infinity = std::numeric_limits<f64>::infinity();
  for (const auto& [low, high] : {std::pair(0.0, 0.0), std::pair(5.0, 5.0), std::pair(3.0, -3.0),
                                  std::pair(-infinity, infinity), std::pair(std::nan(""), 1.0)}) {
    const AxisScale scale = make_scale(low, high, 1);
    EXPECT_TRUE(std::isfinite(scale.minimum) && std::isfinite(scale.maximum));
    EXPECT_LT(scale.minimum, scale.maximum);
  }
}

TEST(GraphScaleTest, AutomaticIsLogarithmicBeyondThreeDecades) {
  EXPECT_FALSE(make_scale(1, 1000, 0).logarithmic);
  EXPECT_TRUE(make_scale(1, 1001, 0).logarithmic);
  EXPECT_FALSE(make_scale(0, 1001, 0).logarithmic);
  EXPECT_FALSE(make_scale(-5, 0, 2).logarithmic);
}

TEST(GraphScaleTest, PixelsAndValuesAreEachOthersInverse) {
  AxisScale scale = make_scale(10, 1000, 2);
  scale.first = 300;
  scale.last = 100;
  EXPECT_DOUBLE_EQ(pixel_of(scale, 100), 200);
  EXPECT_DOUBLE_EQ(value_of(scale, 200), 100);
}

}  // namespace
}  // namespace trendaro
