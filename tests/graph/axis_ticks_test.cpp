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

// The labels that are left when some were thinned out.
std::string kept_labels_of(AxisTicks ticks) {
  std::erase_if(ticks.major, [](const Tick& tick) { return tick.label.empty() && tick.day.empty(); });
  return labels_of(ticks);
}

// Labels that are there, in the order of the axis.
std::vector<Tick> with_labels(const AxisTicks& ticks) {
  std::vector<Tick> labelled;
  for (const Tick& tick : ticks.major)
    if (!tick.label.empty()) labelled.push_back(tick);
  return labelled;
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

TEST(AxisTicksTest, ALabelThatMovesInFromTheEndGivesWayToItsNeighbour) {
  TickRequest request = request_of(0, 10, 700);
  request.format = parse_number_format("U=|.00|V");
  EXPECT_EQ(with_labels(number_ticks(request, FixedMeasure())).size(), 11U);
  // U=0.00V would reach from 0 to 49 and U=1.00V begins at 45.5; U=10.00V begins at 644 and U=9.00V ends at
  // 654.5.
  request.room_start = 0;
  request.room_end = 700;
  const AxisTicks ticks = number_ticks(request, FixedMeasure());
  EXPECT_EQ(ticks.major.size(), 11U);
  EXPECT_EQ(kept_labels_of(ticks), "U=1.00V U=2.00V U=3.00V U=4.00V U=5.00V U=6.00V U=7.00V U=8.00V U=9.00V");
  request.room_end = 740;
  EXPECT_EQ(with_labels(number_ticks(request, FixedMeasure())).back().label, "U=10.00V");
}

TEST(AxisTicksTest, TheDayOfALabelThatGivesWayStandsAtTheNext) {
  TickRequest request = request_of(45292, 45292 + 20.0 / 86400, 300);
  request.room_start = 0;
  // 00:00:00 would reach from 0 to 56, 00:00:05 from 47 to 103.
  EXPECT_EQ(kept_labels_of(date_ticks(request, FixedMeasure())),
            "00:00:05/01.01.2024 00:00:10 00:00:15 00:00:20");
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

TEST(AxisTicksTest, MoreManualLinesThanAnAxisCarriesAreLeftAside) {
  TickRequest request = request_of(0, 3000, 20000);
  request.manual_line = 1;
  EXPECT_EQ(number_ticks(request, FixedMeasure()).major.size(), 301U);  // 10 apart
}

TEST(AxisTicksTest, ManualLinesStandOnALogarithmicAxis) {
  TickRequest request = request_of(1, 1000, 700, 2);
  request.manual_line = 100;
  request.manual_tick = 50;
  AxisTicks ticks = number_ticks(request, FixedMeasure());
  EXPECT_EQ(ticks.major.size(), 10U);
  // A label needs 34 pixels: 100 and 500 stand 163 apart, 500 and 900 60.
  EXPECT_EQ(kept_labels_of(ticks), "100 500 900");
  EXPECT_EQ(ticks.minor, (std::vector<f64>{50, 150, 250, 350, 450, 550, 650, 750, 850, 950}));
  request.manual_tick = 20;  // 2 pixels at the end
  EXPECT_TRUE(number_ticks(request, FixedMeasure()).minor.empty());
}

TEST(AxisTicksTest, ManualLinesThatALogarithmicAxisCannotCarryAreLeftAside) {
  TickRequest request = request_of(1, 1000, 600, 2);
  for (const f64 line : {5000.0, 1.0}) {
    request.manual_line = line;
    EXPECT_EQ(labels_of(number_ticks(request, FixedMeasure())), "1 2 5 10 20 50 100 200 500 1000") << line;
  }
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

TEST(AxisTicksTest, PartsOfASecondGoByOneTwoAndFive) {
  const f64 second = 1.0 / 86400;
  // Day 0, where a window may be a nanosecond wide.
  EXPECT_EQ(date_labels(0.5, 0.5 + 1e-3 * second, 700),
            "12:00:00.0000/30.12.1899 12:00:00.0002 12:00:00.0004 12:00:00.0006 12:00:00.0008 12:00:00.0010");
  EXPECT_EQ(date_labels(0, 1e-9 * second, 700),
            "00:00:00.0000000000/30.12.1899 00:00:00.0000000005 00:00:00.0000000010");
  const AxisTicks ticks = date_ticks(request_of(0, 1e-3 * second, 700), FixedMeasure());
  ASSERT_EQ(ticks.minor.size(), 21U);  // 0.05 ms apart
  EXPECT_NEAR(ticks.minor[1], 0.05e-3 * second, 1e-15);
}

TEST(AxisTicksTest, ADateAxisWhoseStepIsWiderThanItselfLabelsAPartOfFinerTicks) {
  // A label of 12:00:00.00001 needs 110.6 pixels: 5 us stand 100 apart and 10 us 200, so from 1 us to
  // 19.9 us there is only one of 10 us. Those of 5 us have their labels at every second one.
  const f64 second = 1.0 / 86400;
  const AxisTicks ticks = date_ticks(request_of(1e-6 * second, 19.9e-6 * second, 378), FixedMeasure());
  EXPECT_EQ(ticks.major.size(), 3U);
  EXPECT_EQ(kept_labels_of(ticks), "00:00:00.000005/30.12.1899 00:00:00.000015");
}

TEST(AxisTicksTest, FineStepsEndAtMidnight) {
  const f64 second = 1.0 / 86400;
  EXPECT_EQ(date_labels(1 - 1e-6 * second, 1 + 1e-6 * second, 700),
            "23:59:59.9999990/30.12.1899 23:59:59.9999995 00:00:00.0000000/31.12.1899 00:00:00.0000005 "
            "00:00:00.0000010");
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

TEST(AxisTicksTest, ManualLinesOfADateAxisCountInDays) {
  TickRequest request = request_of(45292, 45293, 700);
  request.manual_line = 0.25;
  request.manual_tick = 1.0 / 12;
  const AxisTicks ticks = date_ticks(request, FixedMeasure());
  EXPECT_EQ(labels_of(ticks), "00:00/01.01.2024 06:00 12:00 18:00 00:00/02.01.2024");
  ASSERT_EQ(ticks.minor.size(), 8U);
  EXPECT_DOUBLE_EQ(ticks.minor[0], 45292 + 2 / 24.0);
  EXPECT_DOUBLE_EQ(ticks.minor[2], 45292 + 8 / 24.0);
}

TEST(AxisTicksTest, ManualLinesOfADateAxisNameWhatTellsThemApart) {
  const auto labels = [](f64 days, f64 line) {
    TickRequest request = request_of(45291, 45291 + days, 500);
    request.manual_line = line;
    return labels_of(date_ticks(request, FixedMeasure()));
  };
  const f64 second = 1.0 / 86400;
  EXPECT_EQ(labels(360 * second, 90 * second), "00:00:00/31.12.2023 00:01:30 00:03:00 00:04:30 00:06:00");
  EXPECT_EQ(labels(6 * second, 1.5 * second),
            "00:00:00.0/31.12.2023 00:00:01.5 00:00:03.0 00:00:04.5 00:00:06.0");
  // 45291 is a multiple of 3 and of 1.5.
  EXPECT_EQ(labels(7, 3), "31.12./2023 03.01./2024 06.01.");
  EXPECT_EQ(labels(4.6, 1.5), "00:00/31.12.2023 12:00/01.01.2024 00:00/03.01.2024 12:00/04.01.2024");
}

TEST(AxisTicksTest, ATimeThatRoundsToMidnightBelongsToTheNextDay) {
  TickRequest request = request_of(45292, 45293, 500);
  request.manual_line = 0.3333333;  // 28799.997 s
  EXPECT_EQ(labels_of(date_ticks(request, FixedMeasure())),
            "00:00:00/01.01.2024 08:00:00 16:00:00 00:00:00/02.01.2024");
}

TEST(AxisTicksTest, DaysStandAtTheLabelsThatWereKept) {
  TickRequest request = request_of(45292, 45294, 300);
  request.manual_line = 1.0 / 24;
  const AxisTicks ticks = date_ticks(request, FixedMeasure());
  EXPECT_EQ(ticks.major.size(), 49U);
  // 6.25 pixels an hour, and a label needs 48.
  EXPECT_EQ(kept_labels_of(ticks),
            "00:00/01.01.2024 08:00 16:00 00:00/02.01.2024 08:00 16:00 00:00/03.01.2024");
}

TEST(AxisTicksTest, ManualLinesThatCrowdADateAxisAreLeftAside) {
  TickRequest request = request_of(45291.75, 45292.25, 400);
  for (const f64 line : {1e-6, 1e-13}) {
    request.manual_line = line;
    EXPECT_EQ(labels_of(date_ticks(request, FixedMeasure())), date_labels(45291.75, 45292.25, 400)) << line;
  }
}

TEST(AxisTicksTest, PrefixAndSuffixStandAroundATime) {
  TickRequest request = request_of(45292, 45293, 700);
  request.format = parse_number_format("um |.00| Uhr");
  // 84 pixels a label: every three hours, 87 apart, would be too close.
  EXPECT_EQ(labels_of(date_ticks(request, FixedMeasure())),
            "um 00:00 Uhr/01.01.2024 um 06:00 Uhr um 12:00 Uhr um 18:00 Uhr um 00:00 Uhr/02.01.2024");
  request.manual_line = 0.5;
  EXPECT_EQ(labels_of(date_ticks(request, FixedMeasure())),
            "um 00:00 Uhr/01.01.2024 um 12:00 Uhr um 00:00 Uhr/02.01.2024");
}

TEST(AxisTicksTest, DatesBeforeDayZeroCount) {
  EXPECT_EQ(date_labels(-1, 1, 400),
            "00:00/29.12.1899 06:00 12:00 18:00 00:00/30.12.1899 06:00 12:00 18:00 "
            "00:00/31.12.1899");
}

TEST(AxisTicksTest, DatesBeyondTheCalendarBecomeNumbers) {
  EXPECT_EQ(date_labels(0, 1e9, 300), "0 0.5e9 1.0e9");
}

void expect_neighbours_apart(const TickRequest& request, const std::vector<Tick>& labelled) {
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

void expect_labels_tell_the_scale(const TickRequest& request, const AxisTicks& ticks) {
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

// Spans from a nanosecond to 1000 years, in days, eight to a decade.
std::vector<f64> all_spans() {
  std::vector<f64> spans;
  for (f64 span = 1e-9 / 86400; span < 366e3; span *= std::pow(10, 0.125)) spans.push_back(span);
  return spans;
}

constexpr f64 kWidths[] = {300, 301, 400, 555, 700, 1024, 1600, 3840};

TEST(AxisTicksTest, EverySpanOfADateAxisHasTwoLabelsAndNamesItsYear) {
  const FixedMeasure measure;
  for (const f64 start : {0.0, 0.25, 0.9999999, 1.0, 45291.75, 45291.9999999, 45292.3456789})
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

TEST(AxisTicksTest, EverySpanOfANumberAxisHasTwoLabels) {
  const FixedMeasure measure;
  for (const f64 start : {0.0, 0.1, -0.37, 123456.789, -9.99e9, 45291.75})
    for (const f64 span : all_spans())
      for (const f64 width : kWidths) {
        SCOPED_TRACE(testing::Message() << start << " " << span << " " << width << " px");
        const TickRequest request = request_of(start, start + span, width);
        ASSERT_NO_FATAL_FAILURE(expect_labels_tell_the_scale(request, number_ticks(request, measure)));
      }
}

TEST(AxisTicksTest, EverySpanOfALowUprightAxisHasTwoLabels) {
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
TEST(AxisTicksTest, AnyManualDistanceGivesReadableTicks) {
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

TEST(GraphScaleTest, LimitsThatAreNoneBecomeSome) {
  const f64 infinity = std::numeric_limits<f64>::infinity();
  for (const auto& [low, high] : {std::pair(0.0, 0.0), std::pair(5.0, 5.0), std::pair(3.0, -3.0),
                                  std::pair(-infinity, infinity), std::pair(std::nan(""), 1.0)}) {
    const AxisScale scale = make_scale(low, high, 1);
    EXPECT_TRUE(std::isfinite(scale.minimum) && std::isfinite(scale.maximum));
    EXPECT_LT(scale.minimum, scale.maximum);
  }
}

TEST(GraphScaleTest, LimitsTooCloseForPixelsAreMovedApartNoFurtherThanNeeded) {
  const AxisScale scale = make_scale(45292.5, 45292.5 + 1e-10, 1);
  EXPECT_GT(scale.minimum, 45292.5 - 1e-9);
  EXPECT_LT(scale.maximum, 45292.5 + 1e-9);
  EXPECT_GT(scale.maximum - scale.minimum, 6e-10);  // 64 times the distance of numbers of that size
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
