#pragma once

#include <string>

#include "app/types.h"
#include "files/channel_records.h"

namespace trendaro {

struct Model;

// "0.50 ms (2000 Hz)"; the rate is a real of 4 bytes, and a channel without an interval has none.
std::string interval_text(f64 milliseconds);

// The word for a measuring range, which is a parameter id kept as a real.
std::string measuring_range_word(Model& model, f32 range);

// The serial number of the amplifier.
std::string amplifier_serial(const ChannelParamRecord& parameters);

}  // namespace trendaro
