#include "app/one_based.h"

#include <gtest/gtest.h>

#include "app/types.h"

namespace trendaro {
namespace {

TEST(OneBasedTest, FirstElementHasIndexOne) {
  OneBased<i32> numbers;
  numbers.push_back(10);
  numbers.push_back(20);
  EXPECT_EQ(numbers[1], 10);
  EXPECT_EQ(numbers[i16{2}], 20);
  EXPECT_FALSE(numbers.has(0));
  EXPECT_TRUE(numbers.has(2));
  EXPECT_FALSE(numbers.has(3));
  EXPECT_FALSE(numbers.has(-1));
}

TEST(OneBasedTest, ResizingKeepsContents) {
  OneBased<i32> numbers(2, 7);
  numbers.resize(3);
  EXPECT_EQ(numbers[1], 7);
  EXPECT_EQ(numbers[2], 7);
  EXPECT_EQ(numbers[3], 0);
}

TEST(OneBasedTest, ErasingMovesTheLaterElementsUp) {
  OneBased<i32> numbers;
  for (i32 number = 1; number <= 5; ++number) numbers.push_back(number);
  numbers.erase(2, 3);
  EXPECT_EQ(numbers.size(), 2u);
  EXPECT_EQ(numbers[1], 1);
  EXPECT_EQ(numbers[2], 5);
}

#ifndef NDEBUG
TEST(OneBasedDeathTest, IndexOutOfRangeIsAsserted) {
  OneBased<i32> numbers(3);
  EXPECT_DEATH(numbers[0] = 1, "1-based");
  EXPECT_DEATH(numbers[4] = 1, "1-based");
  EXPECT_DEATH(numbers[-1] = 1, "1-based");
}
#endif

}  // namespace
}  // namespace trendaro
