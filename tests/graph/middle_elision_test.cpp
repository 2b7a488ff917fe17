#include "graph/middle_elision.h"

#include <gtest/gtest.h>

#include "support/fixed_measure.h"

namespace trendaro {
namespace {

TEST(MiddleElisionTest, StartAndEndStay) {
  const FixedMeasure measure;
  EXPECT_EQ(elided_in_middle("Größe Öl", 56, TextRole::Legend, measure), "Größe Öl");
  EXPECT_EQ(elided_in_middle("Größe Öl", 49, TextRole::Legend, measure), "Grö… Öl");
  EXPECT_EQ(elided_in_middle("Größe Öl", 42, TextRole::Legend, measure), "Grö…Öl");
  EXPECT_EQ(elided_in_middle("Größe Öl", 14, TextRole::Legend, measure), "G…");
  EXPECT_EQ(elided_in_middle("Größe Öl", 7, TextRole::Legend, measure), "…");
  EXPECT_EQ(elided_in_middle("Größe Öl", 6, TextRole::Legend, measure), "");
}

}  // namespace
}  // namespace trendaro
