#include "app/host_import.h"

#include <algorithm>

#include "app/attempt.h"
#include "app/model.h"
#include "app/quiet_shell.h"
#include "files/loader.h"

namespace trendaro {
namespace {

// Samples of one read; a section of more reads shows its progress.
constexpr i64 kPiece = i64{1} << 20;

// The part of a section that the channel has room for and that does not lie ahead of the file.
SampleSection cut_to(SampleSection section, i64 room) {
  if (section.first < 0) {
    section.count += section.first;
    section.first = 0;
  }
  section.count = std::clamp<i64>(section.count, 0, std::max<i64>(0, room));
  return section;
}

// How far a long import has come. The display goes with the object, for who asked for the import may be one
// who does not close it, or never comes to that.
class ImportProgress {
 public:
  ImportProgress(Shell& shell, i64 count) : shell_(shell), count_(count) {}
  ~ImportProgress() {
    if (is_long()) attempt([&] { shell_.show_progress(-1); });
  }
  ImportProgress(const ImportProgress&) = delete;
  ImportProgress& operator=(const ImportProgress&) = delete;

  void show(i64 done) {
    if (is_long()) shell_.show_progress(static_cast<f64>(done) / static_cast<f64>(count_));
  }

 private:
  [[nodiscard]] bool is_long() const { return count_ > kPiece; }

  Shell& shell_;
  i64 count_;
};

}  // namespace

struct HostImport::Reader {
  QuietShell shell;
  Model model{shell};
  SampleArray piece;

  // Describes the file in the model; false where it is none or lacks the channel.
  bool open(const std::string& path, i16 channel) {
    return LoadMeasurementFile(model, 0, path, channel, 0) == LoadStatus::Done &&
           model.FileChannelNames.has(channel);
  }

  // Gives a database channel the texts and the time base of the file's channel, where the file has it.
  void describe(i16 channel, MemoryChannel& target) const {
    if (model.FileChannelNames.has(channel)) target.name = model.FileChannelNames[channel];
    if (model.FileChannelUnits.has(channel)) target.unit = model.FileChannelUnits[channel];
    if (model.FileChannelRates.has(channel)) target.sample_interval = model.FileChannelRates[channel];
  }

  // Samples of the channel, which tell themselves only in the values of a block file.
  i32 points(const std::string& path, i16 channel) {
    const auto slot = static_cast<std::size_t>(channel);
    const i32 told = slot <= model.FileChannelPoints.size() ? model.FileChannelPoints[slot - 1] : 0;
    if (told >= 0) return told;
    const LoadStatus status = LoadMeasurementFile(model, 1, path, channel, 0);
    const auto found = static_cast<i32>(model.FileChannelValues.size());
    model.FileChannelValues = SampleArray();
    return status == LoadStatus::Done || status == LoadStatus::ReadFailed ? found : 0;
  }
};

HostImport::HostImport() : reader_(std::make_unique<Reader>()) {}

HostImport::~HostImport() = default;

i32 HostImport::length(const std::string& path, i16 channel) {
  return reader_->open(path, channel) ? reader_->points(path, channel) : 0;
}

void HostImport::import(const SampleSection& section, MemoryChannel& target, i32 capacity, Shell& shell) {
  const SampleSection wanted = cut_to(section, i64{capacity} - channel_length(target));
  ImportProgress progress(shell, wanted.count);
  i64 done = 0;
  do {
    progress.show(done);
    const i64 count = std::min(kPiece, wanted.count - done);
    const LoadStatus status = LoadSampleRange(reader_->model, wanted.path, wanted.channel,
                                              wanted.first + done, count, reader_->piece);
    if (status != LoadStatus::Done && status != LoadStatus::ReadFailed) break;
    reader_->describe(wanted.channel, target);
    append_samples(target, reader_->piece, capacity);
    if (static_cast<i64>(reader_->piece.size()) < count) break;
    done += count;
  } while (done < wanted.count);
  reader_->piece = SampleArray();
}

}  // namespace trendaro
