#include "graph/pair_reading.h"

#include <algorithm>

#include "files/recorder_reader.h"

namespace trendaro {
namespace {

// The part of a slot that the pairs of a plot take.
std::span<f32> pairs_of(const CurveTask& task) {
  const auto points = static_cast<std::size_t>(task.points / 2 * 2);
  return task.slot.DrawY.first(std::min(points, task.slot.DrawY.size()));
}

std::vector<i16> channels_of(const std::vector<CurveTask>& tasks) {
  std::vector<i16> channels;
  for (const CurveTask& task : tasks) {
    channels.push_back(task.plot.ChannelIndex);
    channels.push_back(static_cast<i16>(task.plot.ChannelIndex + 1));
  }
  return channels;
}

LoadStatus read_together(const std::string& path, const std::vector<CurveTask>& tasks) {
  return PassRecorderColumns(path, channels_of(tasks),
                             [&](std::size_t place, i64 first, std::span<const f64> run) {
                               const CurveTask& task = tasks[place / 2];
                               const std::span<f32> pairs = pairs_of(task);
                               const std::size_t begin = 2 * static_cast<std::size_t>(first) + place % 2;
                               if (begin < pairs.size())
                                 write_values(pairs.subspan(begin), run, task.scale(), 2);
                             });
}

}  // namespace

bool PairReading::fill(const CurveTask& task) {
  if (!files_.insert(task.path).second) return filled_.contains(task.number);
  std::vector<CurveTask> tasks;
  for (const CurveTask& other : tasks_())
    if (other.path == task.path && other.points >= 2 && other.slot.DrawY.size() >= 2) tasks.push_back(other);
  if (tasks.empty()) return false;
  if (read_together(task.path, tasks) != LoadStatus::Done) {
    for (const CurveTask& other : tasks) pad_y(other.slot.DrawY, 0, null_y_);
    return false;
  }
  for (const CurveTask& other : tasks) filled_.insert(other.number);
  return filled_.contains(task.number);
}

}  // namespace trendaro
