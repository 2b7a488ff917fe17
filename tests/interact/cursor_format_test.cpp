#include "interact/cursor_format.h"

#include <limits>

#include <gtest/gtest.h>

namespace trendaro {
namespace {

TEST(FormatCursorValueTest, DigitsFollowTheSize) {
  EXPECT_EQ(FormatCursorValue(1234567), "1.23e+06");
  EXPECT_EQ(FormatCursorValue(1000000), "1.00e+06");
  EXPECT_EQ(FormatCursorValue(999999), "999999");
  EXPECT_EQ(FormatCursorValue(1000), "1000");
  EXPECT_EQ(FormatCursorValue(999.94), "999.9");
  EXPECT_EQ(FormatCursorValue(100), "100.0");
  EXPECT_EQ(FormatCursorValue(99.994), "99.99");
  EXPECT_EQ(FormatCursorValue(10), "10.00");
  EXPECT_EQ(FormatCursorValue(9.8765), "9.877");
  EXPECT_EQ(FormatCursorValue(1), "1.000");
  EXPECT_EQ(FormatCursorValue(0.99994), "0.9999");
  EXPECT_EQ(FormatCursorValue(0.5), "0.5000");
  EXPECT_EQ(FormatCursorValue(0.1), "0.1000");
  EXPECT_EQ(FormatCursorValue(0.01234), "0.01234");
  EXPECT_EQ(FormatCursorValue(0.001), "0.00100");
  EXPECT_EQ(FormatCursorValue(0.0009), "0.0009000");
  EXPECT_EQ(FormatCursorValue(0.00001), "0.0000100");
  EXPECT_EQ(FormatCursorValue(0.0000099), "9.90e-06");
}

TEST(FormatCursorValueTest, NegativeValuesGoByTheirMagnitude) {
  EXPECT_EQ(FormatCursorValue(-1000), "-1000");
  EXPECT_EQ(FormatCursorValue(-0.5), "-0.5000");
  EXPECT_EQ(FormatCursorValue(-9.8765), "-9.877");
  EXPECT_EQ(FormatCursorValue(-12345678), "-1.23e+07");
}

TEST(FormatCursorValueTest, WhatIsNoFiniteNumberSaysSo) {
  EXPECT_EQ(FormatCursorValue(std::numeric_limits<f64>::infinity()), "inf");
  EXPECT_EQ(FormatCursorValue(-std::numeric_limits<f64>::infinity()), "-inf");
  EXPECT_EQ(FormatCursorValue(std::numeric_limits<f64>::quiet_NaN()), "nan");
}

TEST(FormatCursorValueTest, ZeroIsPlain) {
  EXPECT_EQ(FormatCursorValue(0), "0");
  EXPECT_EQ(FormatCursorValue(-0.0), "0");
}

}  // namespace
}  // namespace trendaro
