#include "files/file_conversions.h"

#include <bit>
#include <cmath>
#include <filesystem>

#include <gtest/gtest.h>

#include "support/file_builder.h"

namespace trendaro {
namespace {

TEST(FileConversionsTest, SizesBeyondFourGigabytes) {
  const TemporaryFile sample("123");
  const InputFile file(sample.path());
  EXPECT_EQ(FileSizeAsReal(file), 3.0);
  // Sparse: takes no room on the disk.
  std::filesystem::resize_file(sample.path(), 0x2'9000'0001);
  EXPECT_EQ(FileSizeAsReal(file), 2 * 4294967296.0 + 0x90000001);
}

TEST(FileConversionsTest, OnlyAllBitsMarkAMissingScale) {
  EXPECT_TRUE(IsAllOnes(std::bit_cast<f32>(0xFFFFFFFFU)));
  EXPECT_FALSE(IsAllOnes(std::bit_cast<f32>(0xFFFFFFFEU)));
  EXPECT_FALSE(IsAllOnes(std::nanf("")));
  EXPECT_FALSE(IsAllOnes(-1.0f));
}

TEST(FileConversionsTest, CutsAtTheFirstNulAndTrimsTheRight) {
  EXPECT_EQ(CutAtNul(std::string_view("  ab \0cd\0", 9)), "  ab");
  EXPECT_EQ(CutAtNul("ab  "), "ab");
  EXPECT_EQ(CutAtNul(std::string_view("\0ab", 3)), "");
  EXPECT_EQ(CutAtNul(""), "");
}

TEST(FileConversionsTest, RecorderDateBecomesMonthDayYearTime) {
  EXPECT_EQ(RecorderDateToText("Fri Mar 05 12:34:56 2021"), "Mar 05 2021 12:34:56");
}

TEST(FileConversionsTest, RecorderDateCountsCharactersNotBytes) {
  EXPECT_EQ(RecorderDateToText("Fr. Mär 05 12:34:56 2021"), "Mär 05 2021 12:34:56");
}

TEST(FileConversionsTest, ShortRecorderDatesGiveWhatTheCutsLeave) {
  EXPECT_EQ(RecorderDateToText(""), "");
  // First 19 and first 11: "abc"; its last 9: "abc"; with the last 4: "abcabc".
  EXPECT_EQ(RecorderDateToText("abc"), "abcabcabc");
}

}  // namespace
}  // namespace trendaro
