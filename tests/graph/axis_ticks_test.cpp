#include "graph/axis_ticks.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/axis_ticks.h"

namespace trendaro {
namespace {

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
  request.manual_line = 1;
  EXPECT_EQ(kept_labels_of(number_ticks(request, FixedMeasure())), kept_labels_of(ticks));
  request.room_end = 740;
  EXPECT_EQ(with_labels(number_ticks(request, FixedMeasure())).back().label, "U=10.00V");
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

TEST(AxisTicksTest, LabelsThatAreThinnedOutKeepTheZero) {
  TickRequest request = request_of(-37, 44, 42);
  request.vertical = true;
  // 10.4 pixels between -20, 0, 20 and 40; a label needs 15.4.
  EXPECT_EQ(kept_labels_of(number_ticks(request, FixedMeasure())), "0 40");
  request = request_of(-40, 45, 100);
  request.vertical = true;
  request.manual_line = 10;
  EXPECT_EQ(kept_labels_of(number_ticks(request, FixedMeasure())), "-40 -20 0 20 40");
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

TEST(AxisTicksTest, AVeryWideAxisHasAllTheMinorTicksThatItHasRoomFor) {
  TickRequest request = request_of(0, 6000, 30000);
  request.manual_line = 100;
  request.manual_tick = 1;  // 5 pixels
  const AxisTicks ticks = number_ticks(request, FixedMeasure());
  EXPECT_EQ(ticks.major.size(), 61U);
  EXPECT_EQ(ticks.minor.size(), 6001U - 61);
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

TEST(AxisTicksTest, LabelsOfALogarithmicAxisHaveOneSpelling) {
  EXPECT_EQ(number_labels(1e-9, 1e-3, 300, 2), "1e-9 1e-8 1e-7 1e-6 1e-5 1e-4 1e-3");
  EXPECT_EQ(number_labels(1e-3, 1e6, 700, 2), "0.001 0.01 0.1 1 10 100 1000 10000 100000 1000000");
  EXPECT_EQ(number_labels(1e-3, 1e7, 700, 2), "1e-3 1e-2 1e-1 1e0 1e1 1e2 1e3 1e4 1e5 1e6 1e7");
  EXPECT_EQ(number_labels(1e8, 1e9, 300, 2), "1e8 2e8 5e8 1e9");
}

TEST(AxisTicksTest, ManyDecadesGoByTwoThreeFiveOrTens) {
  // 1e-20 takes 35 pixels and 12.6 between two of them.
  EXPECT_EQ(number_labels(1e-20, 1e-10, 300, 2), "1e-20 1e-18 1e-16 1e-14 1e-12 1e-10");
  EXPECT_EQ(number_labels(1e-20, 1e-2, 300, 2), "1e-18 1e-15 1e-12 1e-9 1e-6 1e-3");
  EXPECT_EQ(number_labels(1e-30, 1e-6, 300, 2), "1e-30 1e-25 1e-20 1e-15 1e-10");
  EXPECT_EQ(number_labels(1e-25, 1e25, 300, 2), "1e-20 1e-10 1e0 1e10 1e20");
  EXPECT_EQ(number_labels(1e-140, 1e140, 200, 2), "1e-100 1e0 1e100");
}

TEST(AxisTicksTest, MinorTicksOfManyDecadesStandWhereTheyHaveRoom) {
  const auto minors = [](f64 minimum, f64 maximum, f64 pixels) {
    return number_ticks(request_of(minimum, maximum, pixels, 2), FixedMeasure()).minor.size();
  };
  EXPECT_EQ(minors(1, 1000, 200), 24U);      // 2 to 9 of three decades
  EXPECT_EQ(minors(1e-20, 1e-10, 300), 5U);  // the decades between those of every second
  EXPECT_EQ(minors(1e-25, 1e25, 300), 46U);  // 6 pixels a decade: 51 of them less 5
  EXPECT_EQ(minors(1e-25, 1e25, 200), 22U);  // 4 pixels a decade: every second one, 25 less 3
}

}  // namespace
}  // namespace trendaro
