#pragma once

#include <functional>
#include <memory>

#include "app/database_kernel.h"
#include "app/host.h"
#include "app/shell.h"

namespace trendaro {

// The embedded host: database channels in memory and the kernel functions on the same channels. A channel
// takes memory when it is filled, not before. Imports read only the asked range of the file.
class MemoryHost : public MervanHost, public HostDatabase, public DatabaseKernel {
 public:
  // `channels` database channels (from 1) that take `capacity` samples each. The shell shows the progress of
  // imports.
  explicit MemoryHost(Shell& shell, i16 channels = DatabaseSize().channels,
                      i32 capacity = DatabaseSize().samples);
  ~MemoryHost() override;

  // `keep` is told the new size of the database when the user has changed it.
  void keep_size_with(std::function<void(const DatabaseSize&)> keep);

  HostDatabase& DB() override { return *this; }
  void ProgressControl(i16 command) override;

  i16 MaxChannels() override;
  HostValue GetChannelProperty(i16 channel, i16 property) override;
  void SetChannelProperty(i16 channel, i16 property, const HostValue& value) override;
  i32 GetChannelLength(i16 channel) override;
  void ReadData64(i16 channel, std::span<f64> values) override;
  void SetImportProperty(i16 key, const HostValue& value) override;
  i32 GetDataFileInfo(const std::string& path, i16 information, i16 channel) override;
  void ExecuteImport() override;
  void ClearChannel(i16 channel) override;
  void ClearAllChannels() override;
  void ShowDialog(i16 dialog, i16 argument) override;

  i32 KSD_WriteToDatabaseEx(i16 one, i32 channel, std::span<const f64> values, i16 append) override;
  i32 KSD_SetDatabaseChanText(i32 channel, i16 which, const std::string& text) override;
  i32 KSD_SetDatabaseChanModified(i32 channel, f64 date) override;
  i32 KSD_SetDatabaseChanCurrLen(i32 channel, i32 length) override;
  i32 KSD_GetDatabaseChanCurrLen(i32 channel) override;
  i32 KSD_ACQTranslateParID(i16 parameter, std::string& buffer) override;
  i32 DB_QuickMath(i32 target, i32 summand) override;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace trendaro
