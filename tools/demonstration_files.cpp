#include "demonstration_files.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

#include "app/paths.h"
#include "app/text_codepage.h"
#include "files/byte_writer.h"
#include "files/channel_records.h"
#include "files/raw_column.h"
#include "files/recorder_header.h"
#include "files/recorder_settings.h"
#include "test_bench.h"

namespace trendaro {
namespace {

constexpr char kRecorderDate[] = "Tue Mar 09 08:30:00 2021";
constexpr f64 kStartDay = 44264 + 8.5 / 24;  // the same moment as a day number
constexpr char kComment[] = "Hochlauf auf dem Prüfstand, Demonstration";
constexpr i32 kRateCode = 6317;  // 2400 Hz
constexpr f32 kRawUnit = 30000;  // raw samples are 1 / 30000 of the scale
constexpr i64 kRowsAtOnce = 2000;

struct Run {
  TestBench bench;
  i64 rows;
};

f32 scale_of(const BenchSignal& signal) {
  return signal.resolution * kRawUnit;
}

// What the reader of the recording makes of the samples `first` and following.
void physical_values(const Run& run, std::size_t signal, i64 first, std::vector<f64>& values) {
  const BenchSignal& description = bench_signals[signal];
  for (std::size_t i = 0; i < values.size(); ++i)
    values[i] = physical_i16(run.bench.raw(signal, first + static_cast<i64>(i)), scale_of(description),
                             -description.zero);
}

void write_fixed_text(ByteWriter& file, const std::string& text, std::size_t width, char filler) {
  std::string bytes = codepage_from_utf8(text);
  bytes.resize(width, filler);
  file.write_bytes(bytes);
}

void write_zeros(ByteWriter& file, std::size_t count) {
  file.write_bytes(std::string(count, '\0'));
}

std::string settings_block(const BenchSignal& signal) {
  std::string block(static_cast<std::size_t>(kSettingsBytes), '\0');
  const auto put = [&](std::size_t place, std::string text, std::size_t width) {
    text = codepage_from_utf8(text);
    text.resize(width, ' ');
    block.replace(place, width, text);
  };
  put(0, std::string("\"") + signal.name + ";" + signal.place + "\"", kNameFieldBytes);
  block[48] = 4;  // amplifier code
  put(111, "MV/V", 4);
  put(117, signal.device_unit, 4);
  return block;
}

void write_recorder_header(ByteWriter& file, i32 id, i64 rows, i32 signal_mask) {
  const bool reduced = id == kReducedRecording;
  const i64 data_offset = kRecorderFixedBytes +
                          (kRecorderEntryBytes + kSettingsBytes) * static_cast<i64>(kBenchSignals) +
                          kRecorderDateBytes + kRecorderCommentBytes;
  file.write_i32(id);
  file.write_i32(static_cast<i32>(kBenchSignals));
  file.write_i32(0);
  file.write_i32(static_cast<i32>(rows));
  file.write_i32(kSamplesI16);
  file.write_i32(kRateCode);
  file.write_i32(reduced ? kBenchReduceFactor : static_cast<i32>(data_offset));
  file.write_i32(reduced ? static_cast<i32>(data_offset) : 0);
  for (std::size_t signal = 0; signal < kBenchSignals; ++signal) {
    file.write_i32(static_cast<i32>(signal) + 1);
    file.write_f32(scale_of(bench_signals[signal]));
    file.write_f32(-bench_signals[signal].zero);
    write_fixed_text(file, bench_signals[signal].unit, 4, ' ');
    file.write_i32(signal_mask);
  }
  for (const BenchSignal& signal : bench_signals) file.write_bytes(settings_block(signal));
  write_fixed_text(file, kRecorderDate, kRecorderDateBytes, ' ');
  write_fixed_text(file, kComment, kRecorderCommentBytes, ' ');
}

bool write_recording(const std::string& path, const Run& run) {
  ByteWriter file(path);
  write_recorder_header(file, kRecording, run.rows, 1);
  for (i64 row = 0; row < run.rows && file.ok(); ++row)
    for (std::size_t signal = 0; signal < kBenchSignals; ++signal) file.write_i16(run.bench.raw(signal, row));
  return file.finish();
}

// Each signal has two columns, the lowest and the highest sample of a block; rows left at the end are
// dropped.
bool write_reduced_recording(const std::string& path, const Run& run) {
  ByteWriter file(path);
  const i64 blocks = run.rows / kBenchReduceFactor;
  write_recorder_header(file, kReducedRecording, blocks, 3);
  for (i64 block = 0; block < blocks && file.ok(); ++block)
    for (std::size_t signal = 0; signal < kBenchSignals; ++signal) {
      const i64 first = block * kBenchReduceFactor;
      i16 lowest = run.bench.raw(signal, first);
      i16 highest = lowest;
      for (i64 row = first + 1; row < first + kBenchReduceFactor; ++row) {
        const i16 raw = run.bench.raw(signal, row);
        lowest = std::min(lowest, raw);
        highest = std::max(highest, raw);
      }
      file.write_i16(lowest);
      file.write_i16(highest);
    }
  return file.finish();
}

void write_parameters(ByteWriter& file, std::size_t signal) {
  file.write_i32(static_cast<i32>(kParamRecordBytes));
  const i64 begin = file.position();
  file.write_f64(0);  // samples count from the beginning of the recording
  file.write_f64(1000.0 / kBenchRate);
  write_zeros(file, 84 - 16);
  write_fixed_text(file, bench_signals[signal].unit, 8, ' ');
  write_fixed_text(file, "mV/V", 8, ' ');
  file.write_i16(static_cast<i16>(signal + 1));  // hardware channel
  write_zeros(file, kParamRecordBytes - static_cast<std::size_t>(file.position() - begin));
}

bool write_standard_file(const std::string& path, const Run& run) {
  constexpr i64 kDataOffsetPlace = 2;
  ByteWriter file(path);
  file.write_i16(5012);
  file.write_i32(0);  // data offset, patched below
  file.write_counted_text(kComment);
  for (int text = 0; text < 32; ++text) file.write_counted_text("");
  file.write_i16(static_cast<i16>(kBenchSignals));
  file.write_i32(0);  // padded length: each channel takes its own points
  const i64 offsets = file.position();
  write_zeros(file, kBenchSignals * sizeof(i32));
  file.write_i32(0);  // reduce block
  for (std::size_t signal = 0; signal < kBenchSignals; ++signal) {
    file.write_i16(static_cast<i16>(signal + 1));
    file.patch_i32(offsets + static_cast<i64>(signal * sizeof(i32)), static_cast<i32>(file.position()));
    file.write_i32(static_cast<i32>(run.rows));
    file.write_counted_text(bench_signals[signal].name);
    file.write_counted_text(bench_signals[signal].unit);
    file.write_counted_text(bench_signals[signal].place);
    file.write_i16(0);  // numeric
    file.write_i16(sizeof(f64));
    file.write_f64(kStartDay);
    write_parameters(file, signal);
    write_zeros(file, 3 + 2 + 2);  // no scaling by the host
    file.write_i32(0);             // no extension
  }
  file.patch_i32(kDataOffsetPlace, static_cast<i32>(file.position()));

  std::vector<f64> values;
  for (std::size_t signal = 0; signal < kBenchSignals; ++signal)
    for (i64 row = 0; row < run.rows && file.ok(); row += kRowsAtOnce) {
      values.resize(static_cast<std::size_t>(std::min(kRowsAtOnce, run.rows - row)));
      physical_values(run, signal, row, values);
      file.write_values(values);
    }
  return file.finish();
}

bool write_block_file(const std::string& path, const Run& run) {
  constexpr i64 kDataOffsetPlace = 8;
  ByteWriter file(path);
  file.write_i16(5056);
  file.write_i16(0);
  file.write_i32(static_cast<i32>(kBenchSignals));
  file.write_i32(0);  // data offset, patched below
  file.write_counted_text(kComment);
  for (std::size_t signal = 0; signal < kBenchSignals; ++signal) {
    file.write_i16(static_cast<i16>(signal + 1));
    file.write_counted_text(bench_signals[signal].name);
    file.write_counted_text(bench_signals[signal].unit);
    file.write_counted_text(bench_signals[signal].place);
    file.write_f64(kStartDay);
    write_parameters(file, signal);
  }
  file.patch_i32(kDataOffsetPlace, static_cast<i32>(file.position()));

  std::vector<f64> values;
  for (i64 row = 0; row < run.rows && file.ok(); row += kRowsAtOnce)
    for (std::size_t signal = 0; signal < kBenchSignals; ++signal) {
      values.resize(static_cast<std::size_t>(std::min(kRowsAtOnce, run.rows - row)));
      physical_values(run, signal, row, values);
      file.write_i32(static_cast<i32>(values.size()));
      file.write_values(values);
    }
  return file.finish();
}

}  // namespace

bool write_demonstration(const std::string& folder, i32 seconds) {
  const auto path = [&](const char* name) { return join_path(folder, name); };
  // A longer file of before would keep its end behind the new one.
  std::error_code ignored;
  for (const char* name : {"Pruefstand.MEA", "Pruefstand.STO", "Pruefstand.BIN", "Pruefstand_Block.DAT",
                           "Dauerlauf.ME1", "Dauerlauf.ST1"})
    std::filesystem::remove(path(name), ignored);
  const Run run{TestBench(seconds), i64{seconds} * kBenchRate};
  return write_recording(path("Pruefstand.MEA"), run) &&
         write_reduced_recording(path("Pruefstand.STO"), run) &&
         write_standard_file(path("Pruefstand.BIN"), run) &&
         write_block_file(path("Pruefstand_Block.DAT"), run) &&
         std::filesystem::copy_file(path("Pruefstand.MEA"), path("Dauerlauf.ME1"), ignored) &&
         // Last, since its presence tells that the demonstration is complete.
         std::filesystem::copy_file(path("Pruefstand.STO"), path("Dauerlauf.ST1"), ignored);
}

}  // namespace trendaro
