#include "app/center_form.h"

#include <gtest/gtest.h>

namespace trendaro {
namespace {

TEST(CenterFormTest, HalvesTheRoomLeftAround) {
  const FormPosition place = CenterForm(1280, 800, 400, 300);
  EXPECT_EQ(place.left, 440);
  EXPECT_EQ(place.top, 250);
}

TEST(CenterFormTest, HalfPixelsGoToTheEvenNeighbour) {
  const FormPosition place = CenterForm(1003, 601, 500, 300);  // 251.5 and 150.5
  EXPECT_EQ(place.left, 252);
  EXPECT_EQ(place.top, 150);
}

TEST(CenterFormTest, FormLargerThanTheScreenStartsOutsideOfIt) {
  const FormPosition place = CenterForm(800, 600, 1000, 700);
  EXPECT_EQ(place.left, -100);
  EXPECT_EQ(place.top, -50);
}

}  // namespace
}  // namespace trendaro
