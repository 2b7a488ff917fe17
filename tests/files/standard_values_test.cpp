#include "files/standard_values.h"

#include <numeric>

#include "support/load_fixture.h"
#include "support/standard_builder.h"

namespace trendaro {
namespace {

constexpr i32 kMany = std::numeric_limits<i32>::max();

class StandardValuesTest : public LoadTest {};

TEST_F(StandardValuesTest, ShortReadShowsItsMessageAndKeepsWhatWasRead) {
  StandardFileLayout standard{.id = 5012};
  standard.channels = {{.values = {1, 2, 3}, .points = kMany}};
  EXPECT_EQ(load(standard.build(), 1, 1), LoadStatus::ReadFailed);
  EXPECT_EQ(values(), (std::vector<f64>{1, 2, 3}));
  EXPECT_EQ(shell.messages(), std::vector<std::string>{"Trendaro: Fehler beim Lesen der Daten aufgetreten!"});
  EXPECT_EQ(shell.icons, std::vector<MessageIcon>{MessageIcon::Stop});
  EXPECT_TRUE(model.FileHeaderPoints.empty());
}

TEST_F(StandardValuesTest, ShortReadForTheDatabaseWritesNothing) {
  StandardFileLayout standard{.id = 5012};
  standard.channels = {{.values = {1, 2, 3}, .points = 10}};
  EXPECT_EQ(load(standard.build(), 2, 1, 5), LoadStatus::ReadFailed);
  EXPECT_EQ(values(), (std::vector<f64>{1, 2, 3}));
  EXPECT_EQ(shell.messages().size(), 1u);
  EXPECT_TRUE(kernel.calls.empty());
  EXPECT_TRUE(model.FileHeaderPoints.empty());
  EXPECT_TRUE(model.FileChannelKinds.empty());
  EXPECT_TRUE(model.FileChannelFormats.empty());
}

TEST_F(StandardValuesTest, ChannelsWithoutPointsReadNothing) {
  StandardFileLayout standard{.id = 5012};
  model.FileChannelValues = {42};
  for (const i32 points : {0, -1, std::numeric_limits<i32>::min()}) {
    standard.channels = {{.values = {}, .points = points}};
    EXPECT_EQ(load(standard.build(), 1, 1), LoadStatus::Done);
    EXPECT_EQ(values(), std::vector<f64>{42});
  }
}

TEST_F(StandardValuesTest, UnwantedChannelsBeyondTheFileDoNoHarm) {
  StandardFileLayout standard{.id = 5012};
  standard.channels = {{.values = {1, 2}}, {.points = kMany}, {.points = -kMany}, {.points = kMany}};
  EXPECT_EQ(load(standard.build(), 1, 1), LoadStatus::Done);
  EXPECT_EQ(values(), (std::vector<f64>{1, 2}));
}

TEST_F(StandardValuesTest, EqualPaddingIsNoSkip) {
  StandardFileLayout standard{.id = 5012, .padded_length = 3};
  standard.channels = {{.values = {1, 2, 3}}, {.values = {4, 5, 6}}, {.values = {7, 8, 9}}};
  for (const i16 channel : std::initializer_list<i16>{1, 2, 3}) {
    EXPECT_EQ(load(standard.build(), 1, channel), LoadStatus::Done);
    EXPECT_EQ(values(), (std::vector<f64>{channel * 3. - 2, channel * 3. - 1, channel * 3. + 0}));
  }
}

TEST_F(StandardValuesTest, ShorterThanThePaddingSkipsTheDifferenceInBytes) {
  StandardFileLayout standard{.id = 5012, .padded_length = 10};
  standard.channels = {{.points = 10}, {.points = 2}};
  FileBuilder bytes = standard.header();
  bytes.zeros(80);  // the first channel at its padded length
  bytes.zeros(8);   // 10 - 2 bytes
  bytes.values({1.5, 2.5});
  EXPECT_EQ(load(bytes, 1, 2), LoadStatus::Done);
  EXPECT_EQ(values(), (std::vector<f64>{1.5, 2.5}));
  EXPECT_EQ(range(2, 1, 5), std::vector<f64>{2.5});
}

TEST_F(StandardValuesTest, TheFirstChannelIsNeverSkippedInto) {
  StandardFileLayout standard{.id = 5012, .padded_length = 10};
  standard.channels = {{.points = 2}};
  FileBuilder bytes = standard.header();
  bytes.values({1.5, 2.5}).zeros(64);
  EXPECT_EQ(load(bytes, 1, 1), LoadStatus::Done);
  EXPECT_EQ(values(), (std::vector<f64>{1.5, 2.5}));
}

TEST_F(StandardValuesTest, LongerThanThePaddingGoesBackInBytes) {
  StandardFileLayout standard{.id = 5012, .padded_length = 1};
  standard.channels = {{.points = 1}, {.points = 9}};
  FileBuilder bytes = standard.header();
  bytes.values({1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
  // Behind one padded channel, then 1 - 9 bytes: back to where the data begin.
  EXPECT_EQ(load(bytes, 1, 2), LoadStatus::Done);
  EXPECT_EQ(values(), (std::vector<f64>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST_F(StandardValuesTest, ASkipAheadOfTheFileLeavesThePosition) {
  StandardFileLayout standard{.id = 5012, .padded_length = -kMany};
  standard.channels = {{.points = 2}, {.points = 2}};
  FileBuilder bytes = standard.header();
  bytes.values({1, 2});
  EXPECT_EQ(load(bytes, 1, 2), LoadStatus::Done);
  EXPECT_EQ(values(), (std::vector<f64>{1, 2}));
}

TEST_F(StandardValuesTest, TextChannelsArePassedTextByText) {
  StandardFileLayout standard{.id = 5012};
  standard.channels = {{.kind = 1, .texts = {"a", "", "longer text"}}, {.values = {1, 2}}};
  EXPECT_EQ(load(standard.build(), 1, 2), LoadStatus::Done);
  EXPECT_EQ(values(), (std::vector<f64>{1, 2}));
  EXPECT_EQ(range(2, 0, 1), std::vector<f64>{1});
}

TEST_F(StandardValuesTest, ARequestedTextChannelGivesNoValuesAndNoError) {
  StandardFileLayout standard{.id = 5012};
  standard.channels = {{.kind = 1, .texts = {"a"}}, {.values = {1, 2}}};
  model.FileChannelValues = {42};
  EXPECT_EQ(load(standard.build(), 1, 1), LoadStatus::Done);
  EXPECT_EQ(values(), std::vector<f64>{42});
  EXPECT_TRUE(range(1, 0, 1).empty());
}

TEST_F(StandardValuesTest, CountsOfTextsBeyondTheFileEndWithIt) {
  StandardFileLayout standard{.id = 5012};
  standard.channels = {{.kind = 1, .points = kMany}, {.values = {}, .points = 2}};
  EXPECT_EQ(load(standard.build(), 1, 1), LoadStatus::Done);
  EXPECT_EQ(load(standard.build(), 1, 2), LoadStatus::ReadFailed);
  EXPECT_TRUE(values().empty());
}

TEST_F(StandardValuesTest, ChannelsThatLeadBackToTextsComeToAnEnd) {
  StandardFileLayout standard{.id = 5012};
  for (int pair = 0; pair < 200; ++pair) {
    standard.channels.push_back({.kind = 1, .points = kMany});
    standard.channels.push_back({.points = -1000});
  }
  FileBuilder bytes = standard.header();
  bytes.zeros(8000);
  EXPECT_EQ(load(bytes, 1, 2), run_time_error(kInvalidArgument));
}

TEST_F(StandardValuesTest, UnknownKindsTakeNoRoom) {
  StandardFileLayout standard{.id = 5012};
  for (const i16 kind : std::initializer_list<i16>{2, -1}) {
    standard.channels = {{.kind = kind, .points = 5}, {.values = {1, 2}}};
    EXPECT_EQ(load(standard.build(), 1, 2), LoadStatus::Done);
    EXPECT_EQ(values(), (std::vector<f64>{1, 2}));
    model.FileChannelValues = {42};
    EXPECT_EQ(load(standard.build(), 1, 1), LoadStatus::Done);
    EXPECT_EQ(values(), std::vector<f64>{42});
  }
}

TEST_F(StandardValuesTest, DatabaseModeWritesTheChannel) {
  StandardFileLayout standard{.id = 5012};
  standard.channels = {{.values = {9}},
                       {.name = "Weg",
                        .unit = "\xB5m",
                        .comment = "gepr\xFC"
                                   "ft",
                        .channel_date = 44260 + 45296 / 86400.0,  // 12:34:56
                        .record = distinct_param_record(3),
                        .extra = {1, 0, 0, {}, 0, ""},
                        .values = {1, 2.5}}};
  model.FileChannelValues = {42};
  EXPECT_EQ(load(standard.build(), 2, 2, 17), LoadStatus::Done);
  // The time of the stamp has passed through "12:34".
  EXPECT_EQ(kernel.calls, (std::vector<std::string>{"write 17 (append 0): 1 2.5", "text 17 0: Weg",
                                                    "text 17 1: µm", "text 17 2: geprüft",
                                                    "modified 17: " + number_text(44260 + 45240 / 86400.0)}));
  EXPECT_EQ(model.LastDatabaseStatus, 3);
  EXPECT_TRUE(values().empty());
  EXPECT_EQ(model.ChannelParams[17], distinct_param_record(3));
  EXPECT_EQ(model.ChannelExtras[17].ScalingMode, 1);
}

TEST_F(StandardValuesTest, DatabaseModeReadsTheDatesOfOldFiles) {
  StandardFileLayout standard{.id = 5004};
  standard.channels = {{.date = "05.03.2021", .time = "18:00:00", .values = {1}}};
  EXPECT_EQ(load(standard.build(), 2, 1, 2), LoadStatus::Done);
  EXPECT_EQ(kernel.calls.back(), "modified 2: 44260.75");
}

TEST_F(StandardValuesTest, AnOldDateThatIsNoneEndsTheLoad) {
  StandardFileLayout standard{.id = 5004};
  standard.channels = {{.date = "gestern", .values = {1}}};
  EXPECT_EQ(load(standard.build(), 2, 1, 2), run_time_error(kTypeMismatch));
}

TEST_F(StandardValuesTest, ADateOutsideOfTheCalendarHurtsOnlyTheDatabase) {
  StandardFileLayout standard{.id = 5012};
  standard.channels = {{.channel_date = 1e300, .values = {1}}};
  EXPECT_EQ(load(standard.build(), 1, 1), LoadStatus::Done);
  EXPECT_EQ(model.FileDateText, "1e+300");
  EXPECT_EQ(load(standard.build(), 2, 1, 2), run_time_error(kTypeMismatch));
}

TEST_F(StandardValuesTest, ARefusedWriteFails) {
  StandardFileLayout standard{.id = 5012};
  standard.channels = {{.values = {1, 2}}};
  kernel.write_result = 0;
  EXPECT_EQ(load(standard.build(), 2, 1, 2), LoadStatus::ReadFailed);
  EXPECT_EQ(model.LastDatabaseStatus, 0);
  EXPECT_EQ(values(), (std::vector<f64>{1, 2}));
  EXPECT_EQ(shell.messages().size(), 1u);
  EXPECT_EQ(kernel.calls.size(), 1u);
}

TEST_F(StandardValuesTest, DatabaseModeWithoutADatabaseIsARunTimeError) {
  StandardFileLayout standard{.id = 5012};
  standard.channels = {{.values = {1, 2}}};
  model.Kernel = nullptr;
  EXPECT_EQ(load(standard.build(), 2, 1, 2), run_time_error(kHostMemberMissing));
}

TEST_F(StandardValuesTest, DatabaseModeOfAChannelThatTheFileLacksWritesNothing) {
  StandardFileLayout standard{.id = 5012};
  standard.channels = {{.values = {1, 2}}};
  model.FileChannelValues = {42};
  EXPECT_EQ(load(standard.build(), 2, 0, 2), LoadStatus::Done);
  EXPECT_TRUE(kernel.calls.empty());
  EXPECT_TRUE(values().empty());
}

TEST_F(StandardValuesTest, AbsentChannelsReadThroughTheWholeFile) {
  StandardFileLayout standard{.id = 5012};
  standard.channels = {{.values = {}, .points = 0}, {.kind = 1, .points = 1}};
  FileBuilder bytes = standard.header();
  bytes.i16_field(-1);
  for (const i16 mode : std::initializer_list<i16>{1, 2})
    for (const i16 channel : std::initializer_list<i16>{0, 1, 3})
      EXPECT_EQ(load(bytes, mode, channel, 2), run_time_error(kInvalidArgument)) << mode << ", " << channel;
}

TEST_F(StandardValuesTest, DatabaseChannelKeepsItsRecordsWhenTheFileLacksTheChannel) {
  StandardFileLayout standard{.id = 5012};
  standard.channels = {{.values = {1, 2}}};
  for (const i16 channel : std::initializer_list<i16>{0, 2}) {
    model.ChannelParams[2].HardwareChannel = 17;
    model.ChannelExtras[2].ScalingMode = 3;
    EXPECT_EQ(load(standard.build(), 2, channel, 2), LoadStatus::Done);
    EXPECT_EQ(model.ChannelParams[2].HardwareChannel, 17);
    EXPECT_EQ(model.ChannelExtras[2].ScalingMode, 3);
    EXPECT_TRUE(kernel.calls.empty());
  }
}

TEST_F(StandardValuesTest, RangesAreClippedToTheChannel) {
  StandardFileLayout standard{.id = 5010};
  std::vector<f64> ramp(5000);
  std::iota(ramp.begin(), ramp.end(), 0.0);
  standard.channels = {{.values = {-1, -2}}, {.values = ramp}, {.values = {7}}};
  file.rewrite(standard.build().bytes());
  EXPECT_EQ(range(2, 0, 5000), ramp);
  EXPECT_EQ(range(2, 4998, 100), (std::vector<f64>{4998, 4999}));
  EXPECT_EQ(range(2, 17, 1), std::vector<f64>{17});
  EXPECT_TRUE(range(2, 5000, 1).empty());
  EXPECT_TRUE(range(2, -1, 1).empty());
  EXPECT_TRUE(range(2, 0, -1).empty());
  EXPECT_TRUE(range(0, 0, 1).empty());
  EXPECT_TRUE(range(4, 0, 1).empty());
  EXPECT_EQ(range(3, 0, std::numeric_limits<i64>::max()), std::vector<f64>{7});
  EXPECT_EQ(range_status, LoadStatus::Done);
}

TEST_F(StandardValuesTest, EveryCutIsHarmless) {
  for (const i16 id : std::initializer_list<i16>{5004, 5007, 5009, 5010, 5012, 7001}) {
    SCOPED_TRACE(id);
    StandardFileLayout standard{.id = id, .reserved_text = "r"};
    standard.channels = {
        {.extra = {2, 2, 2, {1, 2}, 0, "x"}, .extension = "e", .values = {1, 2, 3}},
        {.kind = static_cast<i16>(id >= 5007),
         .values = id >= 5007 ? std::vector<f64>() : std::vector<f64>{4},
         .texts = id >= 5007 ? std::vector<std::string>{"a", "bc"} : std::vector<std::string>()},
        {.values = {4, 5, 6, 7, 8}}};
    expect_every_cut_to_be_harmless(standard.build().bytes(), 3);
  }
}

}  // namespace
}  // namespace trendaro
