#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>

#include <gtest/gtest.h>

#include "app/model.h"
#include "app/run_time_error.h"
#include "faults/fault_injection.h"
#include "files/loader.h"
#include "files/recorder_reader.h"
#include "files/reducer.h"
#include "files/section_writer.h"
#include "support/block_builder.h"
#include "support/file_builder.h"
#include "support/recorder_builder.h"
#include "support/recording_kernel.h"
#include "support/recording_shell.h"
#include "support/reducible_files.h"
#include "support/silent_shell.h"
#include "support/standard_builder.h"

namespace trendaro {
namespace {

// What an operation gave: whether it told success, and then everything it delivered.
struct Outcome {
  bool done = false;
  std::string delivered = {};
};

// Runs one operation once, with the plan at work during nothing but the call itself.
using Operation = std::function<Outcome(FaultPlan)>;

// Strikes call after call until none is left. Success may be told only where the result is the untouched one.
void strike_every_call(const Operation& operation, FaultPlan plan, const Outcome& untouched) {
  for (plan.first = 1;; ++plan.first) {
    const int descriptors = open_descriptors();
    const Outcome outcome = operation(plan);
    ASSERT_EQ(open_descriptors(), descriptors) << "call " << plan.first;
    if (struck_calls() == 0 || plan.fault != Fault::Error) {
      ASSERT_TRUE(outcome.done) << "call " << plan.first;
    }
    ASSERT_TRUE(!outcome.done || outcome.delivered == untouched.delivered)
        << "half a success: call " << plan.first << (plan.from_then_on ? " and on" : "");
    if (struck_calls() == 0) return;
    ASSERT_LT(plan.first, 100000) << "the operation does not come to an end";
  }
}

void expect_faults_are_told(const Operation& operation) {
  const Outcome untouched = operation({});
  ASSERT_TRUE(untouched.done);
  ASSERT_FALSE(untouched.delivered.empty());
  strike_every_call(operation, {.fault = Fault::Error}, untouched);
  strike_every_call(operation, {.fault = Fault::Error, .from_then_on = true}, untouched);
  strike_every_call(operation, {.fault = Fault::Interrupted}, untouched);
  strike_every_call(operation, {.fault = Fault::Partial}, untouched);
  strike_every_call(operation, {.fault = Fault::Partial, .from_then_on = true}, untouched);
}

std::vector<f64> wave(int count) {
  std::vector<f64> samples;
  for (int i = 0; i < count; ++i) samples.push_back(std::sin(i * 0.01) * 100);
  return samples;
}

std::string bytes_of(std::span<const f64> values) {
  return {reinterpret_cast<const char*>(values.data()), values.size_bytes()};
}

std::string description(const Model& model) {
  std::string text = model.FileDateText + '|' + model.FileCommentText;
  for (const std::string& name : model.FileChannelNames) text += '|' + name;
  for (const std::string& unit : model.FileChannelUnits) text += '|' + unit;
  for (const i32 points : model.FileChannelPoints) text += '|' + std::to_string(points);
  return text + '|';
}

Operation load(const std::string& path, i16 channel) {
  return [=](FaultPlan plan) -> Outcome {
    SilentShell shell;
    Model model(shell);
    LoadStatus status = LoadStatus::Done;
    {
      const FaultsAtWork faults(plan);
      status = LoadMeasurementFile(model, 1, path, channel, 0);
    }
    if (status != LoadStatus::Done) return {};
    return {true, description(model) + bytes_of(model.FileChannelValues)};
  };
}

// A load of values whose read number `first` fails: the status, and what the user was told.
struct FailedLoad {
  LoadStatus status;
  std::vector<std::string> messages;
  std::size_t values;
  std::vector<std::string> kernel_calls;
};

FailedLoad load_with_error(const std::string& path, i16 channel, FaultPlan plan, i16 mode = 1) {
  RecordingShell shell;
  Model model(shell);
  RecordingKernel kernel;
  model.Kernel = &kernel;
  model.FileChannelValues = {42};
  LoadStatus status = LoadStatus::Done;
  {
    const FaultsAtWork faults(plan);
    status = LoadMeasurementFile(model, mode, path, channel, 3);
  }
  return {status, shell.messages(), model.FileChannelValues.size(), kernel.calls};
}

Operation load_range(const std::string& path, i16 channel) {
  return [=](FaultPlan plan) -> Outcome {
    SilentShell shell;
    Model model(shell);
    SampleArray range;
    LoadStatus status = LoadStatus::Done;
    {
      const FaultsAtWork faults(plan);
      status = LoadSampleRange(model, path, channel, 3, 700, range);
    }
    if (status != LoadStatus::Done) return {};
    return {true, description(model) + bytes_of(range)};
  };
}

// `write` gives whether it told success.
Operation write_target(const std::string& target, std::function<bool()> write) {
  return [=](FaultPlan plan) -> Outcome {
    std::filesystem::remove(target);
    bool done = false;
    {
      const FaultsAtWork faults(plan);
      done = write();
    }
    return done ? Outcome{true, read_file(target)} : Outcome{};
  };
}

Operation reduce(const std::string& source, const std::string& target) {
  return write_target(
      target, [=] { return ReduceStandardFile(source, target, 10, [](f64) {}) == ReduceStatus::Done; });
}

FileBuilder standard_file() {
  return StandardFile{.channels = {{.samples = wave(1000)}, {.name = "Weg", .samples = wave(9000)}}}.build();
}

FileBuilder block_file() {
  return BlockFile{.channels = {{.samples = wave(3000)}, {.name = "Weg", .samples = wave(4000)}}}.build();
}

FileBuilder recording(i32 id) {
  RecorderBuilder file;
  file.id = id;
  file.row_count = 1200;
  file.entries.resize(2);
  file.entries[0].name_field = quoted_name("Druck");
  file.entries[1].unit = "BAR";
  for (int value = 0; value < 2 * file.row_count; ++value) {
    if (id == 6011)
      file.data.f64_field(value);
    else
      file.data.i16_field(static_cast<i16>(value));
  }
  return file.build();
}

TEST(FaultsTest, LoadingAStandardFile) {
  const TemporaryFile file(standard_file());
  expect_faults_are_told(load(file.path(), 2));
}

TEST(FaultsTest, AnErrorAmongTheValuesIsToldOnceAsAFailedRead) {
  const TemporaryFile file(standard_file());
  int failed_reads = 0;
  for (int first = 1;; ++first) {
    const FailedLoad load = load_with_error(file.path(), 2, {.fault = Fault::Error, .first = first});
    if (struck_calls() == 0) break;
    if (load.status != LoadStatus::ReadFailed) {
      EXPECT_TRUE(load.messages.empty()) << "call " << first;
      continue;
    }
    ++failed_reads;
    EXPECT_EQ(load.messages, std::vector<std::string>{"Trendaro: Fehler beim Lesen der Daten aufgetreten!"});
    EXPECT_LT(load.values, 9000u);
  }
  EXPECT_GE(failed_reads, 1);
}

TEST(FaultsTest, ABadPlaceOnTheDiskCostsOnlyWhatLiesBehindIt) {
  const FileBuilder whole = standard_file();
  const TemporaryFile file(whole);
  const auto values_begin = static_cast<long long>(whole.size()) - 10000 * 8;
  for (const int sound : {0, 1, 100, 511, 999}) {
    const FaultPlan plan{.bad_place = values_begin + sound * 8 + 3};
    EXPECT_EQ(load_with_error(file.path(), 1, plan, 0).status, LoadStatus::Done) << sound;
    const FailedLoad load = load_with_error(file.path(), 1, plan);
    EXPECT_EQ(load.status, LoadStatus::ReadFailed) << sound;
    EXPECT_EQ(load.messages.size(), 1u);
    EXPECT_EQ(load.values, static_cast<std::size_t>(sound));
  }
  const FaultPlan behind{.bad_place = values_begin + 8000};
  EXPECT_EQ(load_with_error(file.path(), 1, behind).status, LoadStatus::Done);
}

TEST(FaultsTest, ABadPlaceAmongTextsIsAFailedRead) {
  StandardFileLayout standard;
  standard.channels = {{.kind = 1, .texts = std::vector<std::string>(5000, "offen")}, {.values = wave(100)}};
  const TemporaryFile file(standard.build());
  const auto texts_begin = static_cast<long long>(standard.header().size());
  const FaultPlan plan{.bad_place = texts_begin + 20000};
  for (const i16 channel : std::initializer_list<i16>{1, 2})
    for (const i16 mode : std::initializer_list<i16>{1, 2}) {
      const FailedLoad load = load_with_error(file.path(), channel, plan, mode);
      EXPECT_EQ(load.status, LoadStatus::ReadFailed);
      EXPECT_EQ(load.messages,
                std::vector<std::string>{"Trendaro: Fehler beim Lesen der Daten aufgetreten!"});
      EXPECT_EQ(load.values, 0u);
      EXPECT_TRUE(load.kernel_calls.empty());
    }
  SilentShell shell;
  Model model(shell);
  SampleArray range;
  const FaultsAtWork faults(plan);
  EXPECT_EQ(LoadSampleRange(model, file.path(), 2, 0, 10, range), LoadStatus::ReadFailed);
  EXPECT_TRUE(range.empty());
}

TEST(FaultsTest, AChannelOfABlockFileThatIsReadInPartIsNotDescribedToTheDatabase) {
  for (const u8 fixed : std::initializer_list<u8>{0, 1}) {
    BlockFileLayout block{.id = 5003, .channels = {{.name = "Weg"}}};
    block.channels[0].record.FixedBlockFlag = fixed;
    FileBuilder bytes = block.header();
    const auto data_begin = static_cast<long long>(bytes.size());
    for (int round = 0; round < 20; ++round) add_block(bytes, wave(1000));
    const TemporaryFile file(bytes);
    const FailedLoad sound = load_with_error(file.path(), 1, {}, 2);
    EXPECT_EQ(sound.status, LoadStatus::Done);
    EXPECT_EQ(sound.kernel_calls.back(), "modified 3: 0");
    const FailedLoad load = load_with_error(file.path(), 1, {.bad_place = data_begin + 50000}, 2);
    EXPECT_EQ(load.status, static_cast<LoadStatus>(kDeviceError));
    EXPECT_FALSE(load.kernel_calls.empty());
    for (const std::string& call : load.kernel_calls) EXPECT_EQ(call.substr(0, 7), "write 3");
  }
}

TEST(FaultsTest, LoadingABlockFile) {
  const TemporaryFile file(block_file());
  expect_faults_are_told(load(file.path(), 2));
}

TEST(FaultsTest, LoadingABlockFileOfFixedBlocks) {
  FileBuilder bytes = block_file();
  const std::size_t header = BlockFile{.channels = {{}, {.name = "Weg"}}}.header().size();
  bytes.patch(header - 152 + 122, u8{1});
  const TemporaryFile file(bytes);
  expect_faults_are_told(load(file.path(), 1));
}

TEST(FaultsTest, LoadingARecordingOfRawSamples) {
  const TemporaryFile file(recording(6001));
  expect_faults_are_told(load(file.path(), 2));
}

TEST(FaultsTest, LoadingARecordingOfDoubles) {
  const TemporaryFile file(recording(6011));
  expect_faults_are_told(load(file.path(), 2));
}

// Status of `operation` with one call after the other struck.
template <typename Run>
auto statuses_of(Run run) {
  std::vector<decltype(run())> statuses;
  for (int first = 1; first < 1000; ++first) {
    {
      const FaultsAtWork faults({.fault = Fault::Error, .first = first});
      statuses.push_back(run());
    }
    if (struck_calls() == 0) break;
  }
  return statuses;
}

TEST(FaultsTest, AnIdThatCannotBeReadIsThatOfNoRecording) {
  const TemporaryFile file(recording(6001));
  RecordingShell shell;
  Model model(shell);
  const auto loads = statuses_of([&] { return LoadRecorderFile(model, 1, file.path(), 2, 0); });
  EXPECT_EQ(std::count(loads.begin(), loads.end(), LoadStatus::NotMeasurement), 1);
  EXPECT_EQ(loads.back(), LoadStatus::Done);

  const TemporaryFolder folder;
  const std::string target = folder.file("lauf.MEA");
  const auto sections = statuses_of([&] { return WriteSectionFile(file.path(), target, 100, 700); });
  EXPECT_EQ(std::count(sections.begin(), sections.end(), SectionStatus::NotRecording), 1);
  EXPECT_EQ(sections.back(), SectionStatus::Done);
}

TEST(FaultsTest, LoadingRangesOfAStandardFile) {
  const TemporaryFile file(standard_file());
  expect_faults_are_told(load_range(file.path(), 2));
}

TEST(FaultsTest, LoadingRangesOfABlockFile) {
  const TemporaryFile file(block_file());
  expect_faults_are_told(load_range(file.path(), 2));
}

TEST(FaultsTest, LoadingRangesOfARecording) {
  const TemporaryFile file(recording(6001));
  expect_faults_are_told(load_range(file.path(), 2));
}

TEST(FaultsTest, ReducingAStandardFile) {
  const TemporaryFile file(standard_file());
  const TemporaryFolder folder;
  expect_faults_are_told(reduce(file.path(), folder.file("lauf.REB")));
}

TEST(FaultsTest, ReducingABlockFile) {
  const TemporaryFile file(block_file());
  const TemporaryFolder folder;
  expect_faults_are_told(reduce(file.path(), folder.file("lauf.REB")));
}

TEST(FaultsTest, WritingASection) {
  const TemporaryFile file(recording(6001));
  const TemporaryFolder folder;
  const std::string target = folder.file("lauf.MEA");
  expect_faults_are_told(write_target(
      target, [&] { return WriteSectionFile(file.path(), target, 100, 700) == SectionStatus::Done; }));
}

// Whatever fails, a source that is its own target keeps its bytes.
TEST(FaultsTest, SourceAsTargetIsNeverHarmed) {
  const TemporaryFile standard(standard_file());
  const TemporaryFile recorder(recording(6001));
  for (const bool from_then_on : {false, true})
    for (int first = 1; first < 40; ++first) {
      const FaultPlan plan{.fault = Fault::Error, .first = first, .from_then_on = from_then_on};
      {
        const FaultsAtWork faults(plan);
        EXPECT_EQ(ReduceStandardFile(standard.path(), standard.path(), 10, [](f64) {}), ReduceStatus::Failed);
      }
      {
        const FaultsAtWork faults(plan);
        EXPECT_NE(WriteSectionFile(recorder.path(), recorder.path(), 1, 10), SectionStatus::Done);
      }
      ASSERT_TRUE(read_file(standard.path()) == standard_file().bytes()) << first;
      ASSERT_TRUE(read_file(recorder.path()) == recording(6001).bytes()) << first;
    }
}

}  // namespace
}  // namespace trendaro
