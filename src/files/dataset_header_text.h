#pragma once

#include <string>

#include "app/types.h"

namespace trendaro {

struct Model;

// What is known about a channel (from 1), or with `channel` 0 about the file, as German lines that each end
// with carriage return and line feed. A file that cannot be read gives the words of the load before it.
std::string DatasetHeaderText(Model& model, const std::string& path, i16 channel);

}  // namespace trendaro
