#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "app/host.h"
#include "app/run_time_error.h"

namespace trendaro {

// A host whose channel properties are a table; what is not in it is 0. Calls that change something are
// remembered as lines.
class FakeHost : public MervanHost, public HostDatabase {
 public:
  i16 channels = 96;
  std::map<std::pair<i16, i16>, HostValue> properties;  // by channel and property
  std::vector<std::string> calls;
  bool refuses = false;  // every call of the database fails

  void set_capacity(i16 channel, i32 samples) { properties[{channel, kChannelCapacity}] = samples; }
  void set_length(i16 channel, i32 samples) { properties[{channel, kChannelLength}] = samples; }
  void set_all_capacities(i32 samples) {
    for (i16 channel = 1; channel <= channels; ++channel) set_capacity(channel, samples);
  }

  HostDatabase& DB() override {
    if (refuses) throw RunTimeError{kHostCallFailed};
    return *this;
  }
  void ProgressControl(i16 command) override { calls.push_back("progress " + std::to_string(command)); }

  i16 MaxChannels() override { return channels; }
  HostValue GetChannelProperty(i16 channel, i16 property) override {
    const auto found = properties.find({channel, property});
    return found == properties.end() ? HostValue(i32{0}) : found->second;
  }
  void SetChannelProperty(i16 channel, i16 property, const HostValue& value) override {
    properties[{channel, property}] = value;
    calls.push_back("set " + std::to_string(channel) + " " + std::to_string(property) + " " +
                    host_text(value));
  }
  i32 GetChannelLength(i16 channel) override {
    return host_integer(GetChannelProperty(channel, kChannelLength));
  }
  void ReadData64(i16, std::span<f64>) override {}
  void SetImportProperty(i16 key, const HostValue& value) override {
    calls.push_back("import " + std::to_string(key) + " " + host_text(value));
  }
  i32 GetDataFileInfo(const std::string&, i16, i16) override { return 0; }
  void ExecuteImport() override { calls.push_back("execute"); }
  void ClearChannel(i16 channel) override { calls.push_back("clear " + std::to_string(channel)); }
  void ClearAllChannels() override { calls.push_back("clear all"); }
  void ShowDialog(i16 dialog, i16 argument) override {
    calls.push_back("dialog " + std::to_string(dialog) + " " + std::to_string(argument));
  }
};

}  // namespace trendaro
