#pragma once

#include <string>
#include <string_view>

#include "app/types.h"

namespace trendaro {

// Hardware channels of a recorder's channel table lie below this one.
inline constexpr i32 kTimeChannel = 17;
inline constexpr i32 kTimeCarryChannel = 18;

// Bytes of the name field of a settings block.
inline constexpr std::size_t kNameFieldBytes = 47;

struct RecorderName {
  std::string name, comment;  // UTF-8
};

// Divides a name field ("\"Name;Comment\"", bytes of the file) into name and comment. A field without a quote
// at its start has no name; an empty name becomes "TLQ CH channel.sub", and time channels have fixed names.
RecorderName split_recorder_name(std::string_view field, i32 entry_channel, i32 sub_channel);

}  // namespace trendaro
