#include "bench_files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>

#include "files/recorder_header.h"
#include "support/recorder_builder.h"
#include "support/reducible_files.h"

namespace trendaro::bench {
namespace {

StandardFile one_channel(i32 points) {
  StandardFile file;
  file.channels.resize(1);
  file.points = {points};
  return file;
}

}  // namespace

void write_channel_file(const std::string& path, i32 samples) {
  if (std::filesystem::exists(path)) return;
  std::ofstream stream(path, std::ios::binary);
  stream << one_channel(samples).header().bytes();
  std::mt19937 random(1);
  std::vector<f64> piece(static_cast<std::size_t>(std::min(samples, 1'000'000)));
  f64 level = 0;
  for (i64 done = 0; done < samples; done += static_cast<i64>(piece.size())) {
    for (f64& sample : piece) sample = level += static_cast<f64>(random() & 1023) - 511.5;
    stream.write(reinterpret_cast<const char*>(piece.data()), static_cast<i64>(piece.size() * sizeof(f64)));
  }
}

void write_recording(const std::string& path) {
  if (std::filesystem::exists(path)) return;
  RecorderBuilder recording;
  recording.row_count = kRecordingRows;
  recording.entries.resize(kRecordingColumns);
  std::ofstream stream(path, std::ios::binary);
  stream << recording.build().bytes();
  std::vector<i16> rows(1'000'000 * kRecordingColumns);
  for (i32 done = 0; done < kRecordingRows; done += 1'000'000) {
    for (std::size_t i = 0; i < rows.size(); ++i) rows[i] = static_cast<i16>(i * 7 + static_cast<u32>(done));
    stream.write(reinterpret_cast<const char*>(rows.data()), static_cast<i64>(rows.size() * sizeof(i16)));
  }
}

void write_reduced_recording(const std::string& path) {
  if (std::filesystem::exists(path)) return;
  RecorderBuilder recording{.id = kReducedRecording, .row_count = kReducedRows, .reduce_factor = 100};
  recording.entries.assign(kReducedSignals, {.mask = 3});
  std::ofstream stream(path, std::ios::binary);
  stream << recording.build().bytes();
  std::mt19937 random(2);
  std::vector<i16> row(2 * kReducedSignals);
  for (i32 done = 0; done < kReducedRows; ++done) {
    for (std::size_t i = 0; i < row.size(); ++i)
      row[i] = static_cast<i16>(done / 20 + (i % 2 == 0 ? -1 : 1) * static_cast<i32>(random() % 2000));
    stream.write(reinterpret_cast<const char*>(row.data()), static_cast<i64>(row.size() * sizeof(i16)));
  }
}

void write_sparse_file(const std::string& path, i64 data_bytes) {
  if (std::filesystem::exists(path)) return;
  const i64 points = std::min<i64>(data_bytes / 8, 2'000'000'000);
  const std::string header = one_channel(static_cast<i32>(points)).header().bytes();
  std::ofstream(path, std::ios::binary) << header;
  std::filesystem::resize_file(path, header.size() + static_cast<u64>(data_bytes));
}

}  // namespace trendaro::bench
