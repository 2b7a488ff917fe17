#pragma once

#include <span>
#include <string>
#include <variant>

#include "app/types.h"

namespace trendaro {

// The value of a channel property or an import setting.
using HostValue = std::variant<std::string, i16, i32, f64, bool>;

// Ids of channel properties.
inline constexpr i16 kChannelName = 1;               // string
inline constexpr i16 kChannelUnit = 2;               // string
inline constexpr i16 kChannelLength = 5;             // i32, samples; 0 means the channel is free
inline constexpr i16 kChannelCapacity = 100;         // i32, the most samples that the channel takes
inline constexpr i16 kChannelExportSelected = 1000;  // i16, 1 selected for the host's export, 0 not

// Keys of import settings, held by the host until ExecuteImport.
inline constexpr i16 kImportPath = 1;           // string, full path
inline constexpr i16 kImportFixedWord = 2;      // i16, always 0
inline constexpr i16 kImportAppend = 3;         // boolean, true adds to what the channel holds
inline constexpr i16 kImportTarget = 4;         // i16, database channel
inline constexpr i16 kImportSourceChannel = 5;  // i16 or f64, channel inside the file
inline constexpr i16 kImportFirstSample = 6;    // i32
inline constexpr i16 kImportSampleCount = 7;    // i32

// Ids of the host's dialogs.
inline constexpr i16 kDatabaseConfiguration = 6;
inline constexpr i16 kExportDialog = 5;

// The host's database: numbered channels, from 1 to MaxChannels(). Every call is synchronous. A call that the
// host refuses, or a member that it lacks, throws RunTimeError; each caller has its own policy for that.
class HostDatabase {
 public:
  virtual ~HostDatabase() = default;

  // Number of database channels.
  virtual i16 MaxChannels() = 0;
  virtual HostValue GetChannelProperty(i16 channel, i16 property) = 0;
  virtual void SetChannelProperty(i16 channel, i16 property, const HostValue& value) = 0;
  // Current length in samples.
  virtual i32 GetChannelLength(i16 channel) = 0;
  // Copies the channel's samples, at most values.size() of them, into `values`, which the caller has sized
  // with GetChannelLength.
  virtual void ReadData64(i16 channel, std::span<f64> values) = 0;
  // Stores one import setting.
  virtual void SetImportProperty(i16 key, const HostValue& value) = 0;
  // Samples of one channel of a file. `information` is 3, the only one in use; `channel` is 1-based.
  virtual i32 GetDataFileInfo(const std::string& path, i16 information, i16 channel) = 0;
  // Imports with the stored settings; blocks until it is done.
  virtual void ExecuteImport() = 0;
  virtual void ClearChannel(i16 channel) = 0;
  virtual void ClearAllChannels() = 0;
  // Shows a dialog of the host, modal. `argument` is 1 for kExportDialog and 0 where there is none.
  virtual void ShowDialog(i16 dialog, i16 argument) = 0;
};

// The automation object of the host application.
class MervanHost {
 public:
  virtual ~MervanHost() = default;
  virtual HostDatabase& DB() = 0;
  // 2 closes the progress display of an import.
  virtual void ProgressControl(i16 command) = 0;
};

// A property as i32. Throws RunTimeError{kTypeMismatch} when it is a text or does not fit.
i32 host_integer(const HostValue& value);
// A property as text. Numbers are printed.
std::string host_text(const HostValue& value);

}  // namespace trendaro
