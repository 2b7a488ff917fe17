#include "app/memory_host.h"

#include <algorithm>
#include <limits>
#include <map>

#include "app/host_dialogs.h"
#include "app/host_import.h"
#include "app/memory_channel.h"
#include "app/numbers.h"
#include "app/one_based.h"
#include "app/run_time_error.h"

namespace trendaro {
namespace {

constexpr i16 kFileLength = 3;
constexpr i16 kCloseProgress = 2;
constexpr i16 kExportSelected = 1;
constexpr i32 kDone = 1;
constexpr i32 kFailed = 0;

i16 small(i32 value) {
  if (value < std::numeric_limits<i16>::min() || value > std::numeric_limits<i16>::max())
    throw RunTimeError{kOverflow};
  return static_cast<i16>(value);
}

bool is_text(const HostValue& value) {
  return std::holds_alternative<std::string>(value);
}

}  // namespace

struct MemoryHost::Impl {
  Impl(Shell& user_shell, i16 count, i32 most)
      : shell(user_shell),
        capacity(std::max(0, most)),
        channels(static_cast<std::size_t>(std::max<i16>(0, count))) {}

  Shell& shell;
  i32 capacity;
  OneBased<MemoryChannel> channels;
  std::map<i16, HostValue> import_settings;
  HostImport files;
  std::function<void(const DatabaseSize&)> keep_size = [](const DatabaseSize&) {};

  MemoryChannel& channel(i32 number) {
    if (!channels.has(number)) throw RunTimeError{kIndexOutOfRange};
    return channels[number];
  }
  // Null for a number that the database does not have.
  MemoryChannel* find(i32 number) { return channels.has(number) ? &channels[number] : nullptr; }

  [[nodiscard]] const HostValue& setting(i16 key) const {
    const auto found = import_settings.find(key);
    if (found == import_settings.end()) throw RunTimeError{kInvalidArgument};
    return found->second;
  }

