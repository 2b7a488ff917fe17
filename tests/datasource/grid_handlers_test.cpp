#include "datasource/grid_handlers.h"

#include <algorithm>
#include <string_view>

#include "app/commands.h"
#include "datasource/list_fixture.h"

namespace trendaro {
namespace {

using GridHandlersTest = ListFixture;
using Texts = std::vector<std::string>;

// Entries whose work is not built stay disabled, whatever a handler asks for.
bool has_work(std::string_view entry) {
  return std::ranges::any_of(commands(), [&](const Command& command) {
    return command.name != nullptr && entry == command.name && command.run != nullptr;
  });
}

constexpr char kPlainStatus[] =
    "status 1: Nichtkomprimierter Kanal wird angezeigt. Zoom in Originalwerte nicht möglich!";

TEST_F(GridHandlersTest, MarkTakesLayerAndSideOfTheMoment) {
  add_file("run.BIN", 12);
  mark(13, 1, 2);
  EXPECT_EQ(model.Grid.rows[13].mark, "12_1_2");
  EXPECT_EQ(model.Grid.rows[13].check, 1);
  EXPECT_EQ(model.LastClickedRow, 13);
  model.CurrentLayer = 3;
  mark(2, 2, 1);
  EXPECT_EQ(model.Grid.rows[13].mark, "12_1_2");
  EXPECT_EQ(model.Grid.rows[2].mark, "1_2_1");
  EXPECT_EQ(signals(), (Texts{"run.BIN 12", "run.BIN 1"}));
  EXPECT_FALSE(model.ButtonLock);
  EXPECT_TRUE(model.Grid.redraw);
}

TEST_F(GridHandlersTest, UnmarkWritesThePlainIndexBack) {
  add_file("run.BIN", 2);
  mark(2);
  mark(3);
  unmark(2);
  EXPECT_EQ(model.Grid.rows[2].mark, "1");
  EXPECT_EQ(model.Grid.rows[2].check, 0);
  EXPECT_EQ(signals(), (Texts{"run.BIN 2"}));
  EXPECT_EQ(main_redraws(), 3);
}

TEST_F(GridHandlersTest, LockedListIgnoresClicks) {
  add_file("run.BIN", 1);
  model.ButtonLock = true;
  click_check_cell(model, 2, 1);
  EXPECT_EQ(model.Grid.rows[2].mark, "1");
  EXPECT_EQ(model.Grid.rows[2].check, 0);
  EXPECT_EQ(model.NofPlots, 0);
}

TEST_F(GridHandlersTest, RowsThatDoNotExistAreIgnored) {
  add_file("run.BIN", 1);
  click_check_cell(model, 0, 1);
  click_check_cell(model, 3, 1);
  right_click_cell(model, 9, 1);
  EXPECT_EQ(model.NofPlots, 0);
  EXPECT_EQ(model.SelectedRow, 0);
}

TEST_F(GridHandlersTest, LaterFileClosesAndOpens) {
  add_file("run.BIN", 2);
  add_file("other.BIN", 2);
  add_file("third.BIN", 1);
  click_check_cell(model, 4, 0);
  EXPECT_FALSE(model.Grid.rows[4].hidden);
  EXPECT_TRUE(model.Grid.rows[5].hidden);
  EXPECT_TRUE(model.Grid.rows[6].hidden);
  EXPECT_FALSE(model.Grid.rows[7].hidden);
  EXPECT_FALSE(model.Grid.rows[8].hidden);
  EXPECT_EQ(model.Grid.rows[4].check, 0);
  click_check_cell(model, 4, 1);
  EXPECT_FALSE(model.Grid.rows[5].hidden);
  EXPECT_EQ(main_redraws(), 0);
}

TEST_F(GridHandlersTest, FirstFileCannotBeClosed) {
  add_file("run.BIN", 2);
  click_check_cell(model, 1, 0);
  EXPECT_FALSE(model.Grid.rows[2].hidden);
  EXPECT_FALSE(model.Grid.rows[3].hidden);
  EXPECT_EQ(model.Grid.rows[1].check, 1);
}

TEST_F(GridHandlersTest, HeadingOfTheLiveLayoutOpensDownToTheFirstFile) {
  model.IsRealTime = true;
  model.IOChannelCount = 2;
  InitDataSourceGrid(model);
  add_file("run.BIN", 1);
  click_check_cell(model, 1, 0);
  EXPECT_FALSE(model.Grid.rows[1].hidden);
  EXPECT_TRUE(model.Grid.rows[2].hidden);
  EXPECT_TRUE(model.Grid.rows[4].hidden);
  EXPECT_FALSE(model.Grid.rows[5].hidden);
  EXPECT_FALSE(model.Grid.rows[6].hidden);
  model.Grid.rows[2].check = 0;
  click_check_cell(model, 1, 1);
  EXPECT_FALSE(model.Grid.rows[1].hidden);
  EXPECT_FALSE(model.Grid.rows[4].hidden);
  EXPECT_EQ(model.Grid.rows[2].check, 1);
}

TEST_F(GridHandlersTest, GroupInTheFirstRowClosesAllGroupsAndStays) {
  model.IOChannelCount = 12;
  InitDataSourceGrid(model);
  click_check_cell(model, 1, 0);
  EXPECT_FALSE(model.Grid.rows[1].hidden);
  for (i32 row = 2; row <= 14; ++row) EXPECT_TRUE(model.Grid.rows[row].hidden) << row;
  click_check_cell(model, 1, 1);
  for (i32 row = 1; row <= 14; ++row) EXPECT_FALSE(model.Grid.rows[row].hidden) << row;
}

TEST_F(GridHandlersTest, GroupRowHidesItsChannels) {
  model.IOChannelCount = 12;
  InitDataSourceGrid(model);
  add_file("run.BIN", 1);
  click_check_cell(model, 12, 0);  // "11 - 12"
  EXPECT_FALSE(model.Grid.rows[11].hidden);
  EXPECT_TRUE(model.Grid.rows[13].hidden);
  EXPECT_TRUE(model.Grid.rows[14].hidden);
  EXPECT_FALSE(model.Grid.rows[15].hidden);
}

TEST_F(GridHandlersTest, DatabaseChannelIsMarkedWithoutAFile) {
  model.IOChannelCount = 3;
  InitDataSourceGrid(model);
  mark(3);
  ASSERT_EQ(model.NofPlots, 1);
  EXPECT_EQ(model.Plots[1].FileKind, kKindDatabase);
  EXPECT_FALSE(model.HasFullDataPlot);
}

TEST_F(GridHandlersTest, PlainFileHidesTheSurveyAndSaysSo) {
  add_file("run.BIN", 1);
  mark(2);
  EXPECT_FALSE(model.controls["mnuShowSurvGraph"].ticked);
  EXPECT_FALSE(model.controls["mnuShowSurvGraph"].enabled);
  EXPECT_FALSE(model.controls["PESGSurvey"].visible);
  EXPECT_FALSE(model.controls["PointsBox"].visible);
  EXPECT_EQ(survey_redraws(), 0);
  ASSERT_GE(shell.calls.size(), 2U);
  EXPECT_EQ(shell.calls[shell.calls.size() - 2], kPlainStatus);
  EXPECT_EQ(shell.calls.back(), "status 2: " + std::to_string(model.MaxViewPoints));
}

TEST_F(GridHandlersTest, LastPlainFileUnmarkedBringsTheSurveyBack) {
  add_file("run.BIN", 1);
  add_file("other.REB", 1, 8);
  mark(4);
  EXPECT_TRUE(model.controls["PESGSurvey"].visible);
  mark(2);
  EXPECT_FALSE(model.controls["PESGSurvey"].visible);
  model.PESG.pending.ScrollingHorzZoom = true;
  unmark(2);
  EXPECT_TRUE(model.controls["mnuShowSurvGraph"].ticked);
  EXPECT_TRUE(model.controls["PESGSurvey"].visible);
  EXPECT_TRUE(model.controls["PointsBox"].visible);
  EXPECT_FALSE(model.PESG.pending.ScrollingHorzZoom);
  EXPECT_EQ(survey_redraws(), 2);
  EXPECT_EQ(shell.calls.back(), "status 1: ");
}

TEST_F(GridHandlersTest, OriginalDataKeepsTheStatusPanels) {
  add_file("run.REB", 1, 8);
  model.OriginalDataMode = true;
  click_check_cell(model, 1, 1);
  EXPECT_TRUE(shell.calls.empty());
  model.OriginalDataMode = false;
  click_check_cell(model, 1, 1);
  EXPECT_EQ(shell.calls, (Texts{"status 2: ", "status 1: "}));
}

TEST_F(GridHandlersTest, LastUnmarkReleasesTheZoomTools) {
  add_file("run.REB", 1, 8);
  mark(2);
  for (const char* tool : {"TB_ZOOMHORZ", "TB_ZOOMVERT", "TB_ZOOMRECT"}) model.controls[tool].tag = "1";
  model.PESG.pending.AllowZooming = 3;
  model.PESGSurvey.pending.AllowZooming = 1;
  model.controls["ZoomPointsBox"].back_color = kGreen;
  const Texts entries = {"mnuDBOffset", "mnuXUnit", "mnuNullValues"};
  for (const std::string& entry : entries) model.controls[entry].enabled = false;
  unmark(2);
  EXPECT_TRUE(model.controls["mnuDBOffset"].enabled);
  EXPECT_TRUE(model.controls["mnuXUnit"].enabled);
  EXPECT_EQ(model.controls["mnuNullValues"].enabled, has_work("mnuNullValues"));
  EXPECT_EQ(model.controls["TB_ZOOMHORZ"].tag, "");
  EXPECT_EQ(model.controls["TB_ZOOMHORZ"].image, "HZOOMUP");
  EXPECT_EQ(model.controls["TB_ZOOMVERT"].image, "VZOOMUP");
  EXPECT_EQ(model.controls["TB_ZOOMRECT"].image, "RZOOMUP");
  EXPECT_EQ(model.PESG.pending.AllowZooming, 0);
  EXPECT_EQ(model.PESGSurvey.pending.AllowZooming, 0);
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kWhite);
  EXPECT_EQ(model.MaxViewPoints, 0);
}

TEST_F(GridHandlersTest, MarkShowsTheSamplesOfTheWholeRecording) {
  add_file("run.REB", 1, 8);
  mark(2);
  // Points at 0, 8, 16 and 24 ms, of which the survey leaves the last one out: two steps, and each step
  // stands for half of the 8 samples of a pair.
  EXPECT_FLOAT_EQ(static_cast<f32>(model.CompressedDXMax), 0.008F);
  EXPECT_EQ(model.MaxViewPoints, 8);
  EXPECT_EQ(model.controls["ZoomPointsBox"].text, "8");
}

TEST_F(GridHandlersTest, NewLayerLeavesTheZoom) {
  add_file("run.REB", 2, 8);
  mark(2);
  model.Zoomed = true;
  mark(3, 2, 1);
  EXPECT_FALSE(model.Zoomed);
}

TEST_F(GridHandlersTest, ZoomModeComesBackAfterALeftZoom) {
  for (const i16 mode : std::initializer_list<i16>{1, 2, 3}) {
    ClearGraph(model);
    while (model.Grid.MaxRows() > 0) RemoveFileFromGrid(model);
    add_file("run.REB", 2, 8);
    mark(2);
    model.Zoomed = true;
    model.PESG.pending.AllowZooming = mode;
    mark(3, 2, 1);
    EXPECT_FALSE(model.Zoomed);
    EXPECT_EQ(model.PESG.pending.AllowZooming, mode);
  }
}

TEST_F(GridHandlersTest, ZoomInsideOfTheDataStays) {
  add_file("run.REB", 2, 8);
  mark(2);
  model.Zoomed = true;
  model.controls["ZoomPointsBox"].text = "1";
  model.PESG.pending.AllowZooming = 3;
  mark(3);
  EXPECT_TRUE(model.Zoomed);
  // The section is zoomed again, here the whole recording.
  EXPECT_EQ(model.controls["ZoomPointsBox"].text, "8");
  EXPECT_EQ(model.PESG.pending.AllowZooming, 3);
}

TEST_F(GridHandlersTest, FractionOfAPointDoesNotLeaveTheZoom) {
  add_file("run.REB", 2, 8);
  mark(2);
  model.Zoomed = true;
  model.controls["ZoomPointsBox"].text = "8.4";
  mark(3);
  EXPECT_TRUE(model.Zoomed);
}

TEST_F(GridHandlersTest, LastMarkTakenAwayInAZoomLeavesItNoted) {
  add_file("run.REB", 1, 8);
  mark(2);
  model.Zoomed = true;
  model.controls["ZoomPointsBox"].text = "3";
  unmark(2);
  EXPECT_TRUE(model.Zoomed);
  EXPECT_EQ(model.controls["ZoomPointsBox"].text, "3");
}

TEST_F(GridHandlersTest, ZoomBehindTheDataIsLeft) {
  add_file("run.REB", 2, 8);
  mark(2);
  model.Zoomed = true;
  model.controls["ZoomPointsBox"].text = "1000000";
  mark(3);
  EXPECT_FALSE(model.Zoomed);
}

TEST_F(GridHandlersTest, SamplesOfAPlainCurveOutliveOtherMarks) {
  add_file("run.BIN", 2);
  mark(3);
  ASSERT_EQ(model.Plots[1].Cached, 1);
  const f64* samples = model.CurveCache[1].data();
  mark(2);
  EXPECT_EQ(model.Plots[2].Cached, 1);
  EXPECT_EQ(model.CurveCache[2].data(), samples);
}

TEST_F(GridHandlersTest, RightClickHighlightsSignalsAndFiles) {
  add_file("run.BIN", 2);
  right_click_cell(model, 3, 2);
  EXPECT_EQ(model.Grid.active_row, 3);
  EXPECT_EQ(model.SelectedRow, 3);
  EXPECT_EQ(model.SelectedCol, 2);
}

TEST_F(GridHandlersTest, RightClickOnAGroupOnlyMakesItActive) {
  model.IOChannelCount = 1;
  InitDataSourceGrid(model);
  right_click_cell(model, 1, 3);
  EXPECT_EQ(model.Grid.active_row, 1);
  EXPECT_EQ(model.SelectedRow, 0);
}

TEST_F(GridHandlersTest, TipsStandOverCheckAndName) {
  const std::string path = add_file("run.BIN", 2);
  EXPECT_EQ(text_tip(model, 2, 1), "Markieren, um den Datensatz in der Graphik darzustellen");
  EXPECT_TRUE(text_tip(model, 3, 3).starts_with("Name: run.BIN 2\r\nWerte: 4\r\nEinheit: V\r\n"));
  EXPECT_TRUE(text_tip(model, 1, 3).starts_with("Filename: " + path + "\r\nKanalzahl: 2\r\n"));
  EXPECT_EQ(text_tip(model, 2, 2), "");
  EXPECT_EQ(text_tip(model, 9, 1), "");
}

TEST_F(GridHandlersTest, PopUpOffersWhatTheRowCanDo) {
  add_file("run.BIN", 2);
  const auto enabled = [&](const char* entry) { return model.controls[entry].enabled; };
  activate_row(model, 1);
  mnuPOP1(model);
  EXPECT_TRUE(enabled("mnuPRemoveFile"));
  EXPECT_FALSE(enabled("mnuSetX"));
  EXPECT_FALSE(enabled("mnuCfgPlot"));
  EXPECT_FALSE(enabled("mnuShowChanInfo"));
  model.OriginalDataMode = true;
  mnuPOP1(model);
  EXPECT_FALSE(enabled("mnuPRemoveFile"));
  activate_row(model, 2);
  mnuPOP1(model);
  EXPECT_FALSE(enabled("mnuPRemoveFile"));
  EXPECT_TRUE(enabled("mnuSetX"));
  EXPECT_FALSE(enabled("mnuCfgPlot"));
  EXPECT_EQ(enabled("mnuShowChanInfo"), has_work("mnuShowChanInfo"));
}

TEST_F(GridHandlersTest, PopUpSwitchesOffWhatARowCannotDo) {
  add_file("run.BIN", 1);
  for (const char* entry : {"mnuSetX", "mnuCfgPlot", "mnuShowChanInfo"}) model.controls[entry].enabled = true;
  mnuPOP1(model);
  for (const char* entry : {"mnuSetX", "mnuCfgPlot", "mnuShowChanInfo"})
    EXPECT_FALSE(model.controls[entry].enabled) << entry;
}

TEST_F(GridHandlersTest, MarkedChannelsAloneCanBeConfigured) {
  model.IOChannelCount = 1;
  InitDataSourceGrid(model);  // a group and its channel
  add_file("run.BIN", 1);
  write_mark(4);
  const auto offer = [&](i32 row) {
    activate_row(model, row);
    return offer_of_active_row(model.Grid, false);
  };
  EXPECT_TRUE(offer(4).configure_plot);
  EXPECT_TRUE(offer(4).channel_information);
  EXPECT_TRUE(offer(4).set_x);
  EXPECT_FALSE(offer(4).remove_file);
  EXPECT_FALSE(offer(2).configure_plot);
  EXPECT_TRUE(offer(2).set_x);
  write_mark(2);
  EXPECT_TRUE(offer(2).configure_plot);
  // The check cells of group and file stand on 1 as well.
  EXPECT_FALSE(offer(1).configure_plot);
  EXPECT_FALSE(offer(1).set_x);
  EXPECT_TRUE(offer(1).channel_information);
  EXPECT_FALSE(offer(3).configure_plot);
  EXPECT_FALSE(offer(3).channel_information);
  EXPECT_TRUE(offer(3).remove_file);
}

}  // namespace
}  // namespace trendaro
