#pragma once

#include <span>
#include <string>

#include "app/types.h"
#include "files/sample_array.h"

namespace trendaro::bench {

// What the machine can do at best with the bytes of a file that stand in the page cache.

// Reads the file through a buffer of 1 MiB.
void read_through_buffer(const std::string& path);
// One read of the whole file into a fresh array on huge pages.
void read_into_fresh_array(const std::string& path);
// Reads the file through a buffer of 1 MiB and stores `values` f64 into a fresh array on huge pages.
void read_and_store(const std::string& path, i64 values);
// Reads the file through a buffer of 1 MiB and scans as many values, which stand in memory already, for their
// minimum and maximum with vectors.
void read_and_scan(const std::string& path, std::span<const f64> in_memory);

}  // namespace trendaro::bench
