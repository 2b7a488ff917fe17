#pragma once

#include "files/byte_view.h"
#include "files/channel_records.h"

namespace trendaro {

// Bytes of the settings block of one entry of a recorder's channel table.
inline constexpr i64 kSettingsBytes = 225;

// The amplifier settings of the block at `block` (offset in `header`). Fields that a block does not carry
// have their default; fields behind the end of the bytes are zero.
ChannelParamRecord recorder_settings(const ByteView& header, i64 block);

}  // namespace trendaro
