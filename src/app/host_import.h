#pragma once

#include <memory>
#include <string>

#include "app/memory_channel.h"
#include "app/shell.h"
#include "app/types.h"

namespace trendaro {

// Samples of one channel of a measurement file.
struct SampleSection {
  std::string path;
  i16 channel = 0;  // in the file, from 1
  i64 first = 0;    // from 0; samples ahead of the file's first one do not exist
  i64 count = 0;    // a negative count is none
};

// Reads measurement files on behalf of the embedded database, beside whatever the program has loaded.
class HostImport {
 public:
  HostImport();
  ~HostImport();

  // Samples of a channel of a file; 0 for a file that cannot be read and for a channel that it lacks.
  i32 length(const std::string& path, i16 channel);

  // Appends a section to `target`, as far as `capacity` allows, and gives the channel the signal's name, unit
  // and sample interval. Only the asked samples are read; a long section shows its progress, and takes the
  // display away at its end, however that comes. What the file lacks, or what cannot be read, is not imported
  // and is no failure.
  void import(const SampleSection& section, MemoryChannel& target, i32 capacity, Shell& shell);

 private:
  struct Reader;
  std::unique_ptr<Reader> reader_;
};

}  // namespace trendaro
