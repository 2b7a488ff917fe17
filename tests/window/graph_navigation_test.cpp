#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QToolButton>

#include "graph/graph_widget.h"
#include "support/zoom_recording.h"
#include "window/graph_pointer.h"
#include "window/window_fixture.h"

namespace trendaro {
namespace {

// The window with a recording of 200 s on show, 100 samples a second, and a bound below which no section
// falls.
class GraphNavigationTest : public WindowTest {
 protected:
  GraphNavigationTest() {
    open_window();
    write_file(folder.file("lauf.ME1"), ZoomRecording{}.original().bytes());
    write_file(folder.file("lauf.ST1"), ZoomRecording{}.envelope().bytes());
    model.controls["PointsBox"].text = "10";
    window->run([&] { open_file(model, folder.file("lauf.ST1")); });
    click_cell(1, 1);
    QApplication::processEvents();
  }

  GraphWidget* detail() { return find<GraphWidget>("PESG"); }
  GraphWidget* survey() { return find<GraphWidget>("PESGSurvey"); }

  static void pull(GraphWidget* graph, QPoint from, QPoint to) {
    QTest::mousePress(graph, Qt::LeftButton, Qt::NoModifier, from);
    move_pointer(graph, to);
    QTest::mouseRelease(graph, Qt::LeftButton, Qt::NoModifier, to);
  }
  f64 line(std::size_t index) { return model.PESGSurvey.shown().VertLineAnnotation.at(index); }
};

TEST_F(GraphNavigationTest, RubberBandMovesDetailGraphAndLimitLines) {
  click_button("TB_ZOOMHORZ");
  const f64 pixel = units_in_a_pixel(detail());
  pull(detail(), place_at(detail(), 50), place_at(detail(), 120));
  EXPECT_TRUE(model.Zoomed);
  EXPECT_NEAR(model.ZoomXMin, 50, pixel);
  EXPECT_NEAR(model.ZoomXMax, 120, pixel);
  EXPECT_DOUBLE_EQ(line(0), model.ZoomXMin);
  EXPECT_NEAR(detail()->layout_on_show().x_axis.scale.minimum, 50, pixel);
  EXPECT_NEAR(detail()->layout_on_show().x_axis.scale.maximum, 120, pixel);
}

TEST_F(GraphNavigationTest, NoBandWithoutAZoomMode) {
  pull(detail(), place_at(detail(), 50), place_at(detail(), 120));
  EXPECT_FALSE(model.Zoomed);
}

TEST_F(GraphNavigationTest, DraggedLimitLineShowsItsPointsAndMovesTheDetailGraph) {
  const u64 painted = survey()->pictures_painted();
  const QPoint start = place_at(survey(), line(0));
  QTest::mousePress(survey(), Qt::LeftButton, Qt::NoModifier, start);
  move_pointer(survey(), place_at(survey(), 100));
  EXPECT_FALSE(model.Zoomed);
  const f64 points = find<QLineEdit>("ZoomPointsBox")->text().toDouble();
  EXPECT_NEAR(points, 10000, 100 * units_in_a_pixel(survey()) + 10);  // from 100 s to 200 s
  survey()->grab();
  EXPECT_EQ(survey()->pictures_painted(), painted);
  QTest::mouseRelease(survey(), Qt::LeftButton, Qt::NoModifier, place_at(survey(), 100));
  EXPECT_TRUE(model.Zoomed);
  EXPECT_NEAR(detail()->layout_on_show().x_axis.scale.minimum, 100, units_in_a_pixel(survey()));
}

TEST_F(GraphNavigationTest, EscapeGivesTheDragUp) {
  const f64 before = line(0);
  QTest::mousePress(survey(), Qt::LeftButton, Qt::NoModifier, place_at(survey(), before));
  move_pointer(survey(), place_at(survey(), 100));
  EXPECT_NEAR(line(0), 100, units_in_a_pixel(survey()));
  QTest::keyClick(survey(), Qt::Key_Escape);
  EXPECT_DOUBLE_EQ(line(0), before);
  QTest::mouseRelease(survey(), Qt::LeftButton, Qt::NoModifier, place_at(survey(), 100));
  EXPECT_FALSE(model.Zoomed);
}

TEST_F(GraphNavigationTest, ArrowKeysOnTheGraphScroll) {
  click_button("TB_ZOOMHORZ");
  pull(detail(), place_at(detail(), 50), place_at(detail(), 120));
  model.controls["StepBox"].text = "1000";
  const f64 start = model.ZoomXMin;
  QTest::keyClick(detail(), Qt::Key_Right);
  EXPECT_NEAR(model.ZoomXMin, start + 10, 1e-3);
  EXPECT_NEAR(detail()->layout_on_show().x_axis.scale.minimum, start + 10, 1e-3);
}

TEST_F(GraphNavigationTest, CursorOfTheToolbarReadsTheCurveAtPointerAndKeys) {
  click_button("TB_CURSOR");
  EXPECT_EQ(window->focusWidget(), detail());
  EXPECT_TRUE(find<QAction>("mnuCrossCursor")->isChecked());
  QMouseEvent event(QEvent::MouseMove, place_at(detail(), 100),
                    detail()->mapToGlobal(place_at(detail(), 100)), Qt::NoButton, Qt::NoButton,
                    Qt::NoModifier);
  QApplication::sendEvent(detail(), &event);
  const auto x_cell = [&] { return model.PESG.shown().tables[0].cells.at({0, 0}).text; };
  f64 x = 0;
  PEvgetcellEx(model.PESG, kXData, 0, model.PESG.pending.CursorPoint, x);
  EXPECT_NEAR(x, 100, 5);
  EXPECT_EQ(x_cell().substr(0, 2), "x=");
  const std::string before = x_cell();
  for (int step = 0; step < 4; ++step) QTest::keyClick(detail(), Qt::Key_Right);
  EXPECT_NE(x_cell(), before);
  EXPECT_FALSE(model.Zoomed);
}

TEST_F(GraphNavigationTest, DropDownOfTheCursorButtonHoldsTheModes) {
  auto* button = find<QToolButton>("TB_CURSOR");
  ASSERT_NE(button->menu(), nullptr);
  QStringList entries;
  for (const QAction* entry : button->menu()->actions()) entries.append(entry->text().remove(u'&'));
  EXPECT_EQ(
      entries,
      QStringList({QStringLiteral("Cursor ausschalten"), QStringLiteral("Einrasten (vertikale Linie)"),
                   QStringLiteral("Einrasten (Fadenkreuz)"), QStringLiteral("Einrasten (Datenpunkt)")}));
  button->menu()->actions().at(3)->trigger();
  EXPECT_EQ(model.PESG.pending.CursorMode, 3);
}

}  // namespace
}  // namespace trendaro
