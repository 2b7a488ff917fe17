#pragma once

#include <array>
#include <string_view>

#include "app/types.h"

namespace trendaro {

// One bit of a recorder entry's signal mask.
struct RecorderSignal {
  i16 parameter;          // parameter id for MeasuredSignal
  std::string_view word;  // as a user reads it, with its blank; no part of a channel's name
};

// Bit 0 to 5.
inline constexpr std::array<RecorderSignal, 6> kRecorderSignals = {{
    {214, " (Brutto)"},
    {215, " (Netto)"},
    {204, " (SPW1)"},
    {205, " (SPW2)"},
    {217, " (S5)"},
    {289, " (remote in)"},
}};

// Sample rate in hertz of a recorder's rate code; 1 for an unknown code.
f32 recorder_rate(i32 code);

// The rate as the reader counts it: to the nearest integer, ties to even, and 1 where that gives 0.
i32 whole_recorder_rate(i32 code);

// Parameter id of an amplifier code, 0 for an unknown one.
i16 recorder_amplifier_type(u8 code);

}  // namespace trendaro
