#include "reading_properties.h"

#include <bit>
#include <cmath>
#include <cstring>

#include "app/model.h"
#include "files/file_group.h"
#include "files/loader.h"
#include "memory_file.h"
#include "support/silent_shell.h"
#include "vector_kernel.h"

namespace trendaro::fuzz {
namespace {

constexpr i32 kDatabaseChannel = 3;
constexpr i32 kScratchChannel = 9;

bool same(f64 a, f64 b) {
  return std::bit_cast<u64>(a) == std::bit_cast<u64>(b) || (std::isnan(a) && std::isnan(b));
}

bool starts_with(std::span<const f64> values, std::span<const f64> start) {
  return start.size() <= values.size() && std::equal(start.begin(), start.end(), values.begin(), same);
}

struct Loaded {
  SilentShell shell;
  Model model{shell};
  LoadStatus status = LoadStatus::Done;

  Loaded(const MemoryFile& file, i16 mode, i16 channel, VectorKernel* kernel = nullptr) {
    model.Kernel = kernel;
    model.XScratchChannel = kScratchChannel;
    status = LoadMeasurementFile(model, mode, file.path(), channel, mode == 2 ? kDatabaseChannel : 0);
    require((status == LoadStatus::ReadFailed) == (shell.messages == 1));
  }
};

void check_description(const Loaded& loaded) {
  if (loaded.status != LoadStatus::Done) return;
  const Model& model = loaded.model;
  const auto channels = static_cast<std::size_t>(std::max<i16>(model.FileChannelCount, 0));
  require(model.FileChannelNames.size() >= channels && model.FileChannelUnits.size() >= channels);
  require(model.FileChannelRates.size() >= channels && model.FileChannelPoints.size() >= channels);
}

void check_same_description(const Model& a, const Model& b) {
  require(a.FileChannelCount == b.FileChannelCount && a.FileChannelNames == b.FileChannelNames &&
          a.FileChannelUnits == b.FileChannelUnits && a.FileReduceBlock == b.FileReduceBlock &&
          a.FileReduceFactor == b.FileReduceFactor && a.FileCommentText == b.FileCommentText);
}

void check_range(const MemoryFile& file, i16 channel, std::span<const f64> values, i64 first, i64 count) {
  SilentShell shell;
  Model model(shell);
  SampleArray range;
  require(LoadSampleRange(model, file.path(), channel, first, count, range) == LoadStatus::Done);
  const i64 size = static_cast<i64>(values.size());
  const i64 begin = std::min(first, size);
  const i64 there = std::min(count, size - begin);
  require(static_cast<i64>(range.size()) == there);
  require(starts_with(values.subspan(static_cast<std::size_t>(begin)), range));
  require(shell.messages == 0);
}

void check_database(const MemoryFile& file, i16 channel, std::span<const f64> values, bool is_recorder) {
  VectorKernel kernel;
  const Loaded loaded(file, 2, channel, &kernel);
  const std::vector<f64>& written = kernel.channels[is_recorder ? 0 : kDatabaseChannel];
  // A date that is none ends the load behind the values.
  if (loaded.status == LoadStatus::Done) require(written.size() == values.size());
  require(loaded.status != LoadStatus::ReadFailed && starts_with(values, written));
}

void check_channel(const MemoryFile& file, i16 channel, const Loaded& description, bool is_recorder) {
  const Loaded loaded(file, 1, channel);
  if (description.status != LoadStatus::Done) {
    require(loaded.status != LoadStatus::Done);
    return;
  }
  check_same_description(description.model, loaded.model);
  if (loaded.status != LoadStatus::Done) return;
  const std::span<const f64> values = loaded.model.FileChannelValues;
  const i64 size = static_cast<i64>(values.size());
  check_database(file, channel, values, is_recorder);
  check_range(file, channel, values, 0, size + 10);
  check_range(file, channel, values, size / 3, size / 2);
  check_range(file, channel, values, size, 1);
}

}  // namespace

int file_id(std::span<const std::uint8_t> input) {
  i16 id = 0;
  if (input.size() >= sizeof id) std::memcpy(&id, input.data(), sizeof id);
  return id;
}

void check_reading(std::span<const std::uint8_t> input) {
  const MemoryFile file(input);
  const bool is_recorder = file_group(static_cast<i16>(file_id(input))) == FileGroup::Recorder;
  const Loaded description(file, 0, 1);
  check_description(description);
  for (const i16 channel : {i16{0}, i16{1}, i16{2}, description.model.FileChannelCount, i16{32767}})
    check_channel(file, channel, description, is_recorder);
}

}  // namespace trendaro::fuzz