  // Asks for the size of the database and changes it. What has no room is lost.
  void configure();
};

void MemoryHost::Impl::configure() {
  const DatabaseSize size{static_cast<i16>(channels.size()), capacity};
  const DatabaseSize wished = ask_size(shell, channels, size);
  if (wished == size) return;
  channels.resize(static_cast<std::size_t>(wished.channels));
  capacity = wished.samples;
  for (MemoryChannel& channel : channels)
    set_length(channel, std::min(channel_length(channel), capacity), capacity);
  keep_size(wished);
}

MemoryHost::MemoryHost(Shell& shell, i16 channels, i32 capacity)
    : impl_(std::make_unique<Impl>(shell, channels, capacity)) {}

MemoryHost::~MemoryHost() = default;

void MemoryHost::keep_size_with(std::function<void(const DatabaseSize&)> keep) {
  impl_->keep_size = std::move(keep);
}

void MemoryHost::ProgressControl(i16 command) {
  if (command == kCloseProgress) impl_->shell.show_progress(-1);
}

i16 MemoryHost::MaxChannels() {
  return static_cast<i16>(impl_->channels.size());
}

HostValue MemoryHost::GetChannelProperty(i16 channel, i16 property) {
  const MemoryChannel& asked = impl_->channel(channel);
  switch (property) {
    case kChannelName:
      return asked.name;
    case kChannelUnit:
      return asked.unit;
    case kChannelLength:
      return channel_length(asked);
    case kChannelCapacity:
      return impl_->capacity;
    case kChannelExportSelected:
      return asked.export_selected;
    default:
      throw RunTimeError{kInvalidArgument};
  }
}

void MemoryHost::SetChannelProperty(i16 channel, i16 property, const HostValue& value) {
  MemoryChannel& asked = impl_->channel(channel);
  switch (property) {
    case kChannelName:
      asked.name = host_text(value);
      return;
    case kChannelUnit:
      asked.unit = host_text(value);
      return;
    case kChannelLength:
      if (!set_length(asked, host_integer(value), impl_->capacity)) throw RunTimeError{kInvalidArgument};
      return;
    case kChannelExportSelected:
      asked.export_selected = small(host_integer(value));
      return;
    default:  // the capacity belongs to the database and is not to be written
      throw RunTimeError{kInvalidArgument};
  }
}

i32 MemoryHost::GetChannelLength(i16 channel) {
  return channel_length(impl_->channel(channel));
}

void MemoryHost::ReadData64(i16 channel, std::span<f64> values) {
  const SampleArray& samples = impl_->channel(channel).samples;
  std::copy_n(samples.begin(), std::min(samples.size(), values.size()), values.begin());
}

void MemoryHost::SetImportProperty(i16 key, const HostValue& value) {
  if (key < kImportPath || key > kImportSampleCount) throw RunTimeError{kInvalidArgument};
  if (is_text(value) != (key == kImportPath)) throw RunTimeError{kTypeMismatch};
  impl_->import_settings.insert_or_assign(key, value);
}

i32 MemoryHost::GetDataFileInfo(const std::string& path, i16 information, i16 channel) {
  if (information != kFileLength) throw RunTimeError{kInvalidArgument};
  return impl_->files.length(path, channel);
}

void MemoryHost::ExecuteImport() {
  MemoryChannel& target = impl_->channel(host_integer(impl_->setting(kImportTarget)));
  const bool append =
      impl_->import_settings.contains(kImportAppend) && host_integer(impl_->setting(kImportAppend)) != 0;
  SampleSection section;
  section.path = host_text(impl_->setting(kImportPath));
  section.channel = small(host_integer(impl_->setting(kImportSourceChannel)));
  section.first = host_integer(impl_->setting(kImportFirstSample));
  section.count = host_integer(impl_->setting(kImportSampleCount));
  if (!append) target.samples = SampleArray();
  impl_->files.import(section, target, impl_->capacity, impl_->shell);
}

void MemoryHost::ClearChannel(i16 channel) {
  empty_channel(impl_->channel(channel));
}

void MemoryHost::ClearAllChannels() {
  for (MemoryChannel& channel : impl_->channels) empty_channel(channel);
}

void MemoryHost::ShowDialog(i16 dialog, i16 argument) {
  switch (dialog) {
    case kDatabaseConfiguration:
      return impl_->configure();
    case kExportDialog:
      if (argument != kExportSelected) throw RunTimeError{kInvalidArgument};
      return export_channels(impl_->shell, impl_->channels);
    default:
      throw RunTimeError{kHostMemberMissing};
  }
}

i32 MemoryHost::KSD_WriteToDatabaseEx(i16, i32 channel, std::span<const f64> values, i16 append) {
  MemoryChannel* target = impl_->find(channel);
  if (target == nullptr) return kFailed;
  if (append == 0) target->samples.clear();
  return append_samples(*target, values, impl_->capacity) ? kDone : kFailed;
}

i32 MemoryHost::KSD_SetDatabaseChanText(i32 channel, i16 which, const std::string& text) {
  MemoryChannel* target = impl_->find(channel);
  if (target == nullptr) return kFailed;
  switch (which) {
    case kChanName:
      target->name = text;
      return kDone;
    case kChanUnit:
      target->unit = text;
      return kDone;
    case kChanComment:
      target->comment = text;
      return kDone;
    default:
      return kFailed;
  }
}

i32 MemoryHost::KSD_SetDatabaseChanModified(i32 channel, f64 date) {
  MemoryChannel* target = impl_->find(channel);
  if (target == nullptr) return kFailed;
  target->date = date;
  return kDone;
}

i32 MemoryHost::KSD_SetDatabaseChanCurrLen(i32 channel, i32 length) {
  MemoryChannel* target = impl_->find(channel);
  return target != nullptr && set_length(*target, length, impl_->capacity) ? kDone : kFailed;
}

i32 MemoryHost::KSD_GetDatabaseChanCurrLen(i32 channel) {
  const MemoryChannel* target = impl_->find(channel);
  return target == nullptr ? 0 : channel_length(*target);
}

// There is no list of words here: a parameter is shown by its number.
i32 MemoryHost::KSD_ACQTranslateParID(i16 parameter, std::string& buffer) {
  const std::string number = number_text(i64{parameter});
  if (buffer.size() <= number.size()) buffer.resize(number.size() + 1);
  std::copy(number.begin(), number.end(), buffer.begin());
  buffer[number.size()] = '\0';
  return kDone;
}

i32 MemoryHost::DB_QuickMath(i32 target, i32 summand) {
  MemoryChannel* sum = impl_->find(target);
  const MemoryChannel* added = impl_->find(summand);
  if (sum == nullptr || added == nullptr) return kFailed;
  const std::size_t count = std::min(sum->samples.size(), added->samples.size());
  std::transform(sum->samples.begin(), sum->samples.begin() + static_cast<i64>(count), added->samples.begin(),
                 sum->samples.begin(), std::plus<>());
  return kDone;
}

}  // namespace trendaro
