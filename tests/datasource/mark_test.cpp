#include "datasource/mark.h"

#include <gtest/gtest.h>

namespace trendaro {
namespace {

TEST(MarkTest, DoubleDigitIndexKeepsItsDigits) {
  EXPECT_EQ(parse_mark("12_1_2"), (Mark{12, 1, 2}));
  EXPECT_EQ(mark_text({12, 1, 2}), "12_1_2");
}

TEST(MarkTest, PlainIndexIsNoMark) {
  EXPECT_EQ(parse_mark("7"), std::nullopt);
  EXPECT_EQ(parse_mark(""), std::nullopt);
  EXPECT_EQ(mark_index("7"), 7);
  EXPECT_EQ(mark_index("7_2_1"), 7);
  EXPECT_EQ(mark_index(""), 0);
}

TEST(MarkTest, TornCellsAreNoMarks) {
  EXPECT_EQ(parse_mark("7_"), std::nullopt);
  EXPECT_EQ(parse_mark("7_1"), std::nullopt);
  EXPECT_EQ(parse_mark("7_12"), std::nullopt);
}

}  // namespace
}  // namespace trendaro
