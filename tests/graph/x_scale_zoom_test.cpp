#include "graph/x_scale_zoom.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/commands.h"
#include "app/run_time_error.h"
#include "graph/data_zoom.h"
#include "graph/scrolling.h"
#include "graph/zoom_end.h"
#include "support/noting_host.h"
#include "support/refusing_host.h"
#include "support/zoom_fixture.h"

namespace trendaro {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

// Channel 1 rises by 1 a sample; channel 2 is known. Ten samples a pair, so that a bound stands for five.
class XScaleZoomTest : public ZoomFixture {
 protected:
  static constexpr i32 kRows = 2000;

  static RecorderBuilder recording(i32 id, i32 rows, i32 mask) {
    RecorderBuilder file{.id = id, .row_count = rows};
    for (const i16 channel : {i16{1}, i16{2}})
      file.entries.push_back(
          {.channel = channel, .mask = mask, .name_field = quoted_name("Kanal " + std::to_string(channel))});
    return file;
  }
  static i16 known(i32 row) { return static_cast<i16>(row * 7 % 1000); }

  XScaleZoomTest() {
    RecorderBuilder original = recording(6001, kRows, 1);
    RecorderBuilder envelope = recording(6002, kRows / 10, 3);
    envelope.reduce_factor = 10;
    for (i32 row = 0; row < kRows; ++row)
      original.data.i16_field(static_cast<i16>(row)).i16_field(known(row));
    for (i32 block = 0; block < kRows / 10; ++block) {
      i16 low = known(block * 10);
      i16 high = low;
      for (i32 row = block * 10; row < block * 10 + 10; ++row) {
        low = std::min(low, known(row));
        high = std::max(high, known(row));
      }
      envelope.data.i16_field(static_cast<i16>(block * 10)).i16_field(static_cast<i16>(block * 10 + 9));
      envelope.data.i16_field(low).i16_field(high);
    }
    write_file(folder.file("lauf.ME1"), original.build().bytes());
    write_file(folder.file("lauf.ST1"), envelope.build().bytes());
    AddFileToGrid(model, folder.file("lauf.ST1"), false);
  }

  // The y signal over the rising one.
  void show_over_ramp() {
    activate_row(model, 2);
    run_command(model, "mnuSetX");
    mark(3);
  }
};

// Each bound k of the table, from 0, brings in five samples from 5 * (k - 1) + 1 on.
TEST_F(XScaleZoomTest, BlocksOfTheBoundsInsideAreImportedInTurn) {
  show_over_ramp();
  ASSERT_EQ(model.xSrc.ListIndex, 1);
  ASSERT_EQ(model.Plots[1].XSource, 1);
  zoom(100, 119);  // bounds 100, 109, 110 and 119 are numbers 20 to 23
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_EQ(model.ZoomPoints, 4);
  EXPECT_EQ(model.Plots[1].FileKind, kKindDatabase);
  EXPECT_EQ(model.Plots[1].ChannelIndex, 2);
  const std::vector<f64> x = channel_samples(model.XScratchChannel);
  const std::vector<f64> y = channel_samples(model.Plots[1].DatabaseChannel);
  ASSERT_EQ(x.size(), 20u);
  ASSERT_EQ(y.size(), 20u);
  for (i32 i = 0; i < 20; ++i) {
    const auto place = static_cast<std::size_t>(i);
    EXPECT_NEAR(x[place], 96 + i, 0.01);
    EXPECT_NEAR(y[place], known(96 + i), 0.01);
    EXPECT_NEAR(f64{(*model.PESG.shown().XData)[place]}, 96 + i, 0.01);
    EXPECT_NEAR(f64{(*model.PESG.shown().YData)[place]}, known(96 + i), 0.01);
  }
  EXPECT_EQ(box("ZoomPointsBox"), "20");
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kGreen);
  for (const char* entry : {"mnuDBOffset", "mnuXUnit", "mnuNullValues"})
    EXPECT_FALSE(model.controls[entry].enabled) << entry;
  EXPECT_THAT(shell.messages(), IsEmpty());
}

