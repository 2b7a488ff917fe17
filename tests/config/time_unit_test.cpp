#include "config/time_unit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/commands.h"
#include "support/plot_fixture.h"

namespace trendaro {
namespace {

using testing::IsEmpty;

class TimeUnitTest : public PlotFixture {};

TEST_F(TimeUnitTest, ActiveUnitAgainDrawsNothing) {
  choose_time_unit(model, 1);
  EXPECT_THAT(shell.calls, IsEmpty());
}

TEST_F(TimeUnitTest, ChoiceIsTickedAndDrawn) {
  add_plot(write("a.dat", curve_file({{.samples = {1, 2}, .interval = 90000}})), 1, kKindPlain, 2);
  model.controls["mnuTUnit(1)"].ticked = true;
  run_command(model, "mnuTUnit(2)");
  EXPECT_EQ(model.TimeUnit, 2);
  EXPECT_FALSE(model.controls["mnuTUnit(1)"].ticked);
  EXPECT_TRUE(model.controls["mnuTUnit(2)"].ticked);
  EXPECT_EQ(x_of(model.PESG)[1], 1.5f);
  EXPECT_EQ(model.PESGSurvey.revision(), 0u);  // plain files are read once only
}

TEST_F(TimeUnitTest, ReducedFilesDrawTheSurveyAsWell) {
  choose_time_unit(model, 4);
  EXPECT_TRUE(model.DateAxis);
  EXPECT_GT(model.PESGSurvey.revision(), 0u);
  choose_time_unit(model, 0);
  EXPECT_FALSE(model.DateAxis);
}

TEST_F(TimeUnitTest, LiveUseDrawsNothing) {
  model.IsRealTime = true;
  choose_time_unit(model, 3);
  EXPECT_EQ(model.TimeUnit, 3);
  EXPECT_THAT(shell.calls, IsEmpty());
}

TEST_F(TimeUnitTest, ZoomIsCarriedIntoTheNewUnit) {
  model.Zoomed = true;
  model.PESG.pending.ZoomMinX = 60;
  model.PESG.pending.ZoomMaxX = 90;
  model.PESGSurvey.pending.ZoomMaxX = 120;
  choose_time_unit(model, 2);
  EXPECT_DOUBLE_EQ(model.PESG.pending.ZoomMinX, 1);
  EXPECT_DOUBLE_EQ(model.PESG.pending.ZoomMaxX, 1.5);
  EXPECT_DOUBLE_EQ(model.PESGSurvey.pending.ZoomMaxX, 2);
}

TEST_F(TimeUnitTest, OriginalSamplesKeepTheLimits) {
  model.Zoomed = true;
  model.OriginalDataMode = true;
  model.PESG.pending.ZoomMaxX = 90;
  choose_time_unit(model, 2);
  EXPECT_EQ(model.PESG.pending.ZoomMaxX, 90);
}

TEST(LimitInUnitTest, DatesCountFromTheStartOfTheRecording) {
  EXPECT_DOUBLE_EQ(limit_in_unit(1500, 0, 1, 0), 1.5);
  EXPECT_DOUBLE_EQ(limit_in_unit(2, 3, 0, 0), 7200000);
  EXPECT_DOUBLE_EQ(limit_in_unit(43200, 1, 4, 44000), 44000.5);
  EXPECT_DOUBLE_EQ(limit_in_unit(44000.5, 4, 2, 44000), 720);
}

}  // namespace
}  // namespace trendaro
