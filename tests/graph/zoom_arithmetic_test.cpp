#include "graph/zoom_arithmetic.h"

#include <gtest/gtest.h>

#include "app/model.h"
#include "app/run_time_error.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

void expect_window(XWindow window, f64 low, f64 high) {
  EXPECT_DOUBLE_EQ(window.low, low);
  EXPECT_DOUBLE_EQ(window.high, high);
}

TEST(ZoomArithmeticTest, MarginIsTheShareOfBothPaddings) {
  // 100 units of data and 10 percent at either end make a range of 120.
  EXPECT_DOUBLE_EQ(edge_margin({-10, 110}, 10), 10);
  EXPECT_DOUBLE_EQ(edge_margin({0, 50}, 0), 0);
}

TEST(ZoomArithmeticTest, MovedSectionKeepsItsWidthAndStopsAtTheEnds) {
  const XWindow bounds{0, 100};
  expect_window(moved_section({20, 30}, 5, bounds, true), 25, 35);
  expect_window(moved_section({20, 30}, 5, bounds, false), 15, 25);
  expect_window(moved_section({20, 30}, 70, bounds, true), 90, 100);
  expect_window(moved_section({20, 30}, 500, bounds, true), 90, 100);
  expect_window(moved_section({20, 30}, 20, bounds, false), 0, 10);
  expect_window(moved_section({90, 100}, 1, bounds, true), 90, 100);
}

TEST(ZoomArithmeticTest, PulledSectionFollowsEitherLine) {
  const XWindow bounds{0, 100};
  expect_window(pulled_section({20, 30}, 40, 0, bounds), 40, 50);
  expect_window(pulled_section({20, 30}, 40, 1, bounds), 30, 40);
  expect_window(pulled_section({20, 30}, -7, 0, bounds), 0, 10);
  expect_window(pulled_section({20, 30}, 3, 1, bounds), 0, 10);
  expect_window(pulled_section({20, 30}, 95, 0, bounds), 90, 100);
  expect_window(pulled_section({20, 30}, 130, 1, bounds), 90, 100);
}

TEST(ZoomArithmeticTest, PointsWithinABoundRoundDownBehindHalfABlock) {
  EXPECT_EQ(points_within(1000, 5), 200);
  EXPECT_EQ(points_within(1002, 5), 200);
  EXPECT_EQ(points_within(1003, 5), 200);  // 200.6 rounds up, the rest of 3 takes it back
  EXPECT_EQ(points_within(1004, 5), 200);
  EXPECT_EQ(points_within(0, 5), 0);
  EXPECT_EQ(points_within(10000, 1), 10000);
  EXPECT_THROW((void)points_within(1000, 0), RunTimeError);
  EXPECT_THROW((void)points_within(1000, 0.5), RunTimeError);  // half a sample rounds to none
}

class SectionOfModelTest : public testing::Test {
 protected:
  RecordingShell shell;
  Model model{shell};
};

TEST_F(SectionOfModelTest, DisplayPointsCountFromTheStartOfTheRecording) {
  model.CompressedDXMax = 0.5;
  EXPECT_DOUBLE_EQ(display_points(model, 10), 20);
  model.DateAxis = true;
  model.FirstDateText = "05.03.2021";
  EXPECT_DOUBLE_EQ(x_origin(model), 44260);
  EXPECT_DOUBLE_EQ(display_points(model, 44261), 2);
}

TEST_F(SectionOfModelTest, DisplayWithoutStepHasNoPoints) {
  EXPECT_THROW((void)display_points(model, 10), RunTimeError);
}

TEST_F(SectionOfModelTest, DataOfTheSurveyLieInsideItsMargins) {
  model.PESGSurvey.pending.ManualMinX = -10;
  model.PESGSurvey.pending.ManualMaxX = 110;
  model.SurveyMarginX = 10;
  expect_window(survey_data_range(model), 0, 100);
  model.SurveyZoom = true;
  model.SurveyZoomMarginX = 2;
  model.PESGSurvey.pending.ZoomMinX = 18;
  model.PESGSurvey.pending.ZoomMaxX = 62;
  expect_window(survey_data_range(model), 20, 60);
  expect_window(scroll_bounds(model), 20, 60);
}

TEST_F(SectionOfModelTest, ScrollingBeginsWithTheRecordingWhileTheSurveyIsWhole) {
  model.PESGSurvey.pending.ManualMinX = 44250;
  model.PESGSurvey.pending.ManualMaxX = 44270;
  model.DateAxis = true;
  model.FirstDateText = "05.03.2021";
  expect_window(scroll_bounds(model), 44260, 44270);
}

TEST_F(SectionOfModelTest, SharedLimitsBelongToTheFirstLayerWithPlots) {
  model.LayerPlotCount[1] = 0;
  model.LayerPlotCount[2] = 1;
  model.LayerPlotCount[3] = 4;
  EXPECT_EQ(&zoomed_layer(model, model.PESG), &model.PESG.pending.layers[1]);
  model.FirstLayer = 2;  // the graph counts its layers from the first one that it shows
  EXPECT_EQ(&zoomed_layer(model, model.PESG), &model.PESG.pending.layers[0]);
  EXPECT_EQ(&zoomed_layer(model, model.PESGSurvey), &model.PESGSurvey.pending.layers[1]);
}

}  // namespace
}  // namespace trendaro
