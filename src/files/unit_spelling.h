#pragma once

#include <string>
#include <string_view>

#include "app/types.h"

namespace trendaro {

// A unit of the recorder's amplifiers in the spelling that is shown, or (with `toDisplay` 0) back in the
// spelling of the device. UTF-8; in the device's texts the characters 248 and 230 stand for "°" and "µ".
//
// To the display: NULs count as blanks, outer blanks go, a unit of the device's list takes its display form.
// In a text that is not in the list one character at most changes: the first 248, else the first 230, else
// the letter ahead of the first "C" of "pC" or "F" of "pF". To the device: padded on the left to four
// characters; one "°" and one "µ" change.
std::string ConvertUnitSpelling(std::string_view text, i16 toDisplay);

}  // namespace trendaro
