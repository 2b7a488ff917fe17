#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/axis_ticks.h"

namespace trendaro {
namespace {

TEST(DateTicksTest, TheDayOfALabelThatGivesWayStandsAtTheNext) {
  TickRequest request = request_of(45292, 45292 + 20.0 / 86400, 300);
  request.room_start = 0;
  // 00:00:00 would reach from 0 to 56, 00:00:05 from 47 to 103.
  EXPECT_EQ(kept_labels_of(date_ticks(request, FixedMeasure())),
            "00:00:05/01.01.2024 00:00:10 00:00:15 00:00:20");
}

TEST(DateTicksTest, DatesNameTheDayOnceAndWhereItChanges) {
  // 45292 is 1 January 2024.
  EXPECT_EQ(date_labels(45291.75, 45292.25, 400),
            "18:00/31.12.2023 20:00 22:00 00:00/01.01.2024 02:00 04:00 06:00");
}

TEST(DateTicksTest, DaysThatHaveNoRoomBesideEachOtherAreShortened) {
  // "01.01.2024" takes 70 pixels, "01.01.24" 56, "31.12." 42, "31." 21 and a gap 5.6. Six hours are 65
  // pixels.
  EXPECT_EQ(date_labels(45291.75, 45292.75, 260), "18:00/31.12. 00:00/01.01.2024 06:00 12:00 18:00");
  // Three hours are 55, 52 and 50 pixels.
  EXPECT_EQ(date_labels(45291.875, 45292.375, 220), "21:00/31.12. 00:00/01.01.24 03:00 06:00 09:00");
  EXPECT_EQ(date_labels(45291.875, 45292.375, 208), "21:00/31. 00:00/01.01.2024 03:00 06:00 09:00");
  EXPECT_EQ(date_labels(45291.875, 45292.375, 200), "21:00/31. 00:00/01.01.24 03:00 06:00 09:00");
}

TEST(DateTicksTest, ShortenedDaysAreAllOfOneForm) {
  TickRequest request = request_of(45291, 45297, 240);
  request.manual_line = 1.5;
  // 60 pixels a line: 21 + 5.6 + 35 do not fit between the last two, 21 + 5.6 + 28 do.
  EXPECT_EQ(labels_of(date_ticks(request, FixedMeasure())),
            "00:00/31.12. 12:00/01.01. 00:00/03.01. 12:00/04.01. 00:00/06.01.24");
}

TEST(DateTicksTest, PartsOfASecondGoByOneTwoAndFive) {
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

TEST(DateTicksTest, ADateAxisWhoseStepIsWiderThanItselfLabelsAPartOfFinerTicks) {
  // A label of 12:00:00.00001 needs 110.6 pixels: 5 us stand 100 apart and 10 us 200, so from 1 us to
  // 19.9 us there is only one of 10 us. Those of 5 us have their labels at every second one.
  const f64 second = 1.0 / 86400;
  const AxisTicks ticks = date_ticks(request_of(1e-6 * second, 19.9e-6 * second, 378), FixedMeasure());
  EXPECT_EQ(ticks.major.size(), 3U);
  EXPECT_EQ(kept_labels_of(ticks), "00:00:00.000005/30.12.1899 00:00:00.000015");
}

TEST(DateTicksTest, FineStepsEndAtMidnight) {
  const f64 second = 1.0 / 86400;
  EXPECT_EQ(date_labels(1 - 1e-6 * second, 1 + 1e-6 * second, 700),
            "23:59:59.9999990/30.12.1899 23:59:59.9999995 00:00:00.0000000/31.12.1899 00:00:00.0000005 "
            "00:00:00.0000010");
}

TEST(DateTicksTest, DatesFallOnCalendarUnits) {
  const f64 second = 1.0 / 86400;
  EXPECT_EQ(date_labels(45292, 45292 + 20 * second, 300),
            "00:00:00/01.01.2024 00:00:05 00:00:10 00:00:15 00:00:20");
  EXPECT_EQ(date_labels(45292.5, 45292.5 + 0.2 * second, 500),
            "12:00:00.00/01.01.2024 12:00:00.05 12:00:00.10 12:00:00.15 12:00:00.20");
  EXPECT_EQ(date_labels(45290, 45294, 260), "30.12./2023 31.12. 01.01./2024 02.01. 03.01.");
  EXPECT_EQ(date_labels(45292, 45292 + 180, 300), "Jan/2024 Feb Mär Apr Mai Jun");
  EXPECT_EQ(date_labels(36526, 36526 + 3652, 500), "2000 2001 2002 2003 2004 2005 2006 2007 2008 2009");
}

TEST(DateTicksTest, DaysAndWeeksHaveMinorTicks) {
  const AxisTicks days = date_ticks(request_of(45290, 45294, 260), FixedMeasure());
  ASSERT_EQ(days.minor.size(), 17U);  // every six hours
  EXPECT_EQ(days.minor[1], 45290.25);
  // 45292 is a Monday; a day takes 10 pixels.
  const AxisTicks weeks = date_ticks(request_of(45292, 45313, 210), FixedMeasure());
  EXPECT_EQ(labels_of(weeks), "01.01./2024 08.01. 15.01. 22.01.");
  ASSERT_EQ(weeks.minor.size(), 22U);
  EXPECT_EQ(weeks.minor[1], 45293);
}

TEST(DateTicksTest, ManualLinesOfADateAxisCountInDays) {
  TickRequest request = request_of(45292, 45293, 700);
  request.manual_line = 0.25;
  request.manual_tick = 1.0 / 12;
  const AxisTicks ticks = date_ticks(request, FixedMeasure());
  EXPECT_EQ(labels_of(ticks), "00:00/01.01.2024 06:00 12:00 18:00 00:00/02.01.2024");
  ASSERT_EQ(ticks.minor.size(), 8U);
  EXPECT_DOUBLE_EQ(ticks.minor[0], 45292 + 2 / 24.0);
  EXPECT_DOUBLE_EQ(ticks.minor[2], 45292 + 8 / 24.0);
}

TEST(DateTicksTest, ManualLinesOfADateAxisNameWhatTellsThemApart) {
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

TEST(DateTicksTest, ATimeThatRoundsToMidnightBelongsToTheNextDay) {
  TickRequest request = request_of(45292, 45293, 500);
  request.manual_line = 0.3333333;  // 28799.997 s
  EXPECT_EQ(labels_of(date_ticks(request, FixedMeasure())),
            "00:00:00/01.01.2024 08:00:00 16:00:00 00:00:00/02.01.2024");
}

TEST(DateTicksTest, DaysStandAtTheLabelsThatWereKept) {
  TickRequest request = request_of(45292, 45294, 300);
  request.manual_line = 1.0 / 24;
  const AxisTicks ticks = date_ticks(request, FixedMeasure());
  EXPECT_EQ(ticks.major.size(), 49U);
  // 6.25 pixels an hour, and a label needs 48.
  EXPECT_EQ(kept_labels_of(ticks),
            "00:00/01.01.2024 08:00 16:00 00:00/02.01.2024 08:00 16:00 00:00/03.01.2024");
}

TEST(DateTicksTest, ManualLinesThatCrowdADateAxisAreLeftAside) {
  TickRequest request = request_of(45291.75, 45292.25, 400);
  for (const f64 line : {1e-6, 1e-13}) {
    request.manual_line = line;
    EXPECT_EQ(labels_of(date_ticks(request, FixedMeasure())), date_labels(45291.75, 45292.25, 400)) << line;
  }
}

TEST(DateTicksTest, PrefixAndSuffixStandAroundATime) {
  TickRequest request = request_of(45292, 45293, 700);
  request.format = parse_number_format("um |.00| Uhr");
  // 84 pixels a label: every three hours, 87 apart, would be too close.
  EXPECT_EQ(labels_of(date_ticks(request, FixedMeasure())),
            "um 00:00 Uhr/01.01.2024 um 06:00 Uhr um 12:00 Uhr um 18:00 Uhr um 00:00 Uhr/02.01.2024");
  request.manual_line = 0.5;
  EXPECT_EQ(labels_of(date_ticks(request, FixedMeasure())),
            "um 00:00 Uhr/01.01.2024 um 12:00 Uhr um 00:00 Uhr/02.01.2024");
}

TEST(DateTicksTest, DatesBeforeDayZeroCount) {
  EXPECT_EQ(date_labels(-1, 1, 400),
            "00:00/29.12.1899 06:00 12:00 18:00 00:00/30.12.1899 06:00 12:00 18:00 "
            "00:00/31.12.1899");
}

TEST(DateTicksTest, DatesBeyondTheCalendarBecomeNumbers) {
  EXPECT_EQ(date_labels(0, 1e9, 300), "0 0.5e9 1.0e9");
}

}  // namespace
}  // namespace trendaro
