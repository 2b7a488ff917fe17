#pragma once

#include <cstring>
#include <filesystem>
#include <span>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "app/model.h"
#include "app/run_time_error.h"
#include "files/loader.h"
#include "support/file_builder.h"
#include "support/recording_kernel.h"
#include "support/recording_shell.h"

namespace trendaro {

// A model with a recording user and a recording database, and files to load.
class LoadTest : public ::testing::Test {
 protected:
  LoadTest() { model.Kernel = &kernel; }

  LoadStatus load(const std::string& bytes, i16 mode, i16 channel, i32 database_channel = 0) {
    file.rewrite(bytes);
    return LoadMeasurementFile(model, mode, file.path(), channel, database_channel);
  }
  LoadStatus load(const FileBuilder& builder, i16 mode, i16 channel, i32 database_channel = 0) {
    return load(builder.bytes(), mode, channel, database_channel);
  }
  // The values that mode 1 left.
  [[nodiscard]] std::vector<f64> values() const {
    return {model.FileChannelValues.begin(), model.FileChannelValues.end()};
  }
  // A range of the file loaded last.
  std::vector<f64> range(i16 channel, i64 first, i64 count) {
    SampleArray samples;
    range_status = LoadSampleRange(model, file.path(), channel, first, count, samples);
    return {samples.begin(), samples.end()};
  }

  RecordingShell shell;
  RecordingKernel kernel;
  Model model{shell};
  TemporaryFile file{std::string_view()};
  LoadStatus range_status = LoadStatus::Done;
};

// Status of a run-time error.
inline LoadStatus run_time_error(i16 number) {
  return static_cast<LoadStatus>(number);
}

// Passes the values of the channel that mode 1 has just loaded with `status`: the same values, words and
// status.
inline void expect_passing_to_give_what_was_loaded(Model& model, const std::string& path, i16 channel,
                                                   LoadStatus status, RecordingShell& shell) {
  const SampleArray loaded = std::exchange(model.FileChannelValues, {});
  const std::vector<std::string> messages = shell.messages();
  shell.calls.clear();
  std::vector<f64> passed;
  const auto take = [&](std::span<const f64> run) { passed.insert(passed.end(), run.begin(), run.end()); };
  EXPECT_EQ(PassMeasurementValues(model, path, channel, take), status);
  EXPECT_EQ(shell.messages(), messages);
  EXPECT_TRUE(model.FileChannelValues.empty());
  ASSERT_EQ(passed.size(), loaded.size());
  const bool same =
      passed.empty() || std::memcmp(passed.data(), loaded.data(), passed.size() * sizeof(f64)) == 0;
  EXPECT_TRUE(same);
  model.FileChannelValues = loaded;
}

// Cuts a file to every length from whole to empty and loads description, values and a range of each channel
// from 0 to `channels` + 1. No load may deliver more than the bytes there can hold, and what a range gives is
// what the whole load gives.
inline void expect_every_cut_to_be_harmless(const std::string& bytes, i16 channels) {
  const TemporaryFile file{std::string_view(bytes)};
  RecordingShell shell;
  Model model(shell);
  for (std::size_t size = bytes.size() + 1; size-- > 0;) {
    std::filesystem::resize_file(file.path(), size);
    for (i16 channel = 0; channel <= channels + 1; ++channel) {
      SCOPED_TRACE("cut at " + std::to_string(size) + ", channel " + std::to_string(channel));
      shell.calls.clear();
      model.FileChannelValues.clear();
      const LoadStatus description = LoadMeasurementFile(model, 0, file.path(), channel, 0);
      EXPECT_TRUE(size >= 2 || description == LoadStatus::NotMeasurement);
      const LoadStatus status = LoadMeasurementFile(model, 1, file.path(), channel, 0);
      EXPECT_EQ(status == LoadStatus::ReadFailed, !shell.messages().empty());
      expect_passing_to_give_what_was_loaded(model, file.path(), channel, status, shell);
      SampleArray part;
      static_cast<void>(LoadSampleRange(model, file.path(), channel, 1, 3, part));
      EXPECT_LE(part.size(), 3u);
      if (status != LoadStatus::Done) continue;
      const SampleArray& all = model.FileChannelValues;
      EXPECT_LE(all.size(), bytes.size() / 2);
      const std::size_t there = std::min<std::size_t>(all.size() > 1 ? all.size() - 1 : 0, 3);
      ASSERT_EQ(part.size(), there);
      for (std::size_t i = 0; i < there; ++i) EXPECT_EQ(std::memcmp(&part[i], &all[i + 1], sizeof(f64)), 0);
    }
  }
}

}  // namespace trendaro
