#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <cmath>

#include <gmock/gmock.h>

#include "app/memory_host.h"
#include "graph/graph_scale.h"
#include "graph/graph_widget.h"
#include "support/zoom_recording.h"
#include "window/window_fixture.h"

namespace trendaro {
namespace {

using testing::IsEmpty;

// The window with a recording of 200 s, 100 samples a second, driven by mouse and keys.
class ZoomWindowTest : public WindowTest {
 protected:
  ZoomWindowTest() {
    model.Host = &memory;
    model.Kernel = &memory;
  }

  void show_envelope() {
    write_file(folder.file("lauf.ME1"), ZoomRecording{}.original().bytes());
    write_file(folder.file("lauf.ST1"), ZoomRecording{}.envelope().bytes());
    show_first_signal("lauf.ST1");
    model.controls["PointsBox"].text = "10000";
  }
  void show_plain() {
    write_file(folder.file("lauf.ME1"), ZoomRecording{.rows = 2000}.original().bytes());
    show_first_signal("lauf.ME1");
  }
  void show_first_signal(const std::string& name) {
    open_window();
    window->run([&] { open_file(model, folder.file(name)); });
    click_cell(1, 1);
    ASSERT_EQ(model.NofPlots, 1);
  }

  GraphWidget* graph() { return find<GraphWidget>("PESG"); }
  GraphWidget* survey() { return find<GraphWidget>("PESGSurvey"); }

  // A place in the middle of the layers at `x` seconds.
  static QPoint at(GraphWidget* widget, f64 x) {
    const GraphLayout& layout = widget->layout_on_show();
    const PixelRectangle& area = layout.layers.front().area;
    return {static_cast<int>(std::lround(pixel_of(layout.x_axis.scale, x))),
            static_cast<int>(area.y + area.height / 2)};
  }
  static f64 seconds_in_a_pixel(GraphWidget* widget) {
    const AxisScale& scale = widget->layout_on_show().x_axis.scale;
    return (scale.maximum - scale.minimum) / (scale.last - scale.first);
  }
  static void press(GraphWidget* widget, QPoint place) {
    QTest::mousePress(widget, Qt::LeftButton, Qt::NoModifier, place);
  }
  static void move(GraphWidget* widget, QPoint place) {
    QMouseEvent event(QEvent::MouseMove, place, widget->mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
  }
  static void release(GraphWidget* widget, QPoint place) {
    QTest::mouseRelease(widget, Qt::LeftButton, Qt::NoModifier, place);
  }
  static void drag(GraphWidget* widget, f64 from, f64 to) {
    const QPoint end = at(widget, to);
    press(widget, at(widget, from));
    move(widget, (at(widget, from) + end) / 2);
    move(widget, end);
    release(widget, end);
  }
  QString readout() { return find<QLineEdit>("ZoomPointsBox")->text(); }

  MemoryHost memory{user, 96, 100000};
};

TEST_F(ZoomWindowTest, RubberBandBringsOriginalSamplesIn) {
  show_envelope();
  click_button("TB_ZOOMHORZ");
  const f64 pixel = seconds_in_a_pixel(graph());
  drag(graph(), 50, 60);
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_NEAR(model.ZoomXMin, 50, pixel);
  EXPECT_NEAR(model.ZoomXMax, 60, pixel);
  EXPECT_EQ(readout().toInt(), model.ZoomPoints * 5);
  EXPECT_NEAR(readout().toInt(), 1000, 200 * pixel);
  EXPECT_NEAR((*model.PESG.shown().YData)[0], ZoomRecording::known_sample(1, model.PlotOffsetPoints[1]),
              0.01);
  EXPECT_THAT(user.messages(), IsEmpty());
}

TEST_F(ZoomWindowTest, LimitLineOfTheSurveyMovesTheSection) {
  show_envelope();
  const f64 pixel = seconds_in_a_pixel(survey());
  drag(survey(), 0, 150);
  EXPECT_TRUE(model.Zoomed);
  EXPECT_NEAR(model.ZoomXMin, 150, pixel);
  EXPECT_NEAR(model.ZoomXMax, 199.9, 1e-3);
  drag(survey(), model.ZoomXMin, 20);  // original samples: the pair moves
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_NEAR(model.ZoomXMin, 20, 2 * pixel);
  EXPECT_NEAR(model.ZoomXMax - model.ZoomXMin, 49.9, pixel);
}

TEST_F(ZoomWindowTest, BandInTheSurveyNarrowsIt) {
  show_envelope();
  click_button("TB_ZOOMHORZ");
  drag(survey(), 40, 160);
  EXPECT_TRUE(model.SurveyZoom);
  EXPECT_EQ(model.PESGSurvey.shown().SubTitle, "Zoom");
  EXPECT_GT(model.ZoomXMin, 40);
  EXPECT_LT(model.ZoomXMax, 160);
  EXPECT_LT(survey()->layout_on_show().x_axis.scale.maximum, 161);
}

TEST_F(ZoomWindowTest, ArrowKeysScrollFromEitherGraph) {
  show_envelope();
  click_button("TB_ZOOMHORZ");
  drag(graph(), 50, 60);
  model.controls["StepBox"].text = "100";
  const f64 low = model.ZoomXMin;
  QTest::keyClick(graph(), Qt::Key_Right);
  EXPECT_NEAR(model.ZoomXMin, low + 1, 1e-9);
  QTest::keyClick(survey(), Qt::Key_Left);
  QTest::keyClick(grid(), Qt::Key_Left);
  EXPECT_NEAR(model.ZoomXMin, low - 1, 1e-9);
}

TEST_F(ZoomWindowTest, ResetShowsTheWholeRecording) {
  show_envelope();
  click_button("TB_ZOOMRECT");
  drag(survey(), 40, 160);
  click_button("TB_ZOOMFIX");
  EXPECT_FALSE(model.Zoomed);
  EXPECT_GT(survey()->layout_on_show().x_axis.scale.maximum, 190);
  EXPECT_GT(graph()->layout_on_show().x_axis.scale.maximum, 190);
  EXPECT_EQ(readout().toStdString(), "19990");
}

TEST_F(ZoomWindowTest, PlainFileHasScrollBarsAndNoScrollButtons) {
  show_plain();
  QApplication::processEvents();
  EXPECT_FALSE(find<QWidget>("TB_SCROLLLEFT")->isVisible());
  const auto horizontal_bar = [&] {
    for (QScrollBar* bar : graph()->findChildren<QScrollBar*>())
      if (bar->orientation() == Qt::Horizontal) return bar;
    return static_cast<QScrollBar*>(nullptr);
  };
  ASSERT_NE(horizontal_bar(), nullptr);
  EXPECT_TRUE(horizontal_bar()->isHidden());
  click_button("TB_ZOOMHORZ");
  drag(graph(), 5, 8);
  EXPECT_TRUE(model.Zoomed);
  EXPECT_FALSE(model.OriginalDataMode);
  EXPECT_FALSE(horizontal_bar()->isHidden());
  horizontal_bar()->setValue(horizontal_bar()->maximum());
  EXPECT_NEAR(model.PESG.shown().ZoomMaxX, model.PESG.shown().ManualMaxX, 0.1);
  EXPECT_NEAR(model.PESG.shown().ZoomMaxX - model.PESG.shown().ZoomMinX, 3, 0.2);
}

}  // namespace
}  // namespace trendaro
