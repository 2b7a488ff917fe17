#pragma once

#include "app/types.h"

namespace trendaro {

// A failure of one statement. It is thrown inside a reader, a host call or a redraw step and caught by the
// one place that turns it into a status (`LoadMeasurementFile`) or passes it over (`attempt`). It crosses no
// folder.
struct RunTimeError {
  // Never 0. The value becomes the status of the operation that failed.
  i16 number;
};

// Numbers of the failures that this program raises itself.
inline constexpr i16 kInvalidArgument = 5;
inline constexpr i16 kOverflow = 6;
inline constexpr i16 kOutOfMemory = 7;
inline constexpr i16 kIndexOutOfRange = 9;
inline constexpr i16 kDivisionByZero = 11;
inline constexpr i16 kTypeMismatch = 13;
inline constexpr i16 kDeviceError = 57;
inline constexpr i16 kHostCallFailed = 440;
inline constexpr i16 kHostNotCreated = 429;
inline constexpr i16 kHostMemberMissing = 438;

}  // namespace trendaro
