#pragma once

#include <string>

#include "app/types.h"

namespace trendaro {

// Size of the embedded host's database.
struct DatabaseSize {
  i16 channels = 96;
  i32 samples = 100000;  // the most that a channel takes

  friend bool operator==(const DatabaseSize&, const DatabaseSize&) = default;
};

inline constexpr DatabaseSize kSmallestDatabase{1, 1};
inline constexpr DatabaseSize kLargestDatabase{9999, 100000000};

// The nearest size that a database may have.
DatabaseSize possible_size(const DatabaseSize& wished);

// The size that the user chose in a former run, kept in a text file. A file that is missing, damaged or
// incomplete gives the usual size.
DatabaseSize read_database_size(const std::string& path);

// Keeps it for the next run; a failure leaves the former file.
void keep_database_size(const std::string& path, const DatabaseSize& size);

}  // namespace trendaro
