// Writes small valid files of every id, one folder a fuzz target.
#include <cmath>
#include <filesystem>
#include <functional>

#include "support/file_builder.h"
#include "support/recorder_builder.h"
#include "support/reducible_files.h"

namespace trendaro {
namespace {

std::vector<f64> wave(int count) {
  std::vector<f64> samples;
  for (int i = 0; i < count; ++i) samples.push_back(std::sin(i * 0.3) * 10);
  return samples;
}

void append_old_channel(FileBuilder& file, i16 id, i16 number, i32 points) {
  if (id >= 5006) file.i16_field(number);
  file.i32_field(points).counted_text("Kanal").counted_text("V");
  file.counted_text("01.02.1999").counted_text("12:30").counted_text("alt");
  if (id >= 5007) file.i16_field(0).i16_field(8);
  if (id >= 5008) file.i32_field(152).bytes_field(numbered_record());
  if (id >= 5009) file.zeros(3 + 2 + 2);
}

// Ids 5004 to 5009.
FileBuilder old_standard_file(i16 id) {
  FileBuilder file;
  file.i16_field(id);
  if (id >= 5009) file.i32_field(0);
  if (id >= 5005) file.counted_text("Kommentar");
  file.i16_field(2);
  for (const i16 number : {i16{1}, i16{2}}) append_old_channel(file, id, number, 12);
  return file.values(wave(24));
}

FileBuilder standard_file(i16 id) {
  StandardFile file{.id = id, .channels = {{.samples = wave(45)}, {.name = "Weg", .samples = wave(13)}}};
  FileBuilder bytes = file.build();
  return bytes;
}

// A text channel ahead of a numeric one.
FileBuilder text_channel_file() {
  StandardFile file{.channels = {{.kind = 1}, {.samples = wave(10)}}, .points = {3, 10}};
  FileBuilder bytes = file.header();
  return bytes.counted_text("eins").counted_text("").counted_text("drei").values(wave(10));
}

// Ids 5003 and 5055; a record of which the second channel says whether blocks are of one length.
FileBuilder old_block_file(i16 id, u8 fixed_blocks) {
  FileBuilder file;
  file.i16_field(id).i16_field(1).i32_field(2);
  for (const i16 number : {i16{1}, i16{2}}) {
    file.i16_field(number).counted_text("Kanal").counted_text("V");
    file.counted_text("01.02.1999").counted_text("12:30").i32_field(152).bytes_field(numbered_record());
    file.patch(file.size() - 152 + 122, fixed_blocks);
  }
  for (int block = 0; block < 4; ++block) {
    if (id == 5003) file.i32_field(20);
    file.values(wave(id == 5003 ? 20 : 100));
  }
  return file;
}

FileBuilder block_file() {
  return BlockFile{.channels = {{.samples = wave(230)}, {.name = "Weg", .samples = wave(150)}},
                   .block_lengths = {30, 7}}
      .build();
}

FileBuilder recording(i32 id, i32 format, bool with_time) {
  RecorderBuilder file;
  file.id = id;
  file.row_count = 40;
  file.sample_format = format;
  file.reduce_factor = 10;
  file.entries.resize(with_time ? 4 : 2);
  file.entries[0].mask = 3;
  file.entries[0].name_field = quoted_name("Druck;vorn");
  file.entries[1].channel = 2;
  file.entries[1].unit = "BAR";
  file.entries[1].mask = 0x30101;
  if (with_time) {
    file.entries[2].channel = 17;
    file.entries[3].channel = 18;
  }
  const int columns = with_time ? 5 : 3;
  for (int value = 0; value < columns * file.row_count; ++value) {
    if (id == 6011 || id == 6012)
      file.data.f64_field(value * 0.5);
    else if (format == 1255)
      file.data.i16_field(static_cast<i16>(value * 7));
    else if (format == 1253)
      file.data.i32_field(value * 1000);
    else
      file.data.f32_field(static_cast<f32>(value) * 0.25F);
  }
  return file.build();
}

class SeedFolder {
 public:
  explicit SeedFolder(const std::filesystem::path& folder) : folder_(folder) {
    std::filesystem::create_directories(folder_);
  }
  void add(const FileBuilder& file) { write_file(folder_ / std::to_string(++count_), file.bytes()); }

 private:
  std::filesystem::path folder_;
  int count_ = 0;
};

void write_standard_seeds(SeedFolder folder) {
  for (i16 id = 5004; id <= 5009; ++id) folder.add(old_standard_file(id));
  for (i16 id = 5010; id <= 5012; ++id) folder.add(standard_file(id));
  folder.add(standard_file(5012).patch(0, i16{7001}));
  folder.add(text_channel_file());
}

void write_block_seeds(SeedFolder folder) {
  for (const u8 fixed : {u8{0}, u8{1}}) {
    folder.add(old_block_file(5003, fixed));
    folder.add(old_block_file(5055, fixed));
  }
  folder.add(block_file());
}

void for_recordings(const std::function<void(FileBuilder)>& take) {
  for (const i32 id : {6001, 6002})
    for (const i32 format : {1253, 1255, 1257})
      for (const bool with_time : {false, true}) take(recording(id, format, with_time));
  for (const i32 id : {6011, 6012})
    for (const bool with_time : {false, true}) take(recording(id, 1255, with_time));
}

void write_all(const std::filesystem::path& root) {
  write_standard_seeds(SeedFolder(root / "standard"));
  write_block_seeds(SeedFolder(root / "block"));
  SeedFolder recorder(root / "recorder");
  for_recordings([&](FileBuilder file) { recorder.add(file); });
  SeedFolder reduce(root / "reduce");
  for (i16 id = 5009; id <= 5012; ++id) reduce.add(id == 5009 ? old_standard_file(id) : standard_file(id));
  reduce.add(block_file());
  SeedFolder section(root / "section");
  for_recordings([&](FileBuilder file) { section.add(file.i16_field(5).i16_field(20)); });
}

}  // namespace
}  // namespace trendaro

int main(int argument_count, char** arguments) {
  if (argument_count != 2) return 2;
  trendaro::write_all(arguments[1]);
  return 0;
}
