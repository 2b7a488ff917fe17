#pragma once

#include <string>

#include "app/file_description.h"
#include "files/load_status.h"

namespace trendaro {

// One JSON object each, UTF-8. Numbers read back to the same value, a value that is no number is null.
std::string description_json(const FileDescription& description);
std::string failure_json(const std::string& path, LoadStatus status);

}  // namespace trendaro
