#include <cstring>

#include "app/model.h"
#include "files/loader.h"
#include "files/section_writer.h"
#include "memory_file.h"
#include "support/silent_shell.h"

namespace trendaro::fuzz {
namespace {

using Bytes = std::vector<std::uint8_t>;

// What is asked for stands behind the recording: two words, first row and number of rows.
struct Asked {
  i32 first = 0;
  i32 count = 0;
};

Asked take_asked(Bytes& input) {
  u16 words[2] = {};
  std::memcpy(words, input.data() + input.size() - sizeof words, sizeof words);
  input.resize(input.size() - sizeof words);
  return {words[0], words[1] % 2048};
}

// True when the rows cannot lie over the header's own words.
bool data_stands_behind_header(const Bytes& recording) {
  i32 id = 0;
  i32 data_offset = 0;
  std::memcpy(&id, recording.data(), sizeof id);
  std::memcpy(&data_offset, recording.data() + 24, sizeof data_offset);
  return id == 6001 && data_offset >= 32;
}

void check_read_back(const MemoryFile& section, i32 rows) {
  SilentShell shell;
  Model model(shell);
  const LoadStatus status = LoadMeasurementFile(model, 0, section.path(), 1, 0);
  if (status != LoadStatus::Done) return;
  // Channels that the header counts and the table does not bear out have no points.
  for (const i32 points : model.FileChannelPoints) require(points == rows || points == 0);
  static_cast<void>(LoadMeasurementFile(model, 1, section.path(), 1, 0));
}

void check_section(const Bytes& input, Asked asked) {
  const MemoryFile source(input);
  const MemoryFile target;
  const SectionStatus status = WriteSectionFile(source.path(), target.path(), asked.first, asked.count);
  require(status == SectionStatus::Done || !section_failure_text(status).empty());
  require(source.content() == input);
  if (status == SectionStatus::NotRecording) require(target.size() == 0);
  if (status == SectionStatus::Done && data_stands_behind_header(input)) check_read_back(target, asked.count);
}

}  // namespace
}  // namespace trendaro::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 6) return -1;
  trendaro::fuzz::Bytes input(data, data + size);
  const auto asked = trendaro::fuzz::take_asked(input);
  trendaro::fuzz::check_section(input, asked);
  return 0;
}
