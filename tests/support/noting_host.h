#pragma once

#include <string>
#include <variant>
#include <vector>

#include "app/memory_host.h"

namespace trendaro {

// A host that remembers what it is told about imports and database channels, in turn. What a redraw
// looks up in a channel is not noted.
class NotingHost : public MemoryHost {
 public:
  using MemoryHost::MemoryHost;
  std::vector<std::string> calls;

  // "5 f64 2": key, type of a number, value.
  void SetImportProperty(i16 key, const HostValue& value) override {
    const char* type = std::holds_alternative<f64>(value)   ? "f64"
                       : std::holds_alternative<i16>(value) ? "i16"
                       : std::holds_alternative<i32>(value) ? "i32"
                                                            : "";
    calls.push_back(std::to_string(key) + " " + type + " " + host_text(value));
    MemoryHost::SetImportProperty(key, value);
  }
  HostValue GetChannelProperty(i16 channel, i16 property) override {
    if (property == kChannelCapacity) calls.push_back("capacity " + std::to_string(channel));
    return MemoryHost::GetChannelProperty(channel, property);
  }
  void SetChannelProperty(i16 channel, i16 property, const HostValue& value) override {
    calls.push_back("property " + std::to_string(property) + " " + std::to_string(channel) + " " +
                    host_text(value));
    MemoryHost::SetChannelProperty(channel, property, value);
  }
  void ClearChannel(i16 channel) override {
    calls.push_back("clear " + std::to_string(channel));
    MemoryHost::ClearChannel(channel);
  }
  void ExecuteImport() override {
    calls.push_back("execute");
    MemoryHost::ExecuteImport();
  }
  void ProgressControl(i16 command) override { calls.push_back("progress " + std::to_string(command)); }
};

}  // namespace trendaro
