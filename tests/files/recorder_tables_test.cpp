#include "files/recorder_tables.h"

#include <limits>

#include <gtest/gtest.h>

namespace trendaro {
namespace {

TEST(RecorderTablesTest, EveryRateCodeHasItsRate) {
  const std::pair<i32, f32> rows[] = {
      {6300, 1.0F},    {6301, 2.0F},     {6302, 5.0F},     {6303, 10.0F},    {6304, 25.0F},   {6305, 50.0F},
      {6306, 60.0F},   {6307, 75.0F},    {6308, 100.0F},   {6309, 150.0F},   {6310, 200.0F},  {6311, 300.0F},
      {6312, 400.0F},  {6313, 600.0F},   {6314, 800.0F},   {6315, 1200.0F},  {6316, 1600.0F}, {6317, 2400.0F},
      {6318, 3200.0F}, {6319, 4800.0F},  {6320, 9600.0F},  {6345, 19200.0F}, {6350, 0.5F},    {6351, 0.2F},
      {6352, 0.1F},    {6353, 0.05F},    {6354, 0.02F},    {6355, 0.001F},   {6356, 0.0005F}, {6357, 0.0002F},
      {6358, 0.0001F}, {6359, 0.00005F}, {6360, 0.00002F}, {6361, 0.00001F}};
  for (const auto& [code, rate] : rows) EXPECT_EQ(recorder_rate(code), rate) << code;
}

TEST(RecorderTablesTest, UnknownRateCodesCountAsOneHertz) {
  const i32 codes[] = {0,
                       -1,
                       6299,
                       6321,
                       6344,
                       6346,
                       6349,
                       6362,
                       std::numeric_limits<i32>::max(),
                       std::numeric_limits<i32>::min()};
  for (const i32 code : codes) EXPECT_EQ(recorder_rate(code), 1.0F) << code;
}

TEST(RecorderTablesTest, RatesBelowOneHertzReadAsOne) {
  for (i32 code = 6350; code <= 6361; ++code) EXPECT_EQ(whole_recorder_rate(code), 1) << code;
  EXPECT_EQ(whole_recorder_rate(6317), 2400);
}

TEST(RecorderTablesTest, AmplifierCodesAreTranslated) {
  const std::pair<u8, i16> rows[] = {{1, 5000},  {2, 5002},  {3, 5002},  {4, 5003},  {6, 5004},  {7, 5005},
                                     {8, 5006},  {10, 5007}, {32, 5010}, {38, 5009}, {96, 5008}, {70, 5012},
                                     {71, 5013}, {77, 5014}, {80, 5015}, {0, 0},     {5, 0},     {255, 0}};
  for (const auto& [code, type] : rows) EXPECT_EQ(recorder_amplifier_type(code), type) << int{code};
}

}  // namespace
}  // namespace trendaro
