#include "app/dates.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace trendaro {
namespace {

constexpr f64 kSecond = 1.0 / 86400;

TEST(DatesTest, DayNumbersCountFromTheEndOf1899) {
  EXPECT_EQ(date_text(0), "30.12.1899");
  EXPECT_EQ(date_text(2), "01.01.1900");
  EXPECT_EQ(date_text(25569), "01.01.1970");
  EXPECT_EQ(date_text(44260), "05.03.2021");
  EXPECT_EQ(date_text(36585), "29.02.2000");
}

TEST(DatesTest, TimeOfDayIsTheFraction) {
  EXPECT_EQ(date_time_text(44260.25), "05.03.2021 06:00:00");
  EXPECT_EQ(time_text(44260.75), "18:00");
  EXPECT_EQ(short_year_date_text(44260 + 45296 * kSecond), "05.03.21 12:34:56");
  EXPECT_EQ(time_text(44260 + 45296 * kSecond), "12:34");
}

TEST(DatesTest, FractionsOfNegativeDaysCountAwayFromZero) {
  EXPECT_EQ(date_time_text(-1), "29.12.1899 00:00:00");
  EXPECT_EQ(date_time_text(-1.25), "29.12.1899 06:00:00");
  EXPECT_EQ(date_time_text(-0.25), "30.12.1899 06:00:00");
  EXPECT_DOUBLE_EQ(*day_number_from_text("29.12.1899 06:00"), -1.25);
}

TEST(DatesTest, RoundsToWholeSecondsAndIntoTheNextDay) {
  EXPECT_EQ(date_time_text(44260 + 0.6 * kSecond), "05.03.2021 00:00:01");
  EXPECT_EQ(date_time_text(44261 - 0.4 * kSecond), "06.03.2021 00:00:00");
  EXPECT_EQ(date_text(44261 - 0.4 * kSecond), "06.03.2021");
  EXPECT_EQ(date_time_text(-1 - (1 - 0.4 * kSecond)), "30.12.1899 00:00:00");
}

TEST(DatesTest, NumbersOutsideOfTheCalendarHaveNoText) {
  EXPECT_EQ(date_text(-657434), "01.01.0100");
  EXPECT_EQ(date_text(-657435), "");
  EXPECT_EQ(date_text(2958465), "31.12.9999");
  EXPECT_EQ(date_text(2958466), "");
  EXPECT_EQ(date_time_text(2958466 - 0.1 * kSecond), "");
  for (const f64 number : {1e300, -1e300, std::numeric_limits<f64>::infinity(), std::nan("")}) {
    EXPECT_EQ(date_text(number), "");
    EXPECT_EQ(time_text(number), "");
    EXPECT_EQ(date_time_text(number), "");
    EXPECT_EQ(short_year_date_text(number), "");
  }
}

TEST(DatesTest, ReadsEveryForm) {
  const f64 noon = 44260 + 45296 * kSecond;
  EXPECT_DOUBLE_EQ(*day_number_from_text("05.03.2021 12:34:56"), noon);
  EXPECT_DOUBLE_EQ(*day_number_from_text(" 5.3.21  12:34:56 "), noon);
  EXPECT_DOUBLE_EQ(*day_number_from_text("2021-03-05T12:34:56"), noon);
  EXPECT_DOUBLE_EQ(*day_number_from_text("2021-03-05 12:34:56"), noon);
  EXPECT_DOUBLE_EQ(*day_number_from_text("Mar 05 2021 12:34:56"), noon);
  EXPECT_DOUBLE_EQ(*day_number_from_text("Mar  5 2021 12:34:56"), noon);
  EXPECT_DOUBLE_EQ(*day_number_from_text("Mär 05 2021 12:34:56"), noon);
  EXPECT_DOUBLE_EQ(*day_number_from_text("Mrz 05 2021 12:34:56"), noon);
  EXPECT_DOUBLE_EQ(*day_number_from_text("05.03.2021"), 44260);
  EXPECT_DOUBLE_EQ(*day_number_from_text("44260.5"), 44260.5);
  EXPECT_DOUBLE_EQ(*day_number_from_text("-3"), -3);
  EXPECT_DOUBLE_EQ(*day_number_from_text("18:00"), 0.75);
  EXPECT_DOUBLE_EQ(*day_number_from_text("00:00:00.5"), 0.5 * kSecond);
}

TEST(DatesTest, KnowsTheMonthsOfBothLanguages) {
  const char* english[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                           "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const char* german[] = {"Jan", "Feb", "Mrz", "Apr", "Mai", "Jun", "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"};
  for (int month = 0; month < 12; ++month) {
    char expected[16];
    std::snprintf(expected, sizeof expected, "15.%02d.2023", month + 1);
    for (const auto* names : {english, german}) {
      const auto number = day_number_from_text(std::string(names[month]) + " 15 2023");
      ASSERT_TRUE(number) << names[month];
      EXPECT_EQ(date_text(*number), expected);
    }
  }
}

TEST(DatesTest, TwoDigitYearsLieAroundTheTurnOfTheCentury) {
  EXPECT_EQ(date_text(*day_number_from_text("1.1.29")), "01.01.2029");
  EXPECT_EQ(date_text(*day_number_from_text("1.1.30")), "01.01.1930");
}

TEST(DatesTest, RefusesWhatIsNoDate) {
  for (const char* text : {"", " ", "gestern", "31.02.2021", "5.13.2021", "0.1.2021", "1.1.99999", "1.1.50x",
                           "2021-3", "24:00", "12:60", "12:34:60", "05.03.2021 25:00", "05.03.2021 12:34 h",
                           "Foo 05 2021", "1.1.0099", "nan", "inf", "1e30"})
    EXPECT_FALSE(day_number_from_text(text)) << text;
}

TEST(DatesTest, TextsReadBackToTheSameSecond) {
  for (f64 day = -500000.3; day < 2900000; day += 12345.678) {
    const auto back = day_number_from_text(date_time_text(day));
    ASSERT_TRUE(back) << day;
    EXPECT_EQ(date_time_text(*back), date_time_text(day));
    EXPECT_NEAR(*back, day, 0.51 * kSecond);
  }
}

TEST(DatesTest, DividesIntoDaysAndTime) {
  EXPECT_EQ(whole_days(44260.75), 44260);
  EXPECT_EQ(time_of_day(44260.75), 0.75);
  EXPECT_EQ(whole_days(-1.25), -1);
  EXPECT_EQ(time_of_day(-1.25), 0.25);
}

}  // namespace
}  // namespace trendaro
