#include <cstring>

#include "app/model.h"
#include "files/loader.h"
#include "files/reducer.h"
#include "memory_file.h"
#include "support/silent_shell.h"

namespace trendaro::fuzz {
namespace {

const Progress kSilent = untold;

using Bytes = std::vector<std::uint8_t>;

template <typename Number>
Number number_at(const Bytes& bytes, std::size_t place) {
  Number number = 0;
  require(place + sizeof number <= bytes.size());
  std::memcpy(&number, bytes.data() + place, sizeof number);
  return number;
}

bool is_known(ReduceStatus status) {
  return status == ReduceStatus::Done || !reduce_status_text(status).empty();
}

// A block file becomes a file that the loader takes whole: every number of points is even and borne out.
void check_reduced_blocks(const MemoryFile& target, i32 block) {
  SilentShell shell;
  Model model(shell);
  require(LoadMeasurementFile(model, 0, target.path(), 1, 0) == LoadStatus::Done);
  require(model.FileId == 5010 && model.FileReduceBlock == block);
  const std::vector<i32> points = model.FileChannelPoints;
  for (const i16 channel : {i16{1}, model.FileChannelCount}) {
    if (channel < 1 || channel > model.FileChannelCount) continue;
    const i32 count = points[static_cast<std::size_t>(channel) - 1];
    require(count >= 0 && count % 2 == 0);
    model.FileChannelValues.clear();
    require(LoadMeasurementFile(model, 1, target.path(), channel, 0) == LoadStatus::Done);
    require(static_cast<i32>(model.FileChannelValues.size()) == count);
  }
}

// The id stays, and so does the place of the data unless the data lies over it.
void check_reduced_standard(const Bytes& source, const MemoryFile& target) {
  const Bytes reduced = target.content();
  const i32 data_offset = number_at<i32>(source, 2);
  require(data_offset >= 0);
  if (data_offset >= 6) require(number_at<i32>(reduced, 2) == data_offset);
  SilentShell shell;
  Model model(shell);
  static_cast<void>(LoadMeasurementFile(model, 1, target.path(), 1, 0));
}

void check_reducing(const Bytes& input, i32 block) {
  const MemoryFile source(input);
  const MemoryFile target;
  const MemoryFile again;
  const ReduceStatus status = ReduceStandardFile(source.path(), target.path(), block, kSilent);
  require(is_known(status));
  require(ReduceStandardFile(source.path(), again.path(), block, kSilent) == status);
  require(target.content() == again.content());
  require(source.content() == input);
  if (status == ReduceStatus::NotStandard || status == ReduceStatus::OutdatedForm)
    require(target.size() == 0);
  if (status != ReduceStatus::Done) return;
  require(target.size() <= 2 * input.size() + 64);
  if (number_at<i16>(input, 0) == 5056)
    check_reduced_blocks(target, block);
  else
    check_reduced_standard(input, target);
}

}  // namespace
}  // namespace trendaro::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const trendaro::fuzz::Bytes input(data, data + size);
  for (const trendaro::i32 block : {3, 10, 100}) trendaro::fuzz::check_reducing(input, block);
  return 0;
}
