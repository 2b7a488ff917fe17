#include <gtest/gtest.h>

#include "app/model.h"
#include "datasource/grid_handlers.h"
#include "support/fake_host.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

class GridSetupTest : public testing::Test {
 protected:
  GridSetupTest() {
    host.set_all_capacities(100000);
    model.Host = &host;
  }

  std::vector<std::string> names() const {
    std::vector<std::string> found;
    for (const ChannelRow& row : model.Grid.rows) found.push_back(row.name);
    return found;
  }

  RecordingShell shell;
  FakeHost host;
  Model model{shell};
};

TEST_F(GridSetupTest, PlainStartGivesAnEmptyList) {
  InitDataSourceGrid(model);
  EXPECT_EQ(model.Grid.MaxRows(), 0);
  EXPECT_EQ(model.Reduc, 10);
  EXPECT_EQ(model.xSrc.entries[0].text, "Zeit aus Meßrate");
  EXPECT_EQ(model.xSrc.entries[1].text, "Datensatz");
}

TEST_F(GridSetupTest, NegativeEntryOfTheXSourceBecomesTheFirst) {
  model.xSrc.ListIndex = -1;
  InitDataSourceGrid(model);
  EXPECT_EQ(model.xSrc.ListIndex, 0);
  model.xSrc.ListIndex = 1;
  InitDataSourceGrid(model);
  EXPECT_EQ(model.xSrc.ListIndex, 1);
}

TEST_F(GridSetupTest, LimitsComeFromTheFirstFreeRun) {
  host.set_length(1, 7);
  host.set_capacity(2, 1250);
  InitDataSourceGrid(model);
  EXPECT_EQ(model.MaxDatabaseChannels, 96);
  EXPECT_EQ(model.XScratchChannel, 2);
  EXPECT_EQ(model.HighestDatabaseChannel, 2);
  EXPECT_EQ(model.MaxZoomPoints, 1250);
  EXPECT_EQ(model.controls["PointsBox"].text, "1250");
  EXPECT_EQ(model.ScrollInterval, 12);  // 12.5, to the even one
  EXPECT_EQ(model.controls["StepBox"].text, "12");
}

TEST_F(GridSetupTest, ZoomPointsAreCutAtHundredThousand) {
  host.set_all_capacities(5000000);
  InitDataSourceGrid(model);
  EXPECT_EQ(model.MaxZoomPoints, 100000);
  EXPECT_EQ(model.controls["StepBox"].text, "1000");
}

TEST_F(GridSetupTest, HelpFileLiesInTheFolderOfTheProgram) {
  InitDataSourceGrid(model);
  EXPECT_TRUE(model.HelpFile.starts_with("/"));
  EXPECT_TRUE(model.HelpFile.ends_with("/Trendaro.chm"));
}

TEST_F(GridSetupTest, WithoutAHostTheLimitsStay) {
  model.Host = nullptr;
  InitDataSourceGrid(model);
  EXPECT_EQ(model.XScratchChannel, 1);
  EXPECT_EQ(model.controls["PointsBox"].text, "10000");
  EXPECT_EQ(model.controls["StepBox"].text, "100");
}

TEST_F(GridSetupTest, RefusalOfTheHostIsThrown) {
  host.refuses = true;
  EXPECT_THROW(InitDataSourceGrid(model), RunTimeError);
}

TEST_F(GridSetupTest, LiveLayoutGroupsTheChannelsUnderAHeading) {
  model.IsRealTime = true;
  model.Reduc = 2;
  model.IOChannelCount = 5;
  model.IOChannels.push_back({"Druck", 0, 8});
  model.IOChannels.push_back({"Summe", -2, 0});
  model.IOChannels.push_back({"Zeit", -3, 0});
  model.IOChannels.push_back({"Basis", -5, 0});
  model.IOChannels.push_back({"Datei", -4, 0});
  InitDataSourceGrid(model);
  EXPECT_EQ(names(), (std::vector<std::string>{"I/O - Kanäle", "1 - 2", "1  Druck", "2  Summe", "3 - 4",
                                               "3  Zeit", "4  Basis", "5 - 5", "5  Datei"}));
  EXPECT_EQ(model.Grid.rows[1].kind, RowKind::IoHeading);
  EXPECT_EQ(model.Grid.rows[1].check, 1);
  EXPECT_EQ(model.Grid.rows[1].picture, "IMG_IO");
  EXPECT_EQ(model.Grid.rows[2].kind, RowKind::Group);
  EXPECT_EQ(model.Grid.rows[3].kind, RowKind::DatabaseChannel);
  EXPECT_EQ(model.Grid.rows[3].mark, "1");
  EXPECT_EQ(model.Grid.rows[3].picture, "IMG_ANALOGIN");
  EXPECT_EQ(model.Grid.rows[4].picture, "IMG_FORMULAIN");
  EXPECT_EQ(model.Grid.rows[6].picture, "IMG_TIME");
  EXPECT_EQ(model.Grid.rows[7].picture, "IMG_DATABASEIN");
  EXPECT_EQ(model.Grid.rows[9].picture, "IMG_FILEIN");
  EXPECT_EQ(model.xSrc.entries[0].text, "Zeit (Kanalheader)");
  EXPECT_EQ(model.xSrc.entries[1].text, "Markierter Datenkanal (X)");
}

TEST_F(GridSetupTest, UnknownSourceIsNotConnected) {
  model.IsRealTime = true;
  model.IOChannelCount = 2;
  model.IOChannels.push_back({"a", -1, 0});
  InitDataSourceGrid(model);
  EXPECT_EQ(model.Grid.rows[3].picture, "IMG_NOTCONNECTED");
  EXPECT_EQ(model.Grid.rows[4].picture, "IMG_NOTCONNECTED");  // not in the table of channels
}

}  // namespace
}  // namespace trendaro
