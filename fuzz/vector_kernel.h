#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "app/database_kernel.h"

namespace trendaro::fuzz {

// A database of any number of channels, as vectors.
class VectorKernel : public DatabaseKernel {
 public:
  std::map<i32, std::vector<f64>> channels;

  i32 KSD_WriteToDatabaseEx(i16, i32 channel, std::span<const f64> values, i16 append) override {
    std::vector<f64>& samples = channels[channel];
    if (append == 0) samples.clear();
    samples.insert(samples.end(), values.begin(), values.end());
    return 1;
  }
  i32 KSD_SetDatabaseChanText(i32, i16, const std::string&) override { return 1; }
  i32 KSD_SetDatabaseChanModified(i32, f64) override { return 1; }
  i32 KSD_SetDatabaseChanCurrLen(i32 channel, i32 length) override {
    channels[channel].resize(static_cast<std::size_t>(length));
    return 1;
  }
  i32 KSD_GetDatabaseChanCurrLen(i32 channel) override { return static_cast<i32>(channels[channel].size()); }
  i32 KSD_ACQTranslateParID(i16, std::string&) override { return 1; }
  i32 DB_QuickMath(i32 target, i32 summand) override {
    std::vector<f64>& sum = channels[target];
    const std::vector<f64>& added = channels[summand];
    for (std::size_t i = 0; i < std::min(sum.size(), added.size()); ++i) sum[i] += added[i];
    return 1;
  }
};

}  // namespace trendaro::fuzz
