#include "window/zoom_window.h"

#include <QScrollBar>

#include <gmock/gmock.h>

namespace trendaro {
namespace {

using testing::IsEmpty;

TEST_F(ZoomWindowTest, RubberBandBringsOriginalSamplesIn) {
  show_envelope();
  click_button("TB_ZOOMHORZ");
  const f64 pixel = units_in_a_pixel(graph());
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
  const f64 pixel = units_in_a_pixel(survey());
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