TEST_F(XScaleZoomTest, MarkKeepsTheSection) {
  show_over_ramp();
  zoom(100, 119);
  mark(2);
  EXPECT_TRUE(model.Zoomed);
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_EQ(box("ZoomPointsBox"), "20");
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kGreen);
  ASSERT_EQ(model.NofPlots, 2);
  const std::vector<f64> ramp = channel_samples(model.Plots[1].DatabaseChannel);
  const std::vector<f64> y = channel_samples(model.Plots[2].DatabaseChannel);
  ASSERT_EQ(ramp.size(), 20u);
  ASSERT_EQ(y.size(), 20u);
  for (i32 i = 0; i < 20; ++i) {
    const auto place = static_cast<std::size_t>(i);
    EXPECT_NEAR(ramp[place], 96 + i, 0.01);
    EXPECT_NEAR(y[place], known(96 + i), 0.01);
  }
}

TEST_F(XScaleZoomTest, MarkKeepsAReducedSection) {
  show_over_ramp();
  box("PointsBox") = "20";
  zoom(100, 119);
  mark(2);
  EXPECT_TRUE(model.Zoomed);
  EXPECT_FALSE(model.OriginalDataMode);
  EXPECT_EQ(model.PESG.shown().ZoomMinX, 100);
  EXPECT_EQ(model.PESG.shown().ZoomMaxX, 119);
}

TEST_F(XScaleZoomTest, MarkLeavesASectionWithoutData) {
  show_over_ramp();
  zoom(5000, 6000);  // x ends at 1999
  mark(2);
  EXPECT_FALSE(model.Zoomed);
}

TEST_F(XScaleZoomTest, SectionExactlyAsWideAsTheBoundStaysCompressed) {
  show_over_ramp();
  box("PointsBox") = "20";
  zoom(100, 119);
  EXPECT_FALSE(model.OriginalDataMode);
  EXPECT_EQ(model.Plots[1].FileKind, kKindReducedPairs);
  EXPECT_EQ(box("ZoomPointsBox"), "20");
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kWhite);
  box("PointsBox") = "21";
  zoom(100, 119);
  EXPECT_TRUE(model.OriginalDataMode);
}

TEST_F(XScaleZoomTest, SectionBetweenTwoBoundsImportsNothing) {
  show_over_ramp();
  zoom(102, 105);
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_EQ(model.ZoomPoints, 1);
  EXPECT_THAT(channel_samples(model.Plots[1].DatabaseChannel), IsEmpty());
}

TEST_F(XScaleZoomTest, MissingOriginalIsNotTold) {
  show_over_ramp();
  std::filesystem::remove(folder.file("lauf.ME1"));
  zoom(100, 119);
  EXPECT_TRUE(model.OriginalFileMissing);
  EXPECT_THAT(shell.messages(), IsEmpty());
}

TEST_F(XScaleZoomTest, ResetShowsThePairsAgain) {
  show_over_ramp();
  zoom(100, 119);
  reset_zoom(model);
  EXPECT_EQ(model.Plots[1].FileKind, kKindReducedPairs);
  EXPECT_EQ(model.Plots[1].ChannelIndex, 3);
  EXPECT_NEAR(f64{(*model.PESG.shown().XData)[200]}, 1000, 0.01);
}

