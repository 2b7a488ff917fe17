#include "graph/time_axis.h"

#include <gtest/gtest.h>

namespace trendaro {
namespace {

TEST(TimeAxisTest, FactorsTurnMillisecondsIntoTheUnit) {
  EXPECT_EQ(time_factor(0).factor, 1);
  EXPECT_EQ(time_factor(0).unit, "ms");
  EXPECT_DOUBLE_EQ(60000 * time_factor(2).factor, 1);
  EXPECT_EQ(time_factor(2).unit, "min");
  EXPECT_DOUBLE_EQ(3600000 * time_factor(3).factor, 1);
  EXPECT_EQ(time_factor(3).unit, "h");
  EXPECT_DOUBLE_EQ(86400000 * time_factor(4).factor, 1);
  EXPECT_EQ(time_factor(4).unit, "");
  for (const i16 seconds : {i16{1}, i16{5}, i16{-1}}) {
    EXPECT_DOUBLE_EQ(1000 * time_factor(seconds).factor, 1);
    EXPECT_EQ(time_factor(seconds).unit, "s");
  }
}

TEST(TimeAxisTest, DatesHaveNoUnitInTheirTitle) {
  EXPECT_EQ(time_title(1, "s"), "Zeit/s");
  EXPECT_EQ(time_title(4, ""), "Zeit");
}

TEST(TimeAxisTest, StepOfZeroBecomesOneUnit) {
  const TimeLine line = time_line(0, 7, 0.001, false, "");
  EXPECT_EQ(line.step, 0.001);
  EXPECT_EQ(line.start, 0.007);
}

TEST(TimeAxisTest, DateIsAddedOnADateAxisAlone) {
  EXPECT_EQ(time_line(1, 0, 1, true, "44000").start, 44000);
  EXPECT_EQ(time_line(1, 0, 1, false, "44000").start, 0);
  EXPECT_EQ(time_line(1, 3, 1, true, "kein Datum").start, 3);
}

TEST(TimeAxisTest, RecorderDatesAreReordered) {
  EXPECT_EQ(readable_date("Fri Mar 05 12:34:56 2021"), "Mar 05 2021 12:34:56");
  EXPECT_EQ(readable_date("05.03.2021"), "05.03.2021");
}

}  // namespace
}  // namespace trendaro
