#include "graph/curve_cache.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "app/model.h"
#include "files/loader.h"

namespace trendaro {
namespace {

LoadStatus load(Model& model, i16 mode, const std::string& path, i16 channel) {
  const LoadStatus status = LoadMeasurementFile(model, mode, path, channel, 0);
  model.LastDatabaseStatus = static_cast<i32>(status);
  return status;
}

CurveBlock& cache_of(Model& model, i16 plot) {
  if (!model.CurveCache.has(plot)) model.CurveCache.resize(model.Plots.size());
  return model.CurveCache[plot];
}

}  // namespace

std::span<const f64> plain_samples(Model& model, i16 plot, const std::string& path, LoadStatus& status) {
  PlotRecord& record = model.Plots[plot];
  if (record.Cached != 0) {
    status = load(model, 0, path, record.ChannelIndex);
    return cache_of(model, plot);
  }
  model.FileChannelValues = {};
  status = load(model, 1, path, record.ChannelIndex);
  // A file that could not be opened left nothing to keep, and is tried again the next time.
  if (model.CurveCacheOff || status == LoadStatus::NotOpened) return model.FileChannelValues;
  CurveBlock& cache = cache_of(model, plot);
  cache.index = nullptr;
  cache.swap(model.FileChannelValues);
  model.FileChannelValues = {};
  record.Cached = 1;
  return cache;
}

const SampleIndex* kept_index(Model& model, i16 plot) {
  // A shorter curve is looked through as fast.
  constexpr std::size_t kWorthAnIndex = 1 << 16;
  if (model.Plots[plot].Cached == 0) return nullptr;
  CurveBlock& cache = cache_of(model, plot);
  if (cache.size() < kWorthAnIndex) return nullptr;
  if (cache.index == nullptr) cache.index = build_sample_index(cache);
  return cache.index.get();
}

std::span<const f64> x_channel_samples(Model& model, const std::string& path, i16 channel) {
  model.FileChannelValues = {};
  static_cast<void>(load(model, 1, path, channel));
  if (!model.XCacheValid) {
    if (model.CurveCacheOff) return model.FileChannelValues;
    model.XCacheValid = true;
    model.XCacheBlock = std::exchange(model.FileChannelValues, {});
    model.XCachePoints = static_cast<i32>(
        std::min(model.XCacheBlock.size(), static_cast<std::size_t>(std::numeric_limits<i32>::max())));
    return model.XCacheBlock;
  }
  const std::size_t kept = std::min(model.XCacheBlock.size(), model.FileChannelValues.size());
  if (kept == model.FileChannelValues.size()) return std::span<const f64>(model.XCacheBlock).first(kept);
  std::copy_n(model.XCacheBlock.begin(), kept, model.FileChannelValues.begin());
  return model.FileChannelValues;
}

void free_x_cache(Model& model) {
  model.XCacheValid = false;
  model.XCacheBlock = {};
  model.XCachePoints = 0;
}

void free_curve_caches(Model& model) {
  for (PlotRecord& plot : model.Plots) plot.Cached = 0;
  model.CurveCache.clear();
  free_x_cache(model);
}

}  // namespace trendaro
