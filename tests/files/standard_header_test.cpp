#include "files/standard_header.h"

#include "support/load_fixture.h"
#include "support/standard_builder.h"

namespace trendaro {
namespace {

class StandardHeaderTest : public LoadTest {};

TEST_F(StandardHeaderTest, OldestIdHasNoComment) {
  // The channel count follows the id at once.
  FileBuilder bytes;
  bytes.i16_field(5004).i16_field(1).i32_field(2);
  for (const char* text : {"N", "U", "D", "T", "C"}) bytes.counted_text(text);
  bytes.values({1, 2});
  EXPECT_EQ(load(bytes, 1, 1), LoadStatus::Done);
  EXPECT_EQ(model.FileChannelNames[1], "N");
  EXPECT_EQ(model.FileChannelUnits[1], "U");
  EXPECT_EQ(model.FileChannelRates[1], 0);
  EXPECT_EQ(values(), (std::vector<f64>{1, 2}));
}

TEST_F(StandardHeaderTest, Id5009HasADataOffsetButNoPaddingAndNoOffsets) {
  FileBuilder bytes;
  bytes.i16_field(5009).i32_field(999).counted_text("comment").i16_field(1).i16_field(1).i32_field(1);
  for (const char* text : {"N", "U", "D", "T", "C"}) bytes.counted_text(text);
  bytes.i16_field(0).i16_field(8).i32_field(0).zeros(3).i16_field(101).i16_field(0).values({6.5});
  EXPECT_EQ(load(bytes, 1, 1), LoadStatus::Done);
  EXPECT_EQ(values(), std::vector<f64>{6.5});
  EXPECT_EQ(model.ChannelExtras[0].ThermoType, 101);
}

TEST_F(StandardHeaderTest, EveryFieldOfTheNewestId) {
  const ChannelExtraRecord extra{2, 1, 3, {1.5, 2.5, -3.5}, 105, "x*2"};
  for (const i16 id : std::initializer_list<i16>{5012, 7001}) {
    SCOPED_TRACE(id);
    StandardFileLayout standard{.id = id, .comment = "c", .reserved_text = "dropped", .reduce_block = 50};
    standard.channels = {{.name = "T\xE4st ",
                          .unit = "\xB0"
                                  "C",
                          .values = {1}},
                         {.channel_date = 44260.75,
                          .record = distinct_param_record(7),
                          .extra = extra,
                          .extension = "unknown",
                          .values = {8}}};
    EXPECT_EQ(load(standard.build(), 0, 2), LoadStatus::Done);
    EXPECT_EQ(model.FileReduceBlock, 50);
    EXPECT_EQ(model.FileChannelNames[1], "Täst ");
    EXPECT_EQ(model.FileChannelUnits[1], "°C");
    EXPECT_EQ(model.FileDateText, "44260.75");
    EXPECT_EQ(model.FileChannelRates[1], 0);
    EXPECT_EQ(model.FileChannelRates[2], 7.5f);
    EXPECT_EQ(model.ChannelParams[0], distinct_param_record(7));
    EXPECT_EQ(model.ChannelExtras[0], extra);
    EXPECT_EQ(load(standard.build(), 1, 2), LoadStatus::Done);
    EXPECT_EQ(values(), std::vector<f64>{8});
  }
}

TEST_F(StandardHeaderTest, AShortRecordLeavesTheOtherFieldsAsTheyWere) {
  StandardFileLayout standard{.id = 5012};
  standard.channels = {{.record = distinct_param_record(1)},
                       {.record_bytes = FileBuilder().f64_field(1000).f64_field(2.25).bytes()}};
  EXPECT_EQ(load(standard.build(), 0, 2), LoadStatus::Done);
  ChannelParamRecord expected = distinct_param_record(1);
  expected.StartTime = 1000;
  expected.SampleInterval = 2.25;
  EXPECT_EQ(model.ChannelParams[0], expected);
  EXPECT_EQ(model.FileChannelRates[2], 2.25f);
}

TEST_F(StandardHeaderTest, ALongRecordIsPassedToItsEnd) {
  StandardFileLayout standard{.id = 5012};
  standard.channels = {
      {.record_bytes = param_record_bytes(distinct_param_record()) + std::string(48, 'x'), .values = {3}}};
  EXPECT_EQ(load(standard.build(), 1, 1), LoadStatus::Done);
  EXPECT_EQ(model.ChannelParams[0], distinct_param_record());
  EXPECT_EQ(values(), std::vector<f64>{3});
}

TEST_F(StandardHeaderTest, NothingOfAFormerFileShowsThroughWhatOldIdsLack) {
  model.FileDateText = "before";
  model.FileCommentText = "before";
  model.ChannelParams[0].SampleInterval = 7.5;
  model.ChannelExtras[0].ScalingMode = 2;
  StandardFileLayout standard{.id = 5006};
  standard.channels = {{}};
  EXPECT_EQ(load(standard.build(), 0, 1), LoadStatus::Done);
  EXPECT_EQ(model.FileDateText, "");
  EXPECT_EQ(model.FileCommentText, "");
  EXPECT_EQ(model.ChannelParams[0], ChannelParamRecord());
  EXPECT_EQ(model.ChannelExtras[0], ChannelExtraRecord());
}

TEST_F(StandardHeaderTest, LengthsOfCommentAndReservedTextsMayBeNegative) {
  FileBuilder bytes;
  bytes.i16_field(5011).i32_field(0).i16_field(-1);
  for (int text = 0; text < 32; ++text) bytes.i16_field(-32768);
  bytes.i16_field(0).i32_field(0).i32_field(77);
  EXPECT_EQ(load(bytes, 0, 1), LoadStatus::Done);
  EXPECT_EQ(model.FileReduceBlock, 77);
}

TEST_F(StandardHeaderTest, ANegativeNameLengthEndsTheLoad) {
  const FileBuilder bytes = FileBuilder().i16_field(5004).i16_field(1).i32_field(2).i16_field(-1).zeros(50);
  EXPECT_EQ(load(bytes, 0, 1), run_time_error(kInvalidArgument));
}

TEST_F(StandardHeaderTest, ANegativeChannelCountEndsTheLoad) {
  for (const i16 count : std::initializer_list<i16>{-1, -32768})
    EXPECT_EQ(load(FileBuilder().i16_field(5004).i16_field(count).zeros(50), 0, 1),
              run_time_error(kIndexOutOfRange));
}

TEST_F(StandardHeaderTest, MoreChannelsThanTheFileHoldsAreEmpty) {
  for (const i16 id : std::initializer_list<i16>{5004, 5012}) {
    StandardFileLayout standard{.id = id, .channel_count = i16{32767}};
    EXPECT_EQ(load(standard.header(), 1, 5), LoadStatus::Done);
    EXPECT_EQ(model.FileChannelCount, 32767);
    EXPECT_EQ(model.FileChannelNames[32767], "");
    EXPECT_EQ(model.FileChannelPoints.size(), 32768u);
  }
}

TEST_F(StandardHeaderTest, ExtremeRecordLengthsAreBounded) {
  StandardFileLayout standard{.id = 5010};
  standard.channels = {{.record_bytes = std::string()}};
  const FileBuilder good = standard.header();
  const std::size_t extra_bytes = 3 + 2 + 2;
  for (const i32 length : {-1, std::numeric_limits<i32>::min(), std::numeric_limits<i32>::max()}) {
    FileBuilder bytes = good;
    bytes.patch(good.size() - extra_bytes - 4, length);
    EXPECT_EQ(load(bytes, 1, 1), LoadStatus::Done);
    EXPECT_EQ(model.FileChannelNames[1], "Kraft");
  }
}

TEST_F(StandardHeaderTest, AnExtensionOfNegativeLengthLeadsBackNoFurtherThanTheStart) {
  StandardFileLayout standard{.id = 5012};
  standard.channels = {{.values = {5}}};
  FileBuilder bytes = standard.build();
  bytes.patch(bytes.size() - 12, std::numeric_limits<i32>::min());
  EXPECT_EQ(load(bytes, 1, 1), LoadStatus::Done);
  EXPECT_EQ(values(), std::vector<f64>{5});
}

}  // namespace
}  // namespace trendaro
