#include "files/loader.h"

#include "support/block_builder.h"
#include "support/load_fixture.h"
#include "support/standard_builder.h"

namespace trendaro {
namespace {

class LoaderTest : public LoadTest {
 protected:
  static StandardFileLayout two_channels(i16 id) {
    StandardFileLayout standard{.id = id};
    standard.channels = {{.name = "Kraft", .values = {1, 2, 3}}, {.name = "Weg", .values = {4, 5}}};
    return standard;
  }
};

TEST_F(LoaderTest, MissingFileTouchesNothingButTheReduceFactors) {
  model.FileReduceFactor = 7;
  model.FileReduceBlock = 8;
  model.FileChannelCount = 9;
  model.FileId = 10;
  model.FileHeaderPoints = {1, 2};
  EXPECT_EQ(LoadMeasurementFile(model, 1, file.path() + ".missing", 1, 0), LoadStatus::NotOpened);
  EXPECT_EQ(model.FileReduceFactor, 0);
  EXPECT_EQ(model.FileReduceBlock, 0);
  EXPECT_EQ(model.FileChannelCount, 9);
  EXPECT_EQ(model.FileId, 10);
  EXPECT_EQ(model.FileHeaderPoints.size(), 2u);
  EXPECT_TRUE(shell.calls.empty());
}

TEST_F(LoaderTest, FoldersAreNotOpened) {
  EXPECT_EQ(LoadMeasurementFile(model, 0, "/", 1, 0), LoadStatus::NotOpened);
}

TEST_F(LoaderTest, OneByteIsAnUnknownId) {
  EXPECT_EQ(load("\x41", 0, 0), LoadStatus::NotMeasurement);
  EXPECT_EQ(model.FileId, 0x41);
}

TEST_F(LoaderTest, AnEmptyFileIsNoMeasurement) {
  EXPECT_EQ(load("", 0, 0), LoadStatus::NotMeasurement);
}

TEST_F(LoaderTest, UnknownIdsAreKept) {
  for (const i16 id :
       {i16{0}, i16{-5010}, i16{5002}, i16{5013}, i16{5054}, i16{6003}, i16{7000}, i16{32767}}) {
    EXPECT_EQ(load(FileBuilder().i16_field(id).zeros(100), 1, 1), LoadStatus::NotMeasurement) << id;
    EXPECT_EQ(model.FileId, id);
  }
}

TEST_F(LoaderTest, EveryStandardIdIsRead) {
  for (const i16 id :
       std::initializer_list<i16>{5004, 5005, 5006, 5007, 5008, 5009, 5010, 5011, 5012, 7001}) {
    SCOPED_TRACE(id);
    EXPECT_EQ(load(two_channels(id).build(), 1, 2), LoadStatus::Done);
    EXPECT_EQ(model.FileId, id);
    EXPECT_EQ(model.FileChannelCount, 2);
    EXPECT_EQ(model.FileChannelNames[2], "Weg");
    EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{3, 2, 0}));
    EXPECT_EQ(values(), (std::vector<f64>{4, 5}));
  }
}

TEST_F(LoaderTest, ModeZeroLeavesTheWorkingCopiesAndOtherModesEraseThem) {
  EXPECT_EQ(load(two_channels(5012).build(), 0, 1), LoadStatus::Done);
  EXPECT_EQ(model.FileHeaderPoints, (std::vector<i32>{3, 2, 0}));
  EXPECT_EQ(model.FileChannelKinds, (std::vector<i16>{0, 0, 0}));
  EXPECT_EQ(model.FileChannelFormats, (std::vector<i16>{8, 8, 0}));
  EXPECT_TRUE(model.FileChannelValues.empty());
  for (const i16 mode : std::initializer_list<i16>{1, 2}) {
    EXPECT_EQ(load(two_channels(5012).build(), mode, 1, 4), LoadStatus::Done);
    EXPECT_TRUE(model.FileHeaderPoints.empty());
    EXPECT_TRUE(model.FileChannelKinds.empty());
    EXPECT_TRUE(model.FileChannelFormats.empty());
    EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{3, 2, 0}));
  }
}

TEST_F(LoaderTest, ChannelsThatTheFileLacksSelectNothing) {
  model.FileChannelValues = {42};
  for (const i16 channel : std::initializer_list<i16>{-32768, -1, 0, 3, 32767}) {
    EXPECT_EQ(load(two_channels(5012).build(), 1, channel), LoadStatus::Done);
    EXPECT_EQ(values(), std::vector<f64>{42});
  }
}

TEST_F(LoaderTest, EachLoadReplacesTheDescriptionOfTheOneBefore) {
  EXPECT_EQ(load(two_channels(5012).build(), 0, 1), LoadStatus::Done);
  BlockFileLayout block{.id = 5056};
  block.channels = {{.name = "Druck"}};
  EXPECT_EQ(load(block.header(), 0, 1), LoadStatus::Done);
  EXPECT_EQ(model.FileChannelNames.size(), 1u);
  EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{-1, 0}));
  EXPECT_EQ(model.FileChannelPointsEstimate.size(), 1u);
  EXPECT_TRUE(model.FileHeaderPoints.empty());
  EXPECT_EQ(load(two_channels(5004).build(), 0, 1), LoadStatus::Done);
  EXPECT_EQ(model.FileChannelNames.size(), 2u);
  EXPECT_TRUE(model.FileChannelPointsEstimate.empty());
}

TEST_F(LoaderTest, RangesDescribeTheFileAndKeepTheValues) {
  model.FileChannelValues = {42};
  file.rewrite(two_channels(5012).build().bytes());
  EXPECT_EQ(range(1, 1, 2), (std::vector<f64>{2, 3}));
  EXPECT_EQ(range_status, LoadStatus::Done);
  EXPECT_EQ(model.FileChannelNames[1], "Kraft");
  EXPECT_EQ(values(), std::vector<f64>{42});
  file.rewrite("x");
  EXPECT_TRUE(range(1, 0, 1).empty());
  EXPECT_EQ(range_status, LoadStatus::NotMeasurement);
}

}  // namespace
}  // namespace trendaro
