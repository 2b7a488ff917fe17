#include "files/dataset_header.h"

#include <cmath>

#include "app/model.h"
#include "files/loader.h"

namespace trendaro {

LoadStatus load_dataset_header(Model& model, const std::string& path, i16 channel) {
  const LoadStatus status = LoadMeasurementFile(model, 0, path, channel, 0);
  model.LastDatabaseStatus = static_cast<i32>(status);
  return status;
}

i64 original_points(const Model& model, i16 channel) {
  const auto slot = static_cast<std::size_t>(channel) - 1;
  if (channel < 1 || slot >= model.FileChannelPoints.size()) return 0;
  const i64 stored = model.FileChannelPoints[slot];
  if (stored == -1) {
    const auto& estimates = model.FileChannelPointsEstimate;
    return estimates.has(channel) ? estimates[channel] : 0;
  }
  if (model.FileReduceFactor != 0) return stored * model.FileReduceFactor;
  if (model.FileReduceBlock == 0) return stored;
  return std::llrint(static_cast<f64>(stored) * model.FileReduceBlock / 2);
}

}  // namespace trendaro
