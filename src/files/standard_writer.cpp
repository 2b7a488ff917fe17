#include "files/standard_writer.h"

#include "files/byte_writer.h"
#include "files/channel_records.h"

namespace trendaro {
namespace {

constexpr i16 kStandardId = 5012;
constexpr i64 kDataOffsetPlace = 2;
constexpr int kReservedTexts = 32;
constexpr i16 kNumericKind = 0;
constexpr i16 kSampleBytes = 8;

void write_zeros(ByteWriter& file, std::size_t bytes) {
  file.write_bytes(std::string(bytes, '\0'));
}

// Returns the place of the channels' offsets.
i64 write_file_header(ByteWriter& file, std::size_t channels) {
  file.write_i16(kStandardId);
  file.write_i32(0);            // DataOffset follows
  file.write_counted_text("");  // FileComment
  for (int text = 0; text < kReservedTexts; ++text) file.write_counted_text("");
  file.write_i16(static_cast<i16>(channels));
  file.write_i32(0);  // PaddedLength: each channel takes its own length
  const i64 offsets = file.position();
  write_zeros(file, channels * sizeof(i32));
  file.write_i32(0);  // ReduceBlock: a full file
  return offsets;
}

// StartTime and SampleInterval lead the parameter record; nothing is known of the hardware behind them.
void write_records(ByteWriter& file, const StandardSignal& signal) {
  file.write_i32(static_cast<i32>(kParamRecordBytes));
  file.write_f64(signal.date);
  file.write_f64(signal.sample_interval);
  write_zeros(file, kParamRecordBytes - 2 * sizeof(f64));
  write_zeros(file, 3);         // scaling mode, scaling kind, number of coefficients
  file.write_i16(0);            // ThermoType
  file.write_counted_text("");  // FormulaText
  file.write_i32(0);            // HeaderExtension
}

void write_channel_header(ByteWriter& file, const StandardSignal& signal) {
  file.write_i32(static_cast<i32>(signal.samples.size()));
  for (const std::string* text : {&signal.name, &signal.unit, &signal.comment})
    file.write_counted_text(*text);
  file.write_i16(kNumericKind);
  file.write_i16(kSampleBytes);
  file.write_f64(signal.date);
  write_records(file, signal);
}

}  // namespace

bool write_standard_file(const std::string& path, std::span<const StandardSignal> signals) {
  ByteWriter file(path);
  i64 offset_place = write_file_header(file, signals.size());
  i16 number = 1;
  for (const StandardSignal& signal : signals) {
    file.write_i16(number++);
    file.patch_i32(offset_place, static_cast<i32>(file.position()));
    offset_place += i64{sizeof(i32)};
    write_channel_header(file, signal);
  }
  file.patch_i32(kDataOffsetPlace, static_cast<i32>(file.position()));
  for (const StandardSignal& signal : signals) file.write_values(signal.samples);
  return file.finish();
}

}  // namespace trendaro
