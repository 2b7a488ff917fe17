#include "app/window_place.h"

#include <QScreen>

#include "window/window_fixture.h"

namespace trendaro {
namespace {

TEST(FirstPlaceTest, SmallScreenIsFilled) {
  for (const QRect area : {QRect(0, 0, 1280, 800), QRect(0, 27, 1024, 741), QRect(0, 0, 1300, 850)}) {
    EXPECT_TRUE(first_place(area).maximised);
    EXPECT_EQ(first_place(area).rectangle, area);
  }
}

TEST(FirstPlaceTest, LargeScreenIsTakenToFourFifthsInItsMiddle) {
  const FirstPlace place = first_place(QRect(100, 40, 2560, 1400));
  EXPECT_FALSE(place.maximised);
  EXPECT_EQ(place.rectangle, QRect(100 + 256, 40 + 140, 2048, 1120));
}

TEST(FirstPlaceTest, WideLowScreenLeavesRoomForTheFrame) {
  const QRect area(0, 0, 1920, 800);
  const FirstPlace place = first_place(area);
  EXPECT_FALSE(place.maximised);
  EXPECT_TRUE(area.contains(place.rectangle.adjusted(-10, -40, 10, 10)));
}

TEST_F(WindowTest, FirstShowPutsTheWindowOnTheScreenWithTheKeyboardInTheList) {
  load_main_window(model);
  window = std::make_unique<Kelmira>(model, window_shell);
  show_at_first(*window);
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  EXPECT_TRUE(window->screen()->geometry().contains(window->geometry()));
  EXPECT_EQ(QApplication::focusWidget(), grid());
}

TEST_F(WindowTest, AddedFileGivesTheKeyboardToTheList) {
  open_window();
  find<QWidget>("StepBox")->setFocus();
  ASSERT_NE(window->focusWidget(), grid());
  add_file("a.BIN", 2);
  EXPECT_EQ(window->focusWidget(), grid());
}

}  // namespace
}  // namespace trendaro
