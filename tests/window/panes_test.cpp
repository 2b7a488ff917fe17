#include "window/window_fixture.h"

namespace trendaro {
namespace {

class PanesTest : public WindowTest {
 protected:
  PanesTest() { open_window(); }

  void drag(const char* separator, QPoint way) {
    QWidget* bar = find<QWidget>(separator);
    const QPoint start = bar->rect().center();
    QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, start);
    QTest::mouseMove(bar, start + way);
    QTest::mouseRelease(bar, Qt::LeftButton, Qt::NoModifier, bar->rect().center());
  }
  QRect place(const char* name) { return find<QWidget>(name)->geometry(); }
  void choose(const char* name) { find<QAction>(name)->trigger(); }
};

TEST_F(PanesTest, ListStandsLeftAndTheSurveyBelowTheDetailGraph) {
  EXPECT_LT(place("Label1").top(), place("xSrc").top());
  EXPECT_LT(place("xSrc").bottom(), place("Grid").top());
  EXPECT_LE(place("Grid").right(), place("Separator").left());
  EXPECT_LE(place("Separator").right(), place("PESG").left());
  EXPECT_LT(place("PESG").bottom(), place("SeparatorGraph").top());
  EXPECT_LT(place("SeparatorGraph").bottom(), place("PESGSurvey").top());
}

TEST_F(PanesTest, SurveyHasTwoFifthsOfTheGraphs) {
  const double shared = place("PESG").height() + place("PESGSurvey").height();
  EXPECT_NEAR(place("PESGSurvey").height() / shared, 0.4, 0.01);
}

TEST_F(PanesTest, SeparatorDragMovesTheBorderOfTheList) {
  const QRect grid_before = place("Grid");
  const QRect graph_before = place("PESG");
  drag("Separator", {90, 0});
  EXPECT_EQ(place("Grid").width(), grid_before.width() + 90);
  EXPECT_EQ(place("PESG").left(), graph_before.left() + 90);
  EXPECT_EQ(place("PESG").right(), graph_before.right());
  EXPECT_EQ(place("xSrc").width(), place("Grid").width() - 20);
  EXPECT_EQ(grid()->columnWidth(2),
            place("Grid").width() - grid()->columnWidth(0) - grid()->columnWidth(1) - 33);
}

TEST_F(PanesTest, SeparatorGraphDragMovesTheBorderOfTheGraphs) {
  const int before = place("PESGSurvey").height();
  drag("SeparatorGraph", {0, -70});
  EXPECT_EQ(place("PESGSurvey").height(), before + 70);
}

TEST_F(PanesTest, ClosedListGivesItsWidthToTheGraphs) {
  choose("mnuShowDatasourceGrid");
  for (const char* pane : {"Grid", "xSrc", "Label1", "Separator"})
    EXPECT_FALSE(find<QWidget>(pane)->isVisible());
  EXPECT_EQ(place("PESG").left(), 0);
  EXPECT_FALSE(find<QAction>("mnuShowDatasourceGrid")->isChecked());
  choose("mnuShowDatasourceGrid");
  EXPECT_TRUE(find<QWidget>("Grid")->isVisible());
}

TEST_F(PanesTest, ClosedSurveyGivesItsHeightToTheDetailGraph) {
  const int bottom = place("PESGSurvey").bottom();
  choose("mnuShowSurvGraph");
  EXPECT_FALSE(find<QWidget>("PESGSurvey")->isVisible());
  EXPECT_EQ(place("PESG").bottom(), bottom);
}

TEST_F(PanesTest, PanesFillALargeWindow) {
  window->resize(2560, 1440);
  QApplication::processEvents();
  EXPECT_EQ(place("PESG").right(), 2559);
  EXPECT_EQ(place("Grid").bottom(), place("PESGSurvey").bottom());
}

TEST_F(PanesTest, TinyWindowHoldsTogether) {
  window->resize(60, 40);
  QApplication::processEvents();
  for (const char* pane : {"Grid", "PESG", "PESGSurvey"}) {
    EXPECT_GE(place(pane).width(), 0);
    EXPECT_GE(place(pane).height(), 0);
  }
}

}  // namespace
}  // namespace trendaro