// Bounds 100 and 109 are numbers 20 and 21, and bring in five samples each from 96 and 101 on; for each plot,
// as sections that add up, first of x and then of y.
TEST_F(XScaleZoomTest, HostIsAskedForTheBlocksOfEachPlot) {
  NotingHost noting(shell, 96, 100000);
  show_over_ramp();
  mark(2);
  ASSERT_EQ(model.NofPlots, 2);
  model.Host = &noting;
  zoom(100, 109);
  const std::string scratch = std::to_string(model.XScratchChannel);
  std::vector<std::string> expected;
  for (i16 number = 1; number <= 2; ++number) {
    const PlotRecord& plot = model.Plots[number];
    const std::string target = std::to_string(plot.DatabaseChannel);
    ASSERT_EQ(plot.FileKind, kKindDatabase);
    for (const std::string& call : {"1  " + folder.file("lauf.ME1"), std::string("2 i16 0"),
                                    std::string("3  1"), "clear " + scratch, "clear " + target})
      expected.push_back(call);
    for (const char* first : {"96", "101"})
      for (const std::string& channels :
           {"4 i16 " + scratch + "|5 f64 1",
            "4 i16 " + target + "|5 f64 " + std::to_string(plot.ChannelIndex)}) {
        const std::size_t bar = channels.find('|');
        expected.push_back(channels.substr(0, bar));
        expected.push_back(channels.substr(bar + 1));
        expected.push_back(std::string("6 i32 ") + first);
        expected.push_back("7 i32 5");
        expected.push_back("execute");
      }
  }
  EXPECT_THAT(noting.calls, ElementsAreArray(expected));
}

TEST_F(XScaleZoomTest, EveryPlotGoesInWithTheSameBounds) {
  show_over_ramp();
  mark(2);
  zoom(100, 119);
  for (const i16 number : {i16{1}, i16{2}}) {
    EXPECT_EQ(model.Plots[number].FileKind, kKindDatabase);
    const std::vector<f64> values = channel_samples(model.Plots[number].DatabaseChannel);
    ASSERT_EQ(values.size(), 20u);
    for (i32 i = 0; i < 20; ++i)
      EXPECT_NEAR(values[static_cast<std::size_t>(i)],
                  model.Plots[number].ChannelIndex == 1 ? 96 + i : known(96 + i), 0.01);
  }
  EXPECT_EQ(box("ZoomPointsBox"), "20");
}

TEST_F(XScaleZoomTest, PlotsThatKeepTheirChannelNumberChangeTheirKindAllTheSame) {
  show_over_ramp();
  model.KeepOriginalChannels = true;
  model.Plots[1].ChannelIndex = 2;  // as it is in the original
  zoom(100, 119);
  EXPECT_EQ(model.Plots[1].FileKind, kKindDatabase);
  EXPECT_EQ(model.Plots[1].ChannelIndex, 2);
  EXPECT_NEAR(f64{(*model.PESG.shown().YData)[0]}, known(96), 0.01);
}

TEST_F(XScaleZoomTest, BandInTheSurveyIsNamed) {
  show_over_ramp();
  GraphProperties& survey = model.PESGSurvey.pending;
  survey.ZoomActive = true;
  survey.ZoomMinX = 100;
  survey.ZoomMaxX = 900;
  end_survey_zoom(model);
  EXPECT_EQ(model.PESGSurvey.shown().SubTitle, "Zoom");
}

TEST_F(XScaleZoomTest, HostThatRefusesIsToldAndThePointerIsBack) {
  RefusingHost refusing(shell, 96, 100000);
  model.Host = &refusing;
  model.Kernel = &refusing;
  show_over_ramp();
  zoom(100, 119);
  EXPECT_THAT(shell.messages(),
              ElementsAre("Trendaro: Mervan-ActiveX-Server nicht mehr vorhanden. Trendaro muss "
                          "beendet werden!"));
  EXPECT_EQ(shell.wait_pointers, 0);
  EXPECT_EQ(shell.panels[1], "");
}

TEST_F(XScaleZoomTest, ScrollStepThatFailsLeavesTheSamplesOnShow) {
  show_over_ramp();
  zoom(100, 119);
  ASSERT_TRUE(model.OriginalDataMode);
  box("PointsBox") = "99999999999";  // beyond all counts
  box("StepBox") = "5";
  EXPECT_THROW(scroll_section(model, true), RunTimeError);
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_FALSE(model.KeepOriginalChannels);
  EXPECT_EQ(model.Plots[1].FileKind, kKindDatabase);
}

}  // namespace
}  // namespace trendaro
