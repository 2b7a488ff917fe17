#include "graph/day_labels.h"

#include "support/axis_ticks.h"

namespace trendaro {
namespace {

// Days at pixels of an axis, after they are settled.
std::string settled_days(const std::vector<Tick>& ticks) {
  AxisTicks settled{ticks, {}};
  settle_days(request_of(0, 500, 500), FixedMeasure(), settled.major);
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
