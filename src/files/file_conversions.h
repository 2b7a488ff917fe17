#pragma once

#include <string>
#include <string_view>

#include "app/types.h"
#include "files/input_file.h"

namespace trendaro {

// Size of an open file in bytes.
f64 FileSizeAsReal(const InputFile& file);

// True when all 32 bits of the field are set, which marks a scale that is missing.
bool IsAllOnes(f32 field);

// The text ahead of its first NUL, without blanks at its right end.
std::string CutAtNul(std::string_view text);

// Turns "weekday month day time year" ("Fri Mar 05 12:34:56 2021") into "month day year time". Counts
// characters of UTF-8; a text that is shorter gives what the same cuts leave of it.
std::string RecorderDateToText(std::string_view text);

}  // namespace trendaro
