#include "datasource/plot_carry_over.h"

#include <utility>

#include "app/attempt.h"
#include "app/model.h"
#include "app/paths.h"

namespace trendaro {
namespace {

// A plot that shows original samples stands on a channel of the original file, `index` on the pair of the
// reduced file. Block recordings keep their channel numbers when they are reduced.
bool same_channel(const PlotRecord& former, i16 index) {
  const i32 channel = former.ChannelIndex;
  return (former.FileKind == kKindDatabase ? 2 * channel - 1 : channel) == index;
}

void move_annotations(Model& model, i16 from, i16 to) {
  for (AnnotationRecord& annotation : model.Annotations)
    if (annotation.Plot == from && !annotation.Moved) {
      annotation.Plot = to;
      annotation.Moved = true;
    }
}

void copy_settings(const PlotRecord& former, PlotRecord& plot) {
  plot.Title = former.Title;
  plot.Color = former.Color;
  plot.PlotMethod = former.PlotMethod;
  plot.LineType = former.LineType;
  plot.PointType = former.PointType;
  plot.Cached = former.Cached;
  if (plot.Points == -1) plot.Points = former.Points;
}

}  // namespace

FormerPlots take_former_plots(Model& model) {
  FormerPlots former;
  former.plots = std::exchange(model.Plots, {});
  former.caches = std::exchange(model.CurveCache, {});
  former.caches.resize(former.plots.size());
  return former;
}

bool same_file(const PlotRecord& a, const PlotRecord& b) {
  return equal_ignoring_case(plot_path(a), plot_path(b));
}

void carry_over(Model& model, FormerPlots& former, i16 number, i16 index) {
  PlotRecord& plot = model.Plots[number];
  former.cache_from.resize(static_cast<std::size_t>(number));
  for (std::size_t j = 1; j <= former.plots.size(); ++j) {
    const PlotRecord& candidate = former.plots[j];
    if (!same_channel(candidate, index) || !same_file(candidate, plot)) continue;
    copy_settings(candidate, plot);
    former.cache_from[number] = static_cast<i16>(j);
    move_annotations(model, static_cast<i16>(j), number);
  }
}

void carry_over_caches(Model& model, FormerPlots& former) {
  OneBased<i16> takers(former.plots.size());
  for (const i16 source : former.cache_from)
    if (source > 0) ++takers[source];
  model.CurveCache.resize(model.Plots.size());
  former.cache_from.resize(model.Plots.size());
  for (std::size_t n = 1; n <= model.Plots.size(); ++n) {
    const i16 source = former.cache_from[n];
    if (source == 0) continue;
    if (--takers[source] == 0)
      model.CurveCache[n] = std::move(former.caches[source]);
    else if (!attempt([&] { model.CurveCache[n] = former.caches[source]; }))
      model.Plots[n].Cached = 0;
  }
}

}  // namespace trendaro
