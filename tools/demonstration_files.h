#pragma once

#include <string>

#include "app/types.h"

namespace trendaro {

// Rows behind one pair of the reduced recording.
inline constexpr i32 kBenchReduceFactor = 100;

// The longest run whose rows a file can count.
inline constexpr i32 kLongestBenchSeconds = 800'000;

// Writes one run of `seconds` (1 to kLongestBenchSeconds) into the folder, which must be there:
//   Pruefstand.MEA        recording of raw i16 samples
//   Pruefstand.STO        its envelope
//   Pruefstand.BIN        standard file with the values of the recording
//   Pruefstand_Block.DAT  the same as a block file
//   Dauerlauf.ME1, .ST1   recording and envelope as the second recorder unit names them
// Memory does not grow with the length. False when a file could not be written.
bool write_demonstration(const std::string& folder, i32 seconds);

}  // namespace trendaro
