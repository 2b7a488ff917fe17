#include "graph/day_labels.h"

#include "support/axis_ticks.h"

namespace trendaro {
namespace {

// Days at pixels of an axis of 500, after they are settled. A pixel is the hundredth of a day, or longer.
std::string settled_days(const std::vector<Tick>& ticks, f64 days_in_pixel = 0.01) {
  AxisTicks settled{ticks, {}};
  for (Tick& tick : settled.major) tick.value *= days_in_pixel;
  settle_days(request_of(0, 500 * days_in_pixel, 500), FixedMeasure(), settled.major);
  return labels_of(settled);
}

TEST(DayLabelsTest, ADayIsNamedOnce) {
  EXPECT_EQ(settled_days({{100, "a", "31.12.2023"}, {200, "b", "31.12.2023"}, {300, "c", "01.01.2024"}}),
            "a/31.12.2023 b c/01.01.2024");
}

TEST(DayLabelsTest, OfTwoDaysWithoutRoomInAnyFormTheLaterStays) {
  // 21 and 56 pixels and a gap of 5.6 need 44.1 between their middles.
  EXPECT_EQ(settled_days({{100, "a", "31.12.2023"}, {140, "b", "01.01.2024"}}), "a b/01.01.24");
  EXPECT_EQ(settled_days({{100, "a", "30.12.2023"}, {110, "b", "31.12.2023"}, {150, "c", "01.01.2024"}}),
            "a/30. b c/01.01.24");
}

TEST(DayLabelsTest, DaysOfOtherMonthsAndYearsKeepThem) {
  // 60 days, of which "30." could be of any month; and two and a half years.
  EXPECT_EQ(settled_days({{100, "a", "30.11.2023"}, {160, "b", "29.01.2024"}}, 1), "a/30.11. b/29.01.24");
  EXPECT_EQ(settled_days({{100, "a", "10.02.2024"}, {140, "b", "21.03.2024"}}, 1), "a b/21.03.24");
  EXPECT_EQ(settled_days({{100, "a", "30.06.2021"}, {150, "b", "01.01.2024"}}, 18), "a b/01.01.2024");
}

TEST(DayLabelsTest, AYearHasNoShorterForm) {
  EXPECT_EQ(settled_days({{100, "Dez", "2023"}, {130, "Jan", "2024"}}), "Dez Jan/2024");
  EXPECT_EQ(settled_days({{100, "Dez", "2023"}, {134, "Jan", "2024"}}), "Dez/2023 Jan/2024");
}

TEST(DayLabelsTest, NoTicksAreNoDays) {
  EXPECT_EQ(settled_days({}), "");
  EXPECT_EQ(settled_days({{100, "a", ""}}), "a");
}

}  // namespace
}  // namespace trendaro
