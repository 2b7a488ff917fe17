#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "app/types.h"
#include "graph/curve_readers.h"

namespace trendaro {

// Envelopes in the order in which a redraw comes to them. Those of one recording lie interleaved in it, so
// that its rows are read once and give them all.
class PairReading {
 public:
  using Tasks = std::function<std::vector<CurveTask>()>;

  // `tasks` gives a task for each plot of pairs that the redraw draws.
  explicit PairReading(Tasks tasks) : tasks_(std::move(tasks)) {}

  // Fills DrawY of a plot and, over an x channel, its x; with the first plot of a file those of its other
  // plots. False where the plot must be read channel by channel; its slot is then as it was.
  bool fill(const CurveTask& task);

  // Whether the plot was filled.
  [[nodiscard]] bool has_filled(const CurveTask& task) const { return filled_.contains(task.number); }

 private:
  Tasks tasks_;
  std::set<std::string> files_;  // that have been looked at
  std::set<i16> filled_;         // numbers of plots
};

}  // namespace trendaro
