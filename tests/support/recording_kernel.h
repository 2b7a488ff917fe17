#pragma once

#include <string>
#include <vector>

#include "app/database_kernel.h"
#include "app/numbers.h"

namespace trendaro {

// A database kernel that remembers what it was told, one line a call: "write 3 (append 0): 1 2.5",
// "text 3 0: name", "modified 3: 44260", "length 3: 0", "add 3 4".
class RecordingKernel : public DatabaseKernel {
 public:
  std::vector<std::string> calls;
  // What writes answer; 0 is a failure.
  i32 write_result = 1;

  i32 KSD_WriteToDatabaseEx(i16, i32 channel, std::span<const f64> values, i16 append) override {
    std::string call = "write " + std::to_string(channel) + " (append " + std::to_string(append) + "):";
    for (const f64 value : values) call += " " + number_text(value);
    calls.push_back(call);
    return write_result;
  }
  i32 KSD_SetDatabaseChanText(i32 channel, i16 which, const std::string& text) override {
    calls.push_back("text " + std::to_string(channel) + " " + std::to_string(which) + ": " + text);
    return 2;
  }
  i32 KSD_SetDatabaseChanModified(i32 channel, f64 date) override {
    calls.push_back("modified " + std::to_string(channel) + ": " + number_text(date));
    return 3;
  }
  i32 KSD_SetDatabaseChanCurrLen(i32 channel, i32 length) override {
    calls.push_back("length " + std::to_string(channel) + ": " + std::to_string(length));
    return 4;
  }
  i32 KSD_GetDatabaseChanCurrLen(i32 channel) override {
    calls.push_back("ask length " + std::to_string(channel));
    return 0;
  }
  i32 KSD_ACQTranslateParID(i16 parameter, std::string& buffer) override {
    buffer = std::to_string(parameter) + '\0';
    return 1;
  }
  i32 DB_QuickMath(i32 target, i32 summand) override {
    calls.push_back("add " + std::to_string(target) + " " + std::to_string(summand));
    return 5;
  }
};

}  // namespace trendaro
