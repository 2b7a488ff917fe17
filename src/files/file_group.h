#pragma once

#include "app/types.h"

namespace trendaro {

// The groups of the file family, by the first word of a file.
enum class FileGroup { Standard, Block, Recorder, Unknown };

FileGroup file_group(i16 id);

}  // namespace trendaro
