#include "app/memory_channel.h"

#include <algorithm>

namespace trendaro {

i32 channel_length(const MemoryChannel& channel) {
  return static_cast<i32>(channel.samples.size());
}

bool append_samples(MemoryChannel& channel, std::span<const f64> values, i32 capacity) {
  const auto room = static_cast<std::size_t>(std::max(0, capacity - channel_length(channel)));
  const std::size_t taken = std::min(values.size(), room);
  channel.samples.insert(channel.samples.end(), values.begin(), values.begin() + static_cast<i64>(taken));
  return taken == values.size();
}

bool set_length(MemoryChannel& channel, i32 length, i32 capacity) {
  if (length < 0 || length > capacity) return false;
  channel.samples.resize(static_cast<std::size_t>(length), 0.0);
  return true;
}

void empty_channel(MemoryChannel& channel) {
  const i16 selected = channel.export_selected;
  channel = MemoryChannel();
  channel.export_selected = selected;
}

}  // namespace trendaro
