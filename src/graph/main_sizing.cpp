#include "graph/main_sizing.h"

#include <algorithm>
#include <filesystem>
#include <limits>

#include "app/attempt.h"
#include "app/model.h"
#include "app/numbers.h"
#include "graph/curve_readers.h"
#include "graph/window_reading.h"

namespace trendaro {
namespace {

constexpr i32 kDefaultTarget = 10000;

i32 length_of_values(const Model& model) {
  constexpr auto kMost = static_cast<std::size_t>(std::numeric_limits<i32>::max());
  return static_cast<i32>(std::min(model.FileChannelValues.size(), kMost));
}

void take_longest_original(Model& model, i16 number, f64 reduce_factor, i32 points) {
  const i32 original = round_to_i32(reduce_factor / 2 * points);
  if (original <= model.LongestOriginalPoints) return;
  model.LongestOriginalPoints = original;
  model.LongestPlot = number;
}

void size_database(Model& model, const PlotRecord& plot) {
  if (plot.ChannelIndex <= 0 || model.Host == nullptr) return;
  model.ViewPoints = std::max(model.ViewPoints, model.Host->DB().GetChannelLength(plot.DatabaseChannel));
}

void size_pairs(Model& model, i16 number, const std::string& path) {
  const PlotRecord& plot = model.Plots[number];
  load_description(model, path, plot.ChannelIndex);
  i32 points = plot.Points;
  const auto slot = static_cast<std::size_t>(std::max<i16>(plot.ChannelIndex, 1) - 1);
  if (points == -1) points = slot < model.FileChannelPoints.size() ? model.FileChannelPoints[slot] : 0;
  points = plausible_points(points, path);
  model.ViewPoints = std::max(model.ViewPoints, points);
  take_longest_original(model, number, model.FileReduceFactor, points);
}

// How many points a plot has; where no one told so far, those of its values count.
i32 points_of(Model& model, const PlotRecord& plot, const std::string& path) {
  i32 points = plot.Points;
  if (points == -1) {
    load_values(model, path, plot.ChannelIndex, false);
    points = length_of_values(model);
    erase_file_values(model);
  }
  return plausible_points(points, path);
}

void size_block(Model& model, i16 number, const std::string& path) {
  const PlotRecord& plot = model.Plots[number];
  if (plot.Points != -1) load_description(model, path, plot.ChannelIndex);
  const i32 points = points_of(model, plot, path);
  model.ViewPoints = std::max(model.ViewPoints, points);
  take_longest_original(model, number, model.FileReduceBlock, points);
}

// Points of exactly the threshold change nothing; an entry without tick never raises the flag.
void decide_compression(Model& model, i32 points) {
  if (model.controls["mnuUseCompression"].ticked && points > model.CompressThreshold)
    model.DisplayCompression = true;
  else if (points < model.CompressThreshold)
    model.DisplayCompression = false;
  if (!model.HasFullDataPlot || !model.DisplayCompression) {
    model.ViewPoints = points;
    return;
  }
  if (model.CompressTarget == 0) model.CompressTarget = kDefaultTarget;
  model.CompressFactor = std::max(round_to_i32(static_cast<f64>(points) / model.CompressTarget), 1);
  const f64 compressed = static_cast<f64>(points) / model.CompressFactor;
  if (compressed > model.ViewPoints) model.ViewPoints = round_to_i32(compressed);
}

void size_plain(Model& model, i16 number, const std::string& path) {
  const PlotRecord& plot = model.Plots[number];
  const bool window = reads_window(model);
  const i32 points = window ? plausible_points(plot.Points, path) : points_of(model, plot, path);
  if (window) model.ViewPoints = 1;  // the slots grow with what is read
  if (points <= model.LongestFullPoints) return;
  model.LongestFullPoints = points;
  if (!window) decide_compression(model, points);
}

void size_plot(Model& model, i16 number) {
  const PlotRecord& plot = model.Plots[number];
  switch (plot.FileKind) {
    case kKindDatabase:
    case kKindDatabaseFromBlock:
      return size_database(model, plot);
    case kKindReducedPairs:
      return size_pairs(model, number, plot_path(plot));
    case kKindReducedBlock:
      return size_block(model, number, plot_path(plot));
    default:
      return size_plain(model, number, plot_path(plot));
  }
}

}  // namespace

bool on_show(const Model& model, const PlotRecord& plot) {
  return plot.Layer - 1 >= model.FirstLayer && plot.Layer - 1 <= model.LastLayer;
}

i32 longest_plain_plot(const Model& model) {
  i32 longest = model.LongestFullPoints;
  for (i16 number = 1; number <= model.NofPlots; ++number) {
    const PlotRecord& plot = model.Plots[number];
    if (plot.FileKind == kKindPlain)
      longest = std::max(longest, plausible_points(plot.Points, plot_path(plot)));
  }
  return longest;
}

i32 plausible_points(i32 points, const std::string& path) {
  constexpr i32 kSmall = 1000000;
  if (points <= kSmall) return points;
  std::error_code error;
  const auto bytes = std::filesystem::file_size(path, error);
  if (error) return kSmall;
  return std::max(kSmall, static_cast<i32>(std::min<std::uintmax_t>(static_cast<u32>(points), bytes)));
}

void size_again(Model& model, i32 points) {
  if (points <= model.LongestFullPoints) return;
  model.LongestFullPoints = points;
  model.ViewPoints = std::max(model.ViewPoints, points);
  if (!model.HasFullDataPlot || !model.DisplayCompression) return;
  if (model.CompressTarget == 0) model.CompressTarget = kDefaultTarget;
  model.CompressFactor = std::max(round_to_i32(static_cast<f64>(model.ViewPoints) / model.CompressTarget), 1);
  model.ViewPoints = round_to_i32(static_cast<f64>(model.ViewPoints) / model.CompressFactor);
}

i32 size_main_graph(Model& model) {
  // The original samples of a zoom, a list that has lost a plot and a reset of the zoom start afresh;
  // otherwise slots only grow.
  if (model.OriginalDataMode || model.MaxViewPoints == 0) model.ViewPoints = 0;
  if (!model.OriginalDataMode) model.LongestPlot = 0;
  model.LongestOriginalPoints = 0;
  model.LongestFullPoints = 0;
  i32 curves = 0;
  for (i16 number = 1; number <= model.NofPlots; ++number) {
    if (!on_show(model, model.Plots[number])) continue;
    ++curves;
    attempt([&] { size_plot(model, number); });
  }
  return curves;
}

}  // namespace trendaro
