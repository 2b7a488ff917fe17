#include "app/numbers.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "app/run_time_error.h"

namespace trendaro {
namespace {

TEST(ParseNumberTest, FirstCommaIsTheDecimalSign) {
  EXPECT_EQ(ParseNumber("1,5"), 1.5);
  EXPECT_EQ(ParseNumber("1,5,7"), 1.5);
  EXPECT_EQ(ParseNumber("1.234,5"), 1.234);
}

TEST(ParseNumberTest, TextBehindAnXIsHexadecimal) {
  EXPECT_EQ(ParseNumber("0x1F"), 31);
  EXPECT_EQ(ParseNumber("0X1f"), 31);
  EXPECT_EQ(ParseNumber("0x 1F"), 31);
  EXPECT_EQ(ParseNumber("abcx10"), 16);
  EXPECT_EQ(ParseNumber("x"), 0);
  EXPECT_EQ(ParseNumber("0xG"), 0);
}

TEST(ParseNumberTest, TakesTheLongestNumberAtTheStart) {
  EXPECT_EQ(ParseNumber("12abc"), 12);
  EXPECT_EQ(ParseNumber("  -3.5 mm"), -3.5);
  EXPECT_EQ(ParseNumber("+7"), 7);
  EXPECT_EQ(ParseNumber("1e3"), 1000);
  EXPECT_EQ(ParseNumber("1e"), 1);
  EXPECT_EQ(ParseNumber(",5"), 0.5);
}

TEST(ParseNumberTest, TextWithoutANumberIsZero) {
  EXPECT_EQ(ParseNumber(""), 0);
  EXPECT_EQ(ParseNumber("   "), 0);
  EXPECT_EQ(ParseNumber("Sekunden"), 0);
  EXPECT_EQ(ParseNumber("inf"), 0);
  EXPECT_EQ(ParseNumber("-nan"), 0);
  EXPECT_EQ(ParseNumber("-"), 0);
  EXPECT_EQ(ParseNumber("--5"), 0);
  EXPECT_EQ(ParseNumber("+-5"), 0);
  EXPECT_EQ(ParseNumber("+"), 0);
}

TEST(ParseNumberTest, NumbersOutOfRangeAreTheLargestOrNothing) {
  EXPECT_EQ(ParseNumber("1e999"), std::numeric_limits<f64>::max());
  EXPECT_EQ(ParseNumber("-1e999"), std::numeric_limits<f64>::lowest());
  EXPECT_EQ(ParseNumber("1e-999"), 0);
  EXPECT_EQ(ParseNumber("-1e-999 mm"), 0);
  EXPECT_EQ(ParseNumber(std::string(400, '9') + " m"), std::numeric_limits<f64>::max());
  EXPECT_EQ(ParseNumber('-' + std::string(400, '9')), std::numeric_limits<f64>::lowest());
}

TEST(ParseNumberTest, DigitsAndExponentTogetherTellWhatIsOutOfRange) {
  const std::string zeros(400, '0');
  EXPECT_EQ(ParseNumber("0," + zeros + "1"), 0);
  EXPECT_EQ(ParseNumber("0," + zeros + "1e401"), 1);
  EXPECT_EQ(ParseNumber("1" + zeros + "e-5"), std::numeric_limits<f64>::max());
  EXPECT_EQ(ParseNumber("1" + zeros + "e-400"), 1);
  EXPECT_EQ(ParseNumber("1" + zeros + "e-5x"), 0);  // behind the "x" stands nothing
  EXPECT_EQ(ParseNumber("1e-310"), 1e-310);
}

TEST(ParseNumberTest, LongHexadecimalNumbers) {
  EXPECT_EQ(ParseNumber("0xFFFFFFFF"), 4294967295.0);
  // 17 digits: 2 to the power of 69 less 1, which rounds to that power.
  EXPECT_EQ(ParseNumber("0x1FFFFFFFFFFFFFFFFF"), 590295810358705651712.0);
  EXPECT_EQ(ParseNumber("0x1" + std::string(300, '0')), std::numeric_limits<f64>::max());
  EXPECT_EQ(ParseNumber("0x1F.8"), 31);
  EXPECT_EQ(ParseNumber("0x1Fp3"), 31);
  EXPECT_EQ(ParseNumber("0x-1F"), 0);
  EXPECT_EQ(ParseNumber("0xinf"), 0);
}

TEST(RoundingTest, TiesGoToTheEvenNeighbour) {
  EXPECT_EQ(round_to_i32(0.5), 0);
  EXPECT_EQ(round_to_i32(1.5), 2);
  EXPECT_EQ(round_to_i32(2.5), 2);
  EXPECT_EQ(round_to_i32(-2.5), -2);
  EXPECT_EQ(round_to_i16(10.5), 10);
}

TEST(RoundingTest, ValuesOutOfRangeOverflow) {
  EXPECT_THROW(round_to_i16(32767.5), RunTimeError);
  EXPECT_EQ(round_to_i16(32767.4), 32767);
  EXPECT_EQ(round_to_i16(-32768.5), -32768);
  EXPECT_THROW(round_to_i32(2147483648.0), RunTimeError);
  EXPECT_THROW(round_to_i32(std::numeric_limits<f64>::quiet_NaN()), RunTimeError);
  EXPECT_THROW(round_to_i32(std::numeric_limits<f64>::infinity()), RunTimeError);
}

TEST(NumberTextTest, ReadsBackToTheSameValue) {
  EXPECT_EQ(number_text(0.1), "0.1");
  EXPECT_EQ(number_text(-2.0), "-2");
  EXPECT_EQ(number_text(100000.0), "100000");
  EXPECT_EQ(number_text(0.0001), "0.0001");
  EXPECT_EQ(number_text(1e-6), "1e-06");
  EXPECT_EQ(number_text(9007199254740992.0), "9007199254740992");
  EXPECT_EQ(number_text(1e16), "1e+16");
  EXPECT_EQ(number_text(-0.0), "-0");
  EXPECT_EQ(number_text(f32{1e5}), "100000");
  EXPECT_EQ(number_text(f32{0.1F}), "0.1");
  EXPECT_EQ(number_text(f32{1e7}), "1e+07");
  EXPECT_EQ(number_text(45000.5), "45000.5");
  EXPECT_EQ(number_text(std::numeric_limits<f64>::infinity()), "inf");
  EXPECT_EQ(fixed_text(2.0 / 3, 3), "0.667");
  EXPECT_EQ(fixed_text(5, 0), "5");
}

TEST(CountTextTest, LargeCountsStandInPlainDigits) {
  EXPECT_EQ(count_text(0), "0");
  EXPECT_EQ(count_text(100000), "100000");
  EXPECT_EQ(count_text(1000000), "1000000");
  EXPECT_EQ(count_text(999999999999999), "999999999999999");
  EXPECT_EQ(count_text(2.5), "2.5");
}

TEST(CountTextTest, RestOfTheArithmeticIsHidden) {
  EXPECT_EQ(count_text(0.1 + 0.2), "0.3");
}

}  // namespace
}  // namespace trendaro
