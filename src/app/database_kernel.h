#pragma once

#include <span>
#include <string>

#include "app/types.h"

namespace trendaro {

// Kinds of KSD_SetDatabaseChanText.
inline constexpr i16 kChanName = 0;
inline constexpr i16 kChanUnit = 1;
inline constexpr i16 kChanComment = 2;

// The database kernel that the file loader writes channels through. It works on the same channels as the
// host's database; `channel` counts from 1 (a recorder load in mode 2 names channel 0). Every result goes to
// LastDatabaseStatus. A function that the kernel lacks throws RunTimeError.
class DatabaseKernel {
 public:
  virtual ~DatabaseKernel() = default;

  // Writes `values` into a channel: `append` 0 replaces what it holds, -1 adds to its end. Returns 0 when the
  // write failed. `one` is always 1.
  virtual i32 KSD_WriteToDatabaseEx(i16 one, i32 channel, std::span<const f64> values, i16 append) = 0;
  // Sets name, unit or comment (kChanName, ...); UTF-8.
  virtual i32 KSD_SetDatabaseChanText(i32 channel, i16 which, const std::string& text) = 0;
  // Marks a channel as changed and sets its date stamp, a day number.
  virtual i32 KSD_SetDatabaseChanModified(i32 channel, f64 date) = 0;
  // Sets the current length in samples.
  virtual i32 KSD_SetDatabaseChanCurrLen(i32 channel, i32 length) = 0;
  // The current length in samples.
  virtual i32 KSD_GetDatabaseChanCurrLen(i32 channel) = 0;
  // Fills `buffer` (128 blanks from the caller) with the word for a hardware parameter, ended by a zero byte.
  virtual i32 KSD_ACQTranslateParID(i16 parameter, std::string& buffer) = 0;
  // Adds the samples of `summand` to those of `target`, as far as both go.
  virtual i32 DB_QuickMath(i32 target, i32 summand) = 0;
};

}  // namespace trendaro
