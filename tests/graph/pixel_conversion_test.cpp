#include "graph/pixel_conversion.h"

#include <gtest/gtest.h>

#include "support/hand_layout.h"

namespace trendaro {
namespace {

TEST(PixelConversionTest, PixelBecomesUnitsOfItsLayer) {
  const GraphPlace upper = PEconvpixeltograph(hand_layout(), PixelPoint{150, 120});
  EXPECT_DOUBLE_EQ(upper.x, 5);
  EXPECT_DOUBLE_EQ(upper.y, 3);
  EXPECT_EQ(upper.layer, 0);
  const GraphPlace lower = PEconvpixeltograph(hand_layout(), PixelPoint{400, 180});
  EXPECT_DOUBLE_EQ(lower.x, 30);
  EXPECT_DOUBLE_EQ(lower.y, 4);
  EXPECT_EQ(lower.layer, 1);
}

TEST(PixelConversionTest, RightAxisHasItsOwnUnits) {
  EXPECT_DOUBLE_EQ(PEconvpixeltograph(hand_layout(), PixelPoint{150, 120}, true).y, 30);
}

TEST(PixelConversionTest, PlacesOutsideContinueTheAxesOfTheNearestLayer) {
  const GraphPlace left_above = PEconvpixeltograph(hand_layout(), PixelPoint{80, 40});
  EXPECT_DOUBLE_EQ(left_above.x, -2);
  EXPECT_DOUBLE_EQ(left_above.y, 11);
  EXPECT_EQ(PEconvpixeltograph(hand_layout(), PixelPoint{200, 158}).layer, 0);
  EXPECT_EQ(PEconvpixeltograph(hand_layout(), PixelPoint{200, 163}).layer, 1);
}

TEST(PixelConversionTest, TheWayBackLeadsToThePixel) {
  for (const bool right : {false, true}) {
    const PixelPoint pixel =
        PEconvpixeltograph(hand_layout(), PEconvpixeltograph(hand_layout(), PixelPoint{321, 77}, right));
    EXPECT_NEAR(pixel.x, 321, 1e-9);
    EXPECT_NEAR(pixel.y, 77, 1e-9);
  }
}

TEST(PixelConversionTest, AGraphWithoutLayersGivesTheOrigin) {
  EXPECT_EQ(PEconvpixeltograph(GraphLayout{}, PixelPoint{5, 5}).x, 0);
  EXPECT_EQ(PEconvpixeltograph(GraphLayout{}, GraphPlace{1, 1}).y, 0);
}

}  // namespace
}  // namespace trendaro
