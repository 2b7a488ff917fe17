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

// A model whose result area starts empty with every load; made once, as making it costs more than a load.
class Reader {
 public:
  LoadStatus load(const MemoryFile& file, i16 mode, i16 channel) {
    reset();
    const LoadStatus status =
        LoadMeasurementFile(model_, mode, file.path(), channel, mode == 2 ? kDatabaseChannel : 0);
    require((status == LoadStatus::ReadFailed) == (shell_.messages == 1));
    return status;
  }
  SampleArray range(const MemoryFile& file, i16 channel, i64 first, i64 count) {
    reset();
    SampleArray samples;
    require(LoadSampleRange(model_, file.path(), channel, first, count, samples) == LoadStatus::Done);
    require(shell_.messages == 0);
    return samples;
  }
  [[nodiscard]] const LoaderResult& result() const { return model_; }
  VectorKernel& kernel() { return kernel_; }

 private:
  void reset() {
    static_cast<LoaderResult&>(model_) = {};
    model_.XScratchChannel = kScratchChannel;
    model_.Kernel = &kernel_;
    kernel_.channels.clear();
    shell_.messages = 0;
  }

  SilentShell shell_;
  Model model_{shell_};
  VectorKernel kernel_;
};

// A recording's channels are its columns, whatever its count says.
void check_description(const LoaderResult& result, bool is_recorder) {
  const std::size_t channels = is_recorder
                                   ? result.FileChannelNames.size()
                                   : static_cast<std::size_t>(std::max<i16>(result.FileChannelCount, 0));
  require(result.FileChannelNames.size() >= channels && result.FileChannelUnits.size() >= channels);
  require(result.FileChannelRates.size() >= channels && result.FileChannelPoints.size() >= channels);
}

void check_same_description(const LoaderResult& a, const LoaderResult& b) {
  require(a.FileChannelCount == b.FileChannelCount && a.FileChannelNames == b.FileChannelNames &&
          a.FileChannelUnits == b.FileChannelUnits && a.FileReduceBlock == b.FileReduceBlock &&
          a.FileReduceFactor == b.FileReduceFactor && a.FileCommentText == b.FileCommentText);
}

void check_range(Reader& reader, const MemoryFile& file, i16 channel, std::span<const f64> values, i64 first,
                 i64 count) {
  const SampleArray range = reader.range(file, channel, first, count);
  const i64 size = static_cast<i64>(values.size());
  const i64 begin = std::min(first, size);
  require(static_cast<i64>(range.size()) == std::min(count, size - begin));
  require(starts_with(values.subspan(static_cast<std::size_t>(begin)), range));
}

void check_database(Reader& reader, const MemoryFile& file, i16 channel, std::span<const f64> values,
                    bool is_recorder) {
  const LoadStatus status = reader.load(file, 2, channel);
  const std::vector<f64>& written = reader.kernel().channels[is_recorder ? 0 : kDatabaseChannel];
  // A date that is none ends the load behind the values.
  if (status == LoadStatus::Done) require(written.size() == values.size());
  require(status != LoadStatus::ReadFailed && starts_with(values, written));
}

void check_channel(Reader& reader, const MemoryFile& file, i16 channel, const LoaderResult& description,
                   bool is_recorder) {
  const LoadStatus status = reader.load(file, 1, channel);
  check_same_description(description, reader.result());
  if (status != LoadStatus::Done) return;
  const SampleArray values = reader.result().FileChannelValues;
  const i64 size = static_cast<i64>(values.size());
  check_range(reader, file, channel, values, 0, size + 10);
  if (size == 0) return;
  check_range(reader, file, channel, values, size / 3, size / 2);
  check_database(reader, file, channel, values, is_recorder);
}

}  // namespace

int file_id(std::span<const std::uint8_t> input) {
  i16 id = 0;
  if (input.size() >= sizeof id) std::memcpy(&id, input.data(), sizeof id);
  return id;
}

void check_reading(std::span<const std::uint8_t> input) {
  static Reader reader;
  const MemoryFile file(input);
  const bool is_recorder = file_group(static_cast<i16>(file_id(input))) == FileGroup::Recorder;
  if (reader.load(file, 0, 1) != LoadStatus::Done) {
    require(reader.load(file, 1, 1) != LoadStatus::Done);
    return;
  }
  const LoaderResult description = reader.result();
  check_description(description, is_recorder);
  // A header that claims thousands of channels costs a load of a megabyte each time.
  const auto last = static_cast<i16>(description.FileChannelNames.size());
  if (last > 200) return check_channel(reader, file, 2, description, is_recorder);
  for (const i16 channel : {i16{0}, i16{1}, i16{2}, last})
    check_channel(reader, file, channel, description, is_recorder);
}

}  // namespace trendaro::fuzz
