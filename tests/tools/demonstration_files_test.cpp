#include "demonstration_files.h"

#include <algorithm>
#include <filesystem>

#include "support/load_fixture.h"
#include "test_bench.h"

namespace trendaro {
namespace {

constexpr i32 kSeconds = 12;
constexpr std::size_t kRows = 12 * 2400;

class DemonstrationFilesTest : public LoadTest {
 protected:
  DemonstrationFilesTest() { EXPECT_TRUE(write_demonstration(folder.path(), kSeconds)); }

  std::vector<f64> channel_of(const std::string& name, i16 channel) {
    EXPECT_EQ(LoadMeasurementFile(model, 1, folder.file(name), channel, 0), LoadStatus::Done);
    std::vector<f64> samples = values();
    // A block file's array is larger than its count.
    if (name.ends_with(".DAT"))
      samples.resize(static_cast<std::size_t>(model.FileChannelPoints.at(static_cast<std::size_t>(channel))));
    return samples;
  }

  TemporaryFolder folder;
};

TEST_F(DemonstrationFilesTest, RecordingHasTheBenchSignals) {
  const TestBench bench(kSeconds);
  for (i16 channel = 1; channel <= 8; ++channel) {
    const BenchSignal& signal = bench_signals[static_cast<std::size_t>(channel) - 1];
    const auto samples = channel_of("Pruefstand.MEA", channel);
    EXPECT_EQ(model.FileChannelNames[channel], signal.name);
    EXPECT_EQ(model.FileChannelUnits[channel], signal.unit);
    ASSERT_EQ(samples.size(), kRows);
    for (std::size_t row = 0; row < kRows; row += 97) {
      const f64 expected =
          bench.raw(static_cast<std::size_t>(channel) - 1, static_cast<i64>(row)) * f64{signal.resolution} +
          f64{signal.zero};
      ASSERT_NEAR(samples[row], expected, std::abs(expected) * 1e-6 + 1e-6) << signal.name << " " << row;
    }
  }
  EXPECT_EQ(model.FileChannelCount, 8);
  EXPECT_FLOAT_EQ(model.FileChannelRates[1], static_cast<f32>(1000.0 / 2400));
  EXPECT_EQ(model.FileDateText, "Tue Mar 09 08:30:00 2021");
}

TEST_F(DemonstrationFilesTest, AllFilesHoldTheSameValues) {
  for (i16 channel = 1; channel <= 8; ++channel) {
    const auto recorded = channel_of("Pruefstand.MEA", channel);
    EXPECT_EQ(channel_of("Pruefstand.BIN", channel), recorded);
    EXPECT_EQ(channel_of("Pruefstand_Block.DAT", channel), recorded);
  }
}

TEST_F(DemonstrationFilesTest, EnvelopeHoldsTheExtremesOfEachBlock) {
  for (i16 signal = 0; signal < 8; ++signal) {
    const auto recorded = channel_of("Pruefstand.MEA", static_cast<i16>(signal + 1));
    const auto lower = channel_of("Pruefstand.STO", static_cast<i16>(2 * signal + 1));
    const auto upper = channel_of("Pruefstand.STO", static_cast<i16>(2 * signal + 2));
    EXPECT_EQ(model.FileChannelCount, 16);
    EXPECT_EQ(model.FileReduceFactor, 100);
    EXPECT_EQ(model.FileChannelNames[2 * signal + 1], bench_signals[static_cast<std::size_t>(signal)].name);
    ASSERT_EQ(lower.size(), kRows / 100);
    ASSERT_EQ(upper.size(), kRows / 100);
    for (std::size_t block = 0; block < kRows / 100; ++block) {
      const auto begin = recorded.begin() + static_cast<std::ptrdiff_t>(block * 100);
      const auto [lowest, highest] = std::minmax_element(begin, begin + 100);
      ASSERT_EQ(lower[block], *lowest);
      ASSERT_EQ(upper[block], *highest);
    }
  }
}

TEST_F(DemonstrationFilesTest, ShocksAreSingleSamples) {
  const auto vibration = channel_of("Pruefstand.MEA", 3);
  int shocks = 0;
  for (std::size_t row = 1; row + 1 < kRows; ++row) {
    if (!is_shock(static_cast<i64>(row))) continue;
    ++shocks;
    EXPECT_GT(vibration[row], 80);
    EXPECT_LT(vibration[row - 1], 40);
    EXPECT_LT(vibration[row + 1], 40);
  }
  EXPECT_GE(shocks, 1);
}

TEST_F(DemonstrationFilesTest, ShorterRunLeavesNothingOfALongerOne) {
  ASSERT_TRUE(write_demonstration(folder.path(), 1));
  EXPECT_EQ(channel_of("Pruefstand_Block.DAT", 8).size(), 2400u);
  EXPECT_EQ(channel_of("Pruefstand.MEA", 8).size(), 2400u);
}

TEST_F(DemonstrationFilesTest, FolderThatIsMissingIsTold) {
  EXPECT_FALSE(write_demonstration(folder.file("fehlt"), 1));
}

}  // namespace
}  // namespace trendaro
