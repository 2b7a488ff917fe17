#pragma once

#include <string>

#include "app/types.h"
#include "files/loader_result.h"

namespace trendaro {

// What `info` tells of a file that was loaded.
struct FileDescription {
  std::string path;
  const LoaderResult& result;
  i16 id = 0;  // the file's own, also of recorder files
  bool is_recorder = false;
  i16 channel = 0;  // from 1, the one whose records are told; 0 for none
};

}  // namespace trendaro
