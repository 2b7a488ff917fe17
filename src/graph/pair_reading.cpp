#include "graph/pair_reading.h"

#include <algorithm>
#include <map>
#include <span>

#include "app/model.h"
#include "files/recorder_reader.h"

namespace trendaro {
namespace {

// The part of a slot that the pairs of a plot take.
DrawSlot<f32> pairs_of(const CurveTask& task) {
  return task.slot.DrawY.first(static_cast<std::size_t>(task.points / 2 * 2));
}

// Takes values of a channel; `first` is the index of the first of them.
using WriteRun = std::function<void(i64 first, std::span<const f64> run)>;
// A channel may give minima of a plot, and x of others.
using Columns = std::map<i16, std::vector<WriteRun>>;

i16 next_channel(i16 channel) {
  return static_cast<i16>(channel + 1);
}

// The values of a channel become every second one of y, from `half` on.
WriteRun write_half(const CurveTask& task, std::size_t half) {
  return [&task, half](i64 first, std::span<const f64> run) {
    write_y(pairs_of(task), run, task.scale(), 2 * static_cast<std::size_t>(first) + half, 2);
  };
}

// The values of the x channel that lie in a plot's pairs, or on a date axis in its points.
WriteRun write_x_half(const CurveTask& task, std::size_t half, std::size_t stride) {
  return [&task, half, stride](i64 first, std::span<const f64> run) {
    const std::size_t values = static_cast<std::size_t>(task.points) / stride;
    const auto begin = static_cast<std::size_t>(first);
    if (begin >= values) return;
    write_x(task.slot, run.first(std::min(run.size(), values - begin)), task.plot.XOffset,
            half == 0 ? i16{1} : task.sign(), begin * stride + half, stride);
  };
}

void want_x(const CurveTask& task, Columns& columns) {
  if (task.plot.XSource <= 0) return;
  const std::size_t stride = task.model.DateAxis ? 1 : 2;
  for (std::size_t half = 0; half < stride; ++half)
    columns[static_cast<i16>(task.plot.XSource + static_cast<i16>(half))].push_back(
        write_x_half(task, half, stride));
}

Columns columns_of(const std::vector<CurveTask>& tasks) {
  Columns columns;
  for (const CurveTask& task : tasks) {
    columns[task.plot.ChannelIndex].push_back(write_half(task, 0));
    columns[next_channel(task.plot.ChannelIndex)].push_back(write_half(task, 1));
    want_x(task, columns);
  }
  return columns;
}

LoadStatus read_together(const std::string& path, const std::vector<CurveTask>& tasks) {
  const Columns columns = columns_of(tasks);
  std::vector<i16> channels;
  std::vector<const std::vector<WriteRun>*> writes;
  for (const auto& [channel, runs] : columns) {
    channels.push_back(channel);
    writes.push_back(&runs);
  }
  return PassRecorderColumns(path, channels, [&](std::size_t place, i64 first, std::span<const f64> run) {
    for (const WriteRun& write : *writes[place]) write(first, run);
  });
}

// What a reading that failed has written.
void take_back(const CurveTask& task) {
  task.slot.DrawY.clear();
  if (task.plot.XSource <= 0) return;
  task.slot.DrawX.clear();
  task.slot.DrawXII.clear();
}

}  // namespace

bool PairReading::fill(const CurveTask& task) {
  if (!files_.insert(task.path).second) return filled_.contains(task.number);
  std::vector<CurveTask> tasks;
  for (const CurveTask& other : tasks_())
    if (other.path == task.path && other.points >= 2 && other.slot.DrawY.size() >= 2) tasks.push_back(other);
  if (tasks.empty()) return false;
  if (read_together(task.path, tasks) != LoadStatus::Done) {
    for (const CurveTask& other : tasks) take_back(other);
    return false;
  }
  for (const CurveTask& other : tasks) filled_.insert(other.number);
  return filled_.contains(task.number);
}

}  // namespace trendaro
