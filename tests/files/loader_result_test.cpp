#include "files/loader_result.h"

#include "files/recorder_reader.h"
#include "support/block_builder.h"
#include "support/load_fixture.h"
#include "support/recorder_builder.h"
#include "support/standard_builder.h"

namespace trendaro {
namespace {

// Every field of the description says something that no file of these tests says.
void describe_otherwise(LoaderResult& result) {
  result.FileChannelCount = 77;
  result.FileChannelNames = {"before", "before"};
  result.FileChannelUnits = {"before"};
  result.FileChannelRates = {7};
  result.FileChannelPoints = {7, 7, 7, 7};
  result.FileChannelPointsEstimate = {7};
  result.FileHeaderPoints = {7};
  result.FileChannelKinds = {7};
  result.FileChannelFormats = {7};
  result.FileReduceFactor = 7;
  result.FileReduceBlock = 7;
  result.FileDateText = result.FileCommentText = result.FileChannelComment = "before";
  result.ChannelParams[0].KFactor = 7;
  result.ChannelExtras[0].ScalingMode = 7;
}

void expect_no_description(const LoaderResult& result) {
  EXPECT_EQ(result.FileChannelCount, 0);
  EXPECT_TRUE(result.FileChannelNames.empty());
  EXPECT_TRUE(result.FileChannelUnits.empty());
  EXPECT_TRUE(result.FileChannelRates.empty());
  EXPECT_TRUE(result.FileChannelPoints.empty());
  EXPECT_TRUE(result.FileChannelPointsEstimate.empty());
  EXPECT_TRUE(result.FileHeaderPoints.empty());
  EXPECT_TRUE(result.FileChannelKinds.empty());
  EXPECT_TRUE(result.FileChannelFormats.empty());
  EXPECT_EQ(result.FileReduceFactor, 0);
  EXPECT_EQ(result.FileReduceBlock, 0);
  EXPECT_EQ(result.FileDateText + result.FileCommentText + result.FileChannelComment, "");
  EXPECT_FALSE(result.ChannelParams.contains(0));
  EXPECT_FALSE(result.ChannelExtras.contains(0));
}

class LoaderResultTest : public LoadTest {
 protected:
  LoaderResultTest() { describe_otherwise(model); }
};

TEST_F(LoaderResultTest, ForgettingADescriptionKeepsValuesIdAndDatabaseChannels) {
  model.FileChannelValues = {42};
  model.FileId = 5010;
  model.ChannelParams[3].KFactor = 2;
  model.ChannelExtras[3].ScalingMode = 1;
  forget_description(model);
  expect_no_description(model);
  EXPECT_EQ(values(), std::vector<f64>{42});
  EXPECT_EQ(model.FileId, 5010);
  EXPECT_EQ(model.ChannelParams[3].KFactor, 2);
  EXPECT_EQ(model.ChannelExtras[3].ScalingMode, 1);
}

TEST_F(LoaderResultTest, FileHeadersThatFailLeaveNothingOfTheFormerFile) {
  RecorderBuilder recording;
  recording.row_count = -1;
  FileBuilder negative_entries = recording.build();
  negative_entries.patch(4, i32{-1});
  const std::vector<std::pair<FileBuilder, LoadStatus>> files = {
      {FileBuilder().i16_field(5004).i16_field(-1), run_time_error(kIndexOutOfRange)},
      {FileBuilder().i16_field(5056).i16_field(0).i32_field(-1), run_time_error(kIndexOutOfRange)},
      {FileBuilder().i16_field(5003).i16_field(0).i32_field(32768), run_time_error(kOverflow)},
      {negative_entries, run_time_error(kIndexOutOfRange)},
      // Only the low word is that of a recording.
      {FileBuilder().i32_field(6001 + 65536).zeros(300), LoadStatus::NotMeasurement}};
  for (const auto& [bytes, status] : files) {
    SCOPED_TRACE(bytes.size());
    describe_otherwise(model);
    EXPECT_EQ(load(bytes, 0, 1), status);
    expect_no_description(model);
  }
}

TEST_F(LoaderResultTest, AFileThatIsNoMeasurementLeavesTheDescription) {
  EXPECT_EQ(load(FileBuilder().i16_field(5013).zeros(100), 0, 1), LoadStatus::NotMeasurement);
  EXPECT_EQ(model.FileChannelCount, 77);
  EXPECT_EQ(model.FileDateText, "before");
}

// A channel that none of them has, so that each fills as little as it can.
TEST_F(LoaderResultTest, NoGroupLetsAFormerDescriptionShowThrough) {
  StandardFileLayout old_standard{.id = 5004};
  StandardFileLayout standard{.id = 5012};
  BlockFileLayout block{.id = 5056};
  old_standard.channels = standard.channels = {{.name = "Kraft", .unit = "kN", .values = {1}}};
  block.channels = {{.name = "Kraft", .unit = "kN"}};
  for (const FileBuilder& bytes : {old_standard.build(), standard.build(), block.header()}) {
    SCOPED_TRACE(bytes.size());
    describe_otherwise(model);
    EXPECT_EQ(load(bytes, 1, 0), LoadStatus::Done);
    EXPECT_EQ(model.FileChannelCount, 1);
    EXPECT_EQ(model.FileChannelNames, OneBased<std::string>{"Kraft"});
    EXPECT_EQ(model.FileChannelUnits, OneBased<std::string>{"kN"});
    EXPECT_EQ(model.FileChannelRates, OneBased<f32>{0});
    EXPECT_EQ(model.FileChannelPoints.size(), 2u);
    EXPECT_TRUE(model.FileHeaderPoints.empty());
    EXPECT_TRUE(model.FileChannelKinds.empty());
    EXPECT_TRUE(model.FileChannelFormats.empty());
    EXPECT_EQ(model.FileReduceFactor, 0);
    EXPECT_EQ(model.FileReduceBlock, 0);
    EXPECT_EQ(model.FileDateText + model.FileCommentText + model.FileChannelComment, "");
    EXPECT_EQ(model.ChannelParams[0], ChannelParamRecord());
    EXPECT_EQ(model.ChannelExtras[0], ChannelExtraRecord());
  }
}

TEST_F(LoaderResultTest, ARecordingLetsNoFormerDescriptionShowThrough) {
  RecorderBuilder recording{.entries = {{.unit = "V"}}, .date = "", .comment = ""};
  for (const i16 channel : std::initializer_list<i16>{0, 1}) {
    describe_otherwise(model);
    EXPECT_EQ(load(recording.build(), 0, channel), LoadStatus::Done);
    EXPECT_EQ(model.FileChannelCount, 1);
    EXPECT_EQ(model.FileChannelUnits, OneBased<std::string>{"V"});
    EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{0, 0}));
    EXPECT_TRUE(model.FileChannelPointsEstimate.empty());
    EXPECT_TRUE(model.FileHeaderPoints.empty());
    EXPECT_NE(model.FileDateText, "before");
    EXPECT_NE(model.FileCommentText, "before");
    EXPECT_EQ(model.FileChannelComment, channel == 0 ? "" : model.FileCommentText);
    EXPECT_EQ(model.ChannelParams[0].KFactor, 0);
    EXPECT_EQ(model.ChannelExtras[0], ChannelExtraRecord());
  }
}

}  // namespace
}  // namespace trendaro
