#include "datasource/database_link.h"

#include "datasource/list_fixture.h"

namespace trendaro {
namespace {

using Texts = std::vector<std::string>;

class DatabaseLinkTest : public ListFixture {
 protected:
  // `count` plots on the channels from 1 on.
  void make_plots(int count) {
    add_file("run.BIN", count);
    for (i32 row = 2; row <= count + 1; ++row) write_mark(row);
    RebuildPlotList(model);
  }
  void offset(const std::string& answer) {
    shell.texts.push_back(answer);
    mnuDBOffset(model);
  }
  std::vector<i16> channels() const {
    std::vector<i16> found;
    for (const PlotRecord& plot : model.Plots) found.push_back(plot.DatabaseChannel);
    return found;
  }
};

TEST_F(DatabaseLinkTest, DatabaseIsClearedOnYesOnly) {
  make_plots(2);
  model.ChannelParams[2].HardwareChannel = 77;
  host.calls.clear();
  const auto expect_untouched_list = [this] {
    EXPECT_EQ(channels(), (std::vector<i16>{1, 2}));
    EXPECT_EQ(model.NofPlots, 2);
    EXPECT_EQ(model.SurveyPlots.size(), 2U);
    EXPECT_EQ(model.Grid.rows[2].mark, "1_1_1");
    EXPECT_EQ(model.Grid.rows[3].mark, "2_1_1");
    EXPECT_EQ(model.ChannelParams[2].HardwareChannel, 77);
  };
  mnuClearDB(model);
  EXPECT_TRUE(host.calls.empty());
  expect_untouched_list();
  EXPECT_EQ(shell.calls.back(),
            "question: Trendaro: Wenn Sie die Datenbasis löschen gehen alle darin enthaltenen Werte und "
            "Informationen verloren. Löschvorgang fortsetzen?");
  shell.yes_no.push_back(true);
  mnuClearDB(model);
  EXPECT_EQ(host.calls, (Texts{"clear all"}));
  expect_untouched_list();
}

TEST_F(DatabaseLinkTest, UnchangedSizeChangesNothing) {
  mnuDBConfig(model);
  EXPECT_EQ(host.calls, (Texts{"dialog 6 0"}));
  EXPECT_TRUE(shell.messages().empty());
  EXPECT_EQ(shell.window_closings, 0);
}

TEST_F(DatabaseLinkTest, ChangedSizeNeedsANewStart) {
  host.channels = 120;
  mnuDBConfig(model);
  EXPECT_EQ(shell.messages(), (Texts{"Trendaro: Die Datenbasisrekonfiguration erfordert, dass Trendaro neu "
                                     "gestartet wird!"}));
  EXPECT_EQ(shell.icons, (std::vector{MessageIcon::Information}));
  EXPECT_EQ(shell.window_closings, 1);
}

TEST_F(DatabaseLinkTest, ExportSelectsTheChannelsWithSamples) {
  make_plots(3);
  host.set_length(1, 5);
  host.set_length(3, 1);
  host.calls.clear();
  mnuDBExport(model);
  EXPECT_EQ(host.calls, (Texts{"set 1 1000 1", "set 3 1000 1", "dialog 5 1", "set 1 1000 0", "set 2 1000 0",
                               "set 3 1000 0"}));
}

TEST_F(DatabaseLinkTest, ExportWithoutPlotsOpensTheDialog) {
  mnuDBExport(model);
  EXPECT_EQ(host.calls, (Texts{"dialog 5 1"}));
}

TEST_F(DatabaseLinkTest, RefusalOfTheHostEndsTheCommand) {
  host.refuses = true;
  EXPECT_THROW(mnuDBExport(model), RunTimeError);
  EXPECT_THROW(mnuDBConfig(model), RunTimeError);
  model.Host = nullptr;
  EXPECT_THROW(mnuDBConfig(model), RunTimeError);
}

TEST_F(DatabaseLinkTest, OffsetMovesThePlots) {
  make_plots(3);
  offset("20");
  EXPECT_EQ(shell.calls.back(),
            "text: Datenbasis-Offset: Datenbasiskanal, ab dem die Originaldaten in die Datenbasis "
            "importiert werden: [1]");
  EXPECT_EQ(model.XScratchChannel, 20);
  EXPECT_EQ(channels(), (std::vector<i16>{20, 21, 22}));
  EXPECT_EQ(model.HighestDatabaseChannel, 22);
  EXPECT_EQ(model.ChannelParams[21].HardwareChannel, 2);
}

TEST_F(DatabaseLinkTest, OffsetLeavesTheShiftOfAnXChannelOut) {
  model.xSrc.ListIndex = 1;
  model.xSrc.entries[1].item_data = 1;
  make_plots(1);
  EXPECT_EQ(channels(), (std::vector<i16>{2}));
  offset("20");
  EXPECT_EQ(channels(), (std::vector<i16>{20}));
}

TEST_F(DatabaseLinkTest, EmptyAnswerEndsTheCommand) {
  make_plots(1);
  model.XScratchChannel = -3;
  offset("");
  EXPECT_EQ(model.XScratchChannel, 1);
  EXPECT_EQ(channels(), (std::vector<i16>{1}));
}

TEST_F(DatabaseLinkTest, AnswerThatIsNoNumberKeepsTheChannelAndRunsOn) {
  make_plots(1);
  model.XScratchChannel = 9;
  offset("abc");
  EXPECT_EQ(model.XScratchChannel, 9);
  EXPECT_EQ(channels(), (std::vector<i16>{9}));
}

TEST_F(DatabaseLinkTest, AnswerBelowOneKeepsTheChannelAndRunsOn) {
  make_plots(1);
  model.XScratchChannel = 9;
  for (const char* answer : {"0", "0,6", "-1", "-40000"}) {
    model.Plots[1].DatabaseChannel = 50;
    offset(answer);
    EXPECT_EQ(model.XScratchChannel, 9) << answer;
    EXPECT_EQ(channels(), (std::vector<i16>{9})) << answer;
  }
}

TEST_F(DatabaseLinkTest, AnswerIsRoundedToTheNearestEvenChannel) {
  make_plots(1);
  offset("12,5");
  EXPECT_EQ(channels(), (std::vector<i16>{12}));
}

TEST_F(DatabaseLinkTest, WithoutPlotsOnlyTheNumbersAreTaken) {
  model.controls["PointsBox"].text = "750";
  host.refuses = true;
  offset("12");
  EXPECT_EQ(model.XScratchChannel, 12);
  EXPECT_EQ(model.MaxZoomPoints, 750);
}

TEST_F(DatabaseLinkTest, MessagesComeOnce) {
  make_plots(3);
  model.controls["PointsBox"].text = "500";
  host.set_length(21, 4);
  host.set_capacity(20, 499);
  host.set_capacity(22, 10);
  offset("20");
  offset("20");
  EXPECT_EQ(shell.messages(),
            (Texts{"Trendaro: Die Datenbasiskanäle sind bereits mit Werten belegt!",
                   "Trendaro: 2 Datenbasiskanäle zu kurz, um alle Zoomwerte zu importieren. Sie können "
                   "entweder die Datenbasis vergrößern oder die Anzahl der Zoomwerte verringern."}));
  EXPECT_TRUE(model.OccupiedWarned);
  EXPECT_TRUE(model.ZoomLengthWarned);
}

TEST_F(DatabaseLinkTest, EqualChannelLeavesTheRecordAsItWas) {
  make_plots(1);
  const ChannelParamRecord before = model.ChannelParams[1];
  offset("1");
  EXPECT_EQ(model.ChannelParams[1], before);
}

TEST_F(DatabaseLinkTest, EndOfTheRecordIsNotCopied) {
  make_plots(1);
  model.ChannelParams[1].ParamText.fill('a');
  model.ChannelParams[30].ParamText.fill('b');
  model.ChannelParams[30].Reserved2 = {'c'};
  offset("30");
  const auto& text = model.ChannelParams[30].ParamText;
  EXPECT_EQ(std::string(text.begin(), text.end()), "aaaaaaaaaaaabbb");
  EXPECT_EQ(model.ChannelParams[30].Reserved2[0], 'c');
}

TEST_F(DatabaseLinkTest, PlotWithoutParametersLeavesTheNewChannelWithout) {
  make_plots(1);
  model.ChannelParams.clear();
  model.ChannelParams[30] = {};
  offset("30");
  EXPECT_FALSE(model.ChannelParams.contains(1));
  EXPECT_FALSE(model.ChannelParams.contains(30));
}

TEST_F(DatabaseLinkTest, ChannelBehindTheDatabaseIsNotAsked) {
  make_plots(2);
  model.controls["PointsBox"].text = "500";
  host.set_length(97, 4);
  host.set_capacity(97, 10);
  offset("96");
  EXPECT_TRUE(shell.messages().empty());
  EXPECT_FALSE(model.OccupiedWarned);
  EXPECT_FALSE(model.ZoomLengthWarned);
}

TEST_F(DatabaseLinkTest, ChannelBehindTheDatabaseIsFoundByTheNextRebuild) {
  make_plots(2);
  offset("96");
  EXPECT_EQ(channels(), (std::vector<i16>{96, 97}));
  RebuildPlotList(model);
  EXPECT_EQ(channels(), (std::vector<i16>{96, 1}));
}

TEST_F(DatabaseLinkTest, NumberBeyondAnyChannelIsARunTimeError) {
  make_plots(1);
  shell.texts.push_back("40000");
  EXPECT_THROW(mnuDBOffset(model), RunTimeError);
  EXPECT_EQ(channels(), (std::vector<i16>{1}));
}

}  // namespace
}  // namespace trendaro
