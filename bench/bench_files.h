#pragma once

#include <string>

#include "app/types.h"

namespace trendaro::bench {

inline constexpr i32 kChannelSamples = 100'000'000;
inline constexpr i32 kRecordingRows = 20'000'000;
inline constexpr i32 kRecordingColumns = 8;
inline constexpr i32 kReducedRows = 500'000;
inline constexpr i16 kReducedSignals = 16;

// Each writes its file, unless it is there.
// A standard file of one channel, a random walk.
void write_channel_file(const std::string& path, i32 samples = kChannelSamples);
// A reduced recording of interleaved i16 samples, two columns a signal.
void write_reduced_recording(const std::string& path);
// A recording of interleaved i16 samples.
void write_recording(const std::string& path);
// A standard file of one channel whose data part has the size given and takes no room on the disk.
void write_sparse_file(const std::string& path, i64 data_bytes);

}  // namespace trendaro::bench
