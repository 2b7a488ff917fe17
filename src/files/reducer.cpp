#include "files/reducer.h"

#include <cmath>
#include <exception>

#include "app/numbers.h"
#include "app/run_time_error.h"
#include "files/reduce_job.h"

namespace trendaro {
namespace {

constexpr i16 kOldestStandardId = 5004;
constexpr i16 kOldestReducibleId = 5010;
constexpr i16 kNewestReducibleId = 5012;
constexpr i16 kReducibleBlockId = 5056;

ReduceStatus reduce_by_id(ReduceJob& job, i16 id) {
  if (id == kReducibleBlockId) return reduce_block_form(job);
  if (id < kOldestStandardId || id > kNewestReducibleId) return ReduceStatus::NotStandard;
  if (id < kOldestReducibleId) return ReduceStatus::OutdatedForm;
  return reduce_standard_form(job, id);
}

ReduceStatus reduce_files(const std::string& source_path, const std::string& target_path, i32 block,
                          const Progress& progress) {
  if (block < 1) throw RunTimeError{kInvalidArgument};
  const InputFile file(source_path);
  if (!file.is_open()) return ReduceStatus::Failed;
  ByteWriter target(target_path);
  if (!target.is_open() || is_same_file(file.descriptor(), target.descriptor())) return ReduceStatus::Failed;
  ByteCursor source(file);
  const i16 id = source.read_i16();
  if (!source.ok()) return ReduceStatus::NotStandard;
  const Progress steps = percent_steps(progress);
  ReduceJob job{file, source, target, block, steps};
  const ReduceStatus status = reduce_by_id(job, id);
  return status == ReduceStatus::Done && !target.finish() ? ReduceStatus::Failed : status;
}

}  // namespace

std::string reduce_status_text(ReduceStatus status) {
  switch (status) {
    case ReduceStatus::Done:
      return {};
    case ReduceStatus::NotStandard:
      return "Diese Datei hat kein binäres Standardformat.";
    case ReduceStatus::OutdatedForm:
      return "Diese Datei hat ein veraltetes binäres Format.";
    case ReduceStatus::Failed:
      break;
  }
  return "Fehler bei Öffnen der Datei aufgetreten.";
}

i32 pair_count(i32 samples, i32 block) {
  const i32 pairs = round_to_i32(static_cast<f64>(samples) / block);
  const i32 rest = samples % block;
  return rest >= 3 && rest < block / 2.0 ? pairs + 1 : pairs;
}

ReduceStatus ReduceStandardFile(const std::string& source, const std::string& target, i32 block,
                                const Progress& progress) {
  try {
    return reduce_files(source, target, block, progress);
  } catch (const RunTimeError&) {
    return ReduceStatus::Failed;
  } catch (const std::exception&) {
    return ReduceStatus::Failed;
  }
}

}  // namespace trendaro
