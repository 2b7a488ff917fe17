#include "files/section_writer.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <exception>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

#include <unistd.h>

#include "app/dates.h"
#include "app/run_time_error.h"
#include "app/text_codepage.h"
#include "files/byte_view.h"
#include "files/byte_writer.h"
#include "files/file_conversions.h"
#include "files/input_file.h"
#include "files/recorder_header.h"
#include "files/recorder_settings.h"
#include "files/recorder_tables.h"
#include "files/recorder_values.h"

namespace trendaro {
namespace {

constexpr i64 kCopyBytes = i64{4} << 20;
constexpr i64 kDateTextBytes = 24;
constexpr i64 kRowCountPlace = 12;
constexpr f64 kMillisecondsADay = 86400000;

// What the header of the source says.
struct SectionHeader {
  i32 entry_count = 0;
  i32 sample_format = 0;
  i32 rate_code = 0;
  i32 data_offset = 0;
};

ByteView view_of(const std::string& bytes) {
  return {{reinterpret_cast<const u8*>(bytes.data()), bytes.size()}};
}

std::string read_start(const InputFile& file, i64 count) {
  std::string bytes(static_cast<std::size_t>(std::min(count, file.size())), '\0');
  const ReadResult read = file.read_at(0, bytes.data(), static_cast<i64>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(delivered_bytes(read)));
  return bytes;
}

// Copies the fixed fields, as far as they are there, with the number of rows in its place.
SectionHeader copy_fixed_fields(const InputFile& source, ByteWriter& target, i32 row_count) {
  std::string bytes = read_start(source, kRecorderFixedBytes);
  const ByteView view = view_of(bytes);
  const SectionHeader header = {.entry_count = view.number<i32>(4),
                                .sample_format = view.number<i32>(16),
                                .rate_code = view.number<i32>(20),
                                .data_offset = view.number<i32>(24)};
  if (view.holds(kRowCountPlace, sizeof row_count))
    std::memcpy(bytes.data() + kRowCountPlace, &row_count, sizeof row_count);
  target.write_bytes(bytes);
  return header;
}

// Both kinds of time entries have no settings block here; they stand last in the table.
i32 entries_with_settings(const ByteView& view, i32 entry_count) {
  i32 count = entry_count;
  for (i32 entry = 0; entry < entry_count; ++entry)
    if (view.number<i32>(kRecorderFixedBytes + kRecorderEntryBytes * entry) >= kTimeChannel) --count;
  return count;
}

// The date in the recorder's own form, or as an earlier section carries it.
f64 read_date(std::string_view field) {
  const std::string text = CutAtNul(utf8_from_codepage(field));
  std::optional<f64> date = day_number_from_text(RecorderDateToText(text));
  if (!date) date = day_number_from_text(text);
  if (!date) throw RunTimeError{kTypeMismatch};
  return *date;
}

// The date field of a section whose first row is `first_row` of a source that began at `date`.
std::string section_date(f64 date, i32 rate_code, i32 first_row) {
  const f64 interval = 1000.0 / f64{recorder_rate(rate_code)};
  std::string text = codepage_from_utf8(date_time_text(date + interval * first_row / kMillisecondsADay));
  if (text.empty()) throw RunTimeError{kOverflow};
  text.resize(kRecorderDateBytes, '\0');
  return text;
}

// Copies what stands between the fixed fields and the samples, in the order of the file, so that a failure
// leaves the target with what lies ahead of it.
void copy_description(const InputFile& source, ByteWriter& target, const SectionHeader& header,
                      i32 first_row) {
  if (header.entry_count < 0 || header.entry_count > std::numeric_limits<i16>::max())
    throw RunTimeError{kOverflow};
  const i64 table_end = kRecorderFixedBytes + kRecorderEntryBytes * header.entry_count;
  std::string bytes = read_start(
      source, table_end + kSettingsBytes * header.entry_count + kRecorderDateBytes + kRecorderCommentBytes);
  const ByteView view = view_of(bytes);
  const i64 date_place = table_end + kSettingsBytes * entries_with_settings(view, header.entry_count);
  const auto stretch = [&](i64 begin, i64 count) {
    const auto place = static_cast<std::size_t>(begin);
    return place < bytes.size() ? std::string_view(bytes).substr(place, static_cast<std::size_t>(count))
                                : std::string_view();
  };
  target.write_bytes(stretch(kRecorderFixedBytes, date_place - kRecorderFixedBytes));
  if (!view.holds(date_place, kDateTextBytes)) throw RunTimeError{kDeviceError};
  const f64 date = read_date(stretch(date_place, kDateTextBytes));
  target.write_bytes(section_date(date, header.rate_code, first_row));
  std::string comments(stretch(date_place + kRecorderDateBytes, kRecorderCommentBytes));
  comments.resize(kRecorderCommentBytes, '\0');
  target.write_bytes(comments);
}

i64 sample_bytes(i32 sample_format) {
  if (sample_format == kSamplesI16) return 2;
  return sample_format == kSamplesI32 || sample_format == kSamplesF32 ? 4 : 0;
}

void copy_rows(const InputFile& source, ByteWriter& target, const SectionHeader& header, i32 first_row,
               i32 row_count, const Progress& progress) {
  const i64 row_bytes = sample_bytes(header.sample_format) * header.entry_count;
  if (row_bytes == 0) return;
  if (first_row < 0 || row_count < 0) throw RunTimeError{kIndexOutOfRange};
  const i64 rows_there = std::max<i64>(0, source.size() - header.data_offset) / row_bytes;
  if (!is_credible_row_count(row_count, rows_there)) throw RunTimeError{kOutOfMemory};
  const i64 begin = header.data_offset + row_bytes * first_row;
  const i64 wanted = row_bytes * row_count;
  std::vector<char> buffer(static_cast<std::size_t>(std::min(wanted, kCopyBytes)));
  i64 done = 0;
  while (done < wanted) {
    const i64 count = std::min(wanted - done, static_cast<i64>(buffer.size()));
    const ReadResult read = source.read_at(begin + done, buffer.data(), count);
    const i64 bytes = delivered_bytes(read);
    target.write_bytes({buffer.data(), static_cast<std::size_t>(bytes)});
    done += bytes;
    progress(static_cast<f64>(done) / static_cast<f64>(wanted));
    if (bytes < count || !target.ok()) break;
  }
  if (done == wanted) return;
  // A last byte far behind makes the rows between zero without taking room on the disk.
  target.seek(header.data_offset + wanted - 1);
  target.write_u8(0);
}

void write_section(const InputFile& source, ByteWriter& target, i32 first_row, i32 row_count,
                   const Progress& progress) {
  const SectionHeader header = copy_fixed_fields(source, target, row_count);
  copy_description(source, target, header, first_row);
  if (header.data_offset < 0) throw RunTimeError{kInvalidArgument};
  target.seek(header.data_offset);
  copy_rows(source, target, header, first_row, row_count, progress);
  if (!target.finish()) throw RunTimeError{kDeviceError};
}

// False when what the file holds cannot be taken away. A device such as /dev/null has no length and needs it
// not.
bool empty_file(int descriptor) {
  return ftruncate(descriptor, 0) == 0 || errno == EINVAL;
}

// 0 where the id cannot be read.
i32 read_id(const InputFile& source) {
  i32 id = 0;
  const ReadResult read = source.read_at(0, &id, sizeof id);
  return !read.failed && read.bytes == i64{sizeof id} ? id : 0;
}

}  // namespace

std::string section_failure_text(SectionStatus status) {
  switch (status) {
    case SectionStatus::Done:
      return {};
    case SectionStatus::NotOpened:
      return "Fehler bei Öffnen der Datei!";
    case SectionStatus::NotRecording:
      return "Es wird keine komprimierte Meßwertdatei angezeigt.";
    case SectionStatus::Failed:
      break;
  }
  return "Fehler bei Schreiben der Ausschnittsdatei!";
}

SectionStatus WriteSectionFile(const std::string& source, const std::string& target, i32 firstRow,
                               i32 rowCount, const Progress& progress) {
  try {
    const InputFile input(source);
    if (!input.is_open()) return SectionStatus::NotOpened;
    ByteWriter output(target);
    if (!output.is_open() || is_same_file(input.descriptor(), output.descriptor()))
      return SectionStatus::NotOpened;
    if (!empty_file(output.descriptor())) return SectionStatus::Failed;
    const i32 id = read_id(input);
    if (id != kRecording && id != kReducedRecording) return SectionStatus::NotRecording;
    write_section(input, output, firstRow, rowCount, percent_steps(progress));
    return SectionStatus::Done;
  } catch (const RunTimeError&) {
    return SectionStatus::Failed;
  } catch (const std::exception&) {
    return SectionStatus::Failed;
  }
}

}  // namespace trendaro
