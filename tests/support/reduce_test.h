#pragma once

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "files/progress.h"
#include "files/reducer.h"
#include "support/file_builder.h"

namespace trendaro {

// `count` samples 0, `step`, 2 `step` and so on.
inline std::vector<f64> ramp(int count, f64 step = 1) {
  std::vector<f64> samples;
  for (int i = 0; i < count; ++i) samples.push_back(i * step);
  return samples;
}

// Source and target in a folder of their own.
class ReduceTest : public testing::Test {
 protected:
  explicit ReduceTest(std::string source_name) : source_name_(std::move(source_name)) {}

  ReduceStatus reduce(const std::string& bytes, i32 block) {
    write_file(source(), bytes);
    return ReduceStandardFile(source(), target(), block, untold);
  }
  [[nodiscard]] std::string source() const { return folder_.file(source_name_); }
  [[nodiscard]] std::string target() const { return folder_.file("lauf.REB"); }
  [[nodiscard]] std::string result() const { return read_file(target()); }

  TemporaryFolder folder_;

 private:
  std::string source_name_;
};

}  // namespace trendaro
