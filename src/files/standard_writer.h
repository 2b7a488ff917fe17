#pragma once

#include <span>
#include <string>

#include "app/types.h"

namespace trendaro {

// One channel of a standard file that is to be written. Texts are UTF-8.
struct StandardSignal {
  std::string name, unit, comment;
  f64 date = 0;             // of the first sample, a day number
  f64 sample_interval = 0;  // milliseconds between samples; 0 where nobody knows
  std::span<const f64> samples;
};

// Writes a standard file, id 5012, over the beginning of the file `path`, which should be new or empty. True
// when every byte arrived.
bool write_standard_file(const std::string& path, std::span<const StandardSignal> signals);

}  // namespace trendaro
