#include "files/reducer.h"

#include <filesystem>
#include <random>

#include <gtest/gtest.h>

#include "support/file_builder.h"
#include "support/reduce_test.h"
#include "support/reducible_files.h"

namespace trendaro {
namespace {

class ReducerTest : public ReduceTest {
 protected:
  ReducerTest() : ReduceTest("lauf.BIN") {}
};

// The reduced form: the source's header with other numbers, and the pairs.
std::string reduced(StandardFile file, i32 block, const std::vector<std::vector<f64>>& pairs) {
  file.padded_length = 0;
  file.reduce_block = block;
  file.points.clear();
  for (const auto& values : pairs) file.points.push_back(static_cast<i32>(values.size()));
  FileBuilder expected = file.header();
  for (const auto& values : pairs) expected.values(values);
  return expected.bytes();
}

TEST(PairCountTest, RestsJoinOrStandAlone) {
  struct Row {
    i32 block, samples, pairs;
  };
  for (const Row row : {Row{10, 100, 10},
                        {100, 1050, 10},
                        {100, 1040, 11},
                        {100, 1002, 10},
                        {100, 1003, 11},
                        {100, 1001, 10},
                        {100, 1051, 11},
                        {100, 1150, 12},
                        {100, 1049, 11},
                        {100, 0, 0},
                        {100, 1, 0},
                        {100, 2, 0},
                        {100, 3, 1},
                        {100, 49, 1},
                        {100, 50, 0},
                        {100, 51, 1},
                        {100, 150, 2},
                        {11, 5, 1},
                        {11, 6, 1},
                        {10, 5, 0},
                        {10, -100, -10},
                        {10, -4, 0},
                        {10000, 2147483647, 214749}})
    EXPECT_EQ(pair_count(row.samples, row.block), row.pairs) << row.samples << " / " << row.block;
}

TEST_F(ReducerTest, HeaderAndPairsOfEveryId) {
  for (const i16 id : {i16{5010}, i16{5011}, i16{5012}}) {
    StandardFile file{.id = id, .padded_length = 77, .reduce_block = 3, .gap = 9, .channels = {}};
    file.channels.push_back({.name = "Drehzahl ", .unit = "1/min", .comment = "steigt", .samples = ramp(40)});
    file.channels.push_back({.name = "Temperatur",
                             .unit = "\xB0"
                                     "C",
                             .samples = ramp(20, -1)});
    EXPECT_EQ(reduce(file.build().bytes(), 10), ReduceStatus::Done);
    const std::string expected = reduced(file, 10, {{0, 9, 10, 19, 20, 29, 30, 39}, {-0.0, -9, -10, -19}});
    EXPECT_EQ(result(), expected) << id;
  }
}

TEST_F(ReducerTest, NumberAndLastPairFollowTheRest) {
  struct Row {
    i32 block;
    int samples;
    std::size_t values;
    std::vector<f64> last_pair;
  };
  for (const Row& row :
       {Row{10, 100, 20, {90, 99}}, Row{100, 1050, 20, {900, 1049}}, Row{100, 1040, 22, {1000, 1039}},
        Row{100, 1002, 20, {900, 1001}}, Row{100, 150, 4, {100, 149}}, Row{100, 50, 0, {}}}) {
    StandardFile file{.channels = {{.samples = ramp(row.samples)}}};
    std::filesystem::remove(target());  // an older target is not cut
    ASSERT_EQ(reduce(file.build().bytes(), row.block), ReduceStatus::Done);
    std::vector<f64> pairs;
    for (std::size_t pair = 0; 2 * pair < row.values; ++pair) {
      const f64 first = static_cast<f64>(pair) * row.block;
      pairs.insert(pairs.end(), {first, first + row.block - 1});
    }
    if (!pairs.empty()) std::copy(row.last_pair.begin(), row.last_pair.end(), pairs.end() - 2);
    EXPECT_EQ(result(), reduced(file, row.block, {pairs})) << row.samples << " / " << row.block;
  }
}

TEST_F(ReducerTest, RestOfTwoSamplesJoinsLastBlock) {
  StandardFile file{.channels = {{.samples = ramp(22)}}};
  EXPECT_EQ(reduce(file.build().bytes(), 10), ReduceStatus::Done);
  EXPECT_EQ(result(), reduced(file, 10, {{0, 9, 10, 21}}));
}

TEST_F(ReducerTest, RestOfHalfABlockJoinsAnEvenNumberOfBlocks) {
  StandardFile file{.channels = {{.samples = ramp(25)}}};
  EXPECT_EQ(reduce(file.build().bytes(), 10), ReduceStatus::Done);
  EXPECT_EQ(result(), reduced(file, 10, {{0, 9, 10, 24}}));
}

TEST_F(ReducerTest, RestOfHalfABlockStandsAloneBehindAnOddNumberOfBlocks) {
  StandardFile file{.channels = {{.samples = ramp(35)}}};
  EXPECT_EQ(reduce(file.build().bytes(), 10), ReduceStatus::Done);
  EXPECT_EQ(result(), reduced(file, 10, {{0, 9, 10, 19, 20, 29, 30, 34}}));
}

TEST_F(ReducerTest, RestOfThreeStandsAlone) {
  StandardFile file{.channels = {{.samples = ramp(13)}}};
  EXPECT_EQ(reduce(file.build().bytes(), 10), ReduceStatus::Done);
  EXPECT_EQ(result(), reduced(file, 10, {{0, 9, 10, 12}}));
}

TEST_F(ReducerTest, ChannelWithoutPairsReadsNothing) {
  StandardFile file{.channels = {{.samples = {7, 8}}, {.samples = ramp(10)}}};
  EXPECT_EQ(reduce(file.build().bytes(), 10), ReduceStatus::Done);
  // The second channel begins with the two values of the first.
  EXPECT_EQ(result(), reduced(file, 10, {{}, {8, 0}}));
}

TEST_F(ReducerTest, SampleKindIsNotLookedAt) {
  StandardFile file{.channels = {{.samples = ramp(10), .kind = 1}}};
  EXPECT_EQ(reduce(file.build().bytes(), 10), ReduceStatus::Done);
  EXPECT_EQ(result(), reduced(file, 10, {{0, 9}}));
}

TEST_F(ReducerTest, BytesAheadOfTheDataAreCopied) {
  StandardFile file{.channels = {{.samples = ramp(20)}}};
  const std::size_t header_end = file.header().size();
  FileBuilder bytes = file.build();
  bytes.f64_field(20).patch(2, static_cast<i32>(header_end + sizeof(f64)));
  EXPECT_EQ(reduce(bytes.bytes(), 10), ReduceStatus::Done);
  FileBuilder expected;
  expected.bytes_field(reduced(file, 10, {{1, 10, 11, 20}}).substr(0, header_end));
  expected.f64_field(0).values({1, 10, 11, 20}).patch(2, static_cast<i32>(header_end + sizeof(f64)));
  EXPECT_EQ(result(), expected.bytes());
}

TEST_F(ReducerTest, LongChannelsAgreeWithOneComparisonAfterTheOther) {
  std::mt19937 random(7);
  std::uniform_real_distribution<f64> value(-100, 100);
  std::vector<f64> samples(300017);
  for (f64& sample : samples) sample = value(random);
  StandardFile file{.channels = {{.samples = samples}, {.samples = ramp(123456, 0.25)}}};
  for (const i32 block : {10, 137, 10000}) {
    ASSERT_EQ(reduce(file.build().bytes(), block), ReduceStatus::Done);
    std::vector<std::vector<f64>> expected;
    for (const SampleChannel& channel : file.channels) {
      auto& pairs = expected.emplace_back();
      const auto count = static_cast<std::size_t>(block);
      const std::size_t rest = channel.samples.size() % count;
      std::size_t blocks = channel.samples.size() / count;
      if (rest > 2) ++blocks;  // none of the rests here is exactly half a block
      for (std::size_t i = 0; i < blocks; ++i) {
        const auto begin = channel.samples.begin() + static_cast<std::ptrdiff_t>(i * count);
        const auto end = i + 1 == blocks ? channel.samples.end() : begin + static_cast<std::ptrdiff_t>(count);
        const auto least = std::min_element(begin, end);
        const auto greatest = std::max_element(begin, end);
        pairs.push_back(std::min(least, greatest)[0]);
        pairs.push_back(std::max(least, greatest)[0]);
      }
    }
    EXPECT_TRUE(result() == reduced(file, block, expected)) << block;
    std::filesystem::remove(target());
  }
}

TEST_F(ReducerTest, UnknownIdsAreRefusedAndLeaveAnEmptyTarget) {
  for (const int number : {5003, 5013, 5055, 6001, 6012, 7001, 0, -5010}) {
    const i16 id = static_cast<i16>(number);
    EXPECT_EQ(reduce(FileBuilder().i16_field(id).zeros(400).bytes(), 10), ReduceStatus::NotStandard) << id;
    EXPECT_EQ(result(), "");
  }
}

TEST_F(ReducerTest, FileWithoutAWholeIdIsRefused) {
  EXPECT_EQ(reduce("", 10), ReduceStatus::NotStandard);
  EXPECT_EQ(reduce("\x92", 10), ReduceStatus::NotStandard);
}

TEST_F(ReducerTest, OldIdsAreOutdatedAndLeaveAnEmptyTarget) {
  for (i16 id = 5004; id <= 5009; ++id) {
    EXPECT_EQ(reduce(FileBuilder().i16_field(id).zeros(400).bytes(), 10), ReduceStatus::OutdatedForm) << id;
    EXPECT_EQ(result(), "");
  }
}

TEST_F(ReducerTest, MissingSourceCreatesNoTarget) {
  EXPECT_EQ(ReduceStandardFile(source(), target(), 10, untold), ReduceStatus::Failed);
  EXPECT_FALSE(std::filesystem::exists(target()));
}

TEST_F(ReducerTest, FolderAsSourceFails) {
  EXPECT_EQ(ReduceStandardFile(folder_.path(), target(), 10, untold), ReduceStatus::Failed);
}

TEST_F(ReducerTest, TargetInAMissingFolderFails) {
  write_file(source(), StandardFile{.channels = {{.samples = ramp(10)}}}.build().bytes());
  EXPECT_EQ(ReduceStandardFile(source(), folder_.file("fehlt/lauf.REB"), 10, untold), ReduceStatus::Failed);
}

TEST_F(ReducerTest, FullDiskIsAFailure) {
  for (const std::string& bytes : {StandardFile{.channels = {{.samples = ramp(1000)}}}.build().bytes(),
                                   BlockFile{.channels = {{.samples = ramp(1000)}}}.build().bytes()}) {
    write_file(source(), bytes);
    EXPECT_EQ(ReduceStandardFile(source(), "/dev/full", 10, untold), ReduceStatus::Failed);
  }
}

TEST_F(ReducerTest, LongerTargetKeepsItsTail) {
  StandardFile file{.channels = {{.samples = ramp(20)}}};
  write_file(target(), std::string(4000, 'x'));
  EXPECT_EQ(reduce(file.build().bytes(), 10), ReduceStatus::Done);
  const std::string expected = reduced(file, 10, {{0, 9, 10, 19}});
  EXPECT_EQ(result(), expected + std::string(4000 - expected.size(), 'x'));
}

TEST_F(ReducerTest, SourceIsNeverItsOwnTarget) {
  const std::string bytes = StandardFile{.channels = {{.samples = ramp(20)}}}.build().bytes();
  write_file(source(), bytes);
  std::filesystem::create_symlink(source(), folder_.file("symbolisch.REB"));
  std::filesystem::create_hard_link(source(), folder_.file("hart.REB"));
  for (const std::string& name : {source(), folder_.file("symbolisch.REB"), folder_.file("hart.REB")}) {
    EXPECT_EQ(ReduceStandardFile(source(), name, 10, untold), ReduceStatus::Failed) << name;
    EXPECT_EQ(read_file(source()), bytes) << name;
  }
}

TEST_F(ReducerTest, SourceCutAtAnyByteFails) {
  for (const i16 id : {i16{5010}, i16{5011}, i16{5012}}) {
    const std::string bytes =
        StandardFile{.id = id, .gap = 3, .channels = {{.samples = ramp(20)}, {.samples = ramp(13)}}}
            .build()
            .bytes();
    for (std::size_t length = 0; length < bytes.size(); ++length)
      EXPECT_EQ(reduce(bytes.substr(0, length), 10),
                length < 2 ? ReduceStatus::NotStandard : ReduceStatus::Failed)
          << id << " cut at " << length;
  }
}

TEST_F(ReducerTest, PlacesOutsideOfTheFileFail) {
  const StandardFile file{.id = 5010, .channels = {{.samples = ramp(20)}}};
  const std::size_t offsets = 2 + 4 + 2 + 9 + 2 + 4;
  for (const i32 place : {-1, -2147483647 - 1, 2147483647, 100000}) {
    EXPECT_EQ(reduce(file.build().patch(offsets, place).bytes(), 10), ReduceStatus::Failed) << place;
    EXPECT_EQ(reduce(file.build().patch(2, place).bytes(), 10), ReduceStatus::Failed) << place;
  }
}

TEST_F(ReducerTest, ClaimedNumbersBeyondTheFileFail) {
  const StandardFile file{.id = 5010, .channels = {{.samples = ramp(20)}}, .points = {2147483647}};
  EXPECT_EQ(reduce(file.build().bytes(), 10), ReduceStatus::Failed);
  EXPECT_EQ(reduce(file.build().bytes(), 1), ReduceStatus::Failed);
  EXPECT_EQ(reduce(file.build().patch(2 + 4 + 2 + 9, i16{32767}).bytes(), 10), ReduceStatus::Failed);
  EXPECT_EQ(reduce(file.build().patch(2 + 4 + 2 + 9, i16{-1}).bytes(), 10), ReduceStatus::Failed);
}

TEST_F(ReducerTest, BlockSizeBelowOneFails) {
  const std::string bytes = StandardFile{.channels = {{.samples = ramp(20)}}}.build().bytes();
  EXPECT_EQ(reduce(bytes, 0), ReduceStatus::Failed);
  EXPECT_EQ(reduce(bytes, -10), ReduceStatus::Failed);
}

TEST_F(ReducerTest, SourceThatShrinksWhileReadFails) {
  write_file(source(), StandardFile{.channels = {{.samples = ramp(400000)}}}.build().bytes());
  const auto cut = [&](f64) { std::filesystem::resize_file(source(), 1000000); };
  EXPECT_EQ(ReduceStandardFile(source(), target(), 10, cut), ReduceStatus::Failed);
}

TEST_F(ReducerTest, ProgressIsToldAtWholePercents) {
  std::vector<f64> told;
  write_file(source(), StandardFile{.channels = {{.samples = ramp(400000)}}}.build().bytes());
  ASSERT_EQ(ReduceStandardFile(source(), target(), 10, [&](f64 fraction) { told.push_back(fraction); }),
            ReduceStatus::Done);
  ASSERT_FALSE(told.empty());
  EXPECT_LE(told.size(), 101U);
  EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
  EXPECT_EQ(told.back(), 1);
}

TEST(ReduceStatusTest, EveryFailureHasItsWords) {
  EXPECT_EQ(reduce_status_text(ReduceStatus::Done), "");
  EXPECT_EQ(reduce_status_text(ReduceStatus::NotStandard), "Diese Datei hat kein binäres Standardformat.");
  EXPECT_EQ(reduce_status_text(ReduceStatus::OutdatedForm), "Diese Datei hat ein veraltetes binäres Format.");
  EXPECT_EQ(reduce_status_text(ReduceStatus::Failed), "Fehler bei Öffnen der Datei aufgetreten.");
}

}  // namespace
}  // namespace trendaro
