#include "graph/compressed_section.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "app/model.h"
#include "graph/curve_index.h"
#include "graph/main_sizing.h"
#include "graph/unzoomed_scale.h"
#include "graph/zoom_arithmetic.h"

namespace trendaro {
namespace {

constexpr i16 kManualRange = 3;

bool curve_on_show(const Model& model, bool plain) {
  return std::ranges::any_of(model.Plots, [&](const PlotRecord& plot) {
    return (plot.FileKind == kKindPlain) == plain && on_show(model, plot);
  });
}

void hold_automatic_x(Model& model) {
  if (model.PESG.pending.ManualScaleControlX != 0) return;
  if (!model.unzoomed_scale.held) hold_unzoomed_scale(model);
  model.PESG.pending.ManualScaleControlX = kManualRange;
  model.unzoomed_scale.x_held = true;
}

// A reduced curve beside the section of a compressed one would widen an automatic x axis to its own length.
void hold_shared_section(Model& model) {
  if (!zoom_taken_back(model) && curve_on_show(model, false)) hold_automatic_x(model);
}

// Over half of the section at least.
bool samples_fill_section(const Model& model) {
  const XWindow section{model.ZoomScaleLimits[0][0], model.ZoomScaleLimits[0][1]};
  PointExtent samples;
  if (const auto& index = model.PESG.shown().curve_index)
    for (const CurveExtents& curve : index->curves) samples.add(curve.whole);
  return samples.x_high - samples.x_low >= section.width() / 2;
}

// A section outlasts the zoom of the graph, which a released mode takes back.
bool section_stands(const Model& model) {
  const GraphProperties& graph = model.PESG.pending;
  return graph.ZoomActive || (!zoom_taken_back(model) && graph.ZoomMinX < graph.ZoomMaxX);
}

// Limits that curves had before stay: a change of the time unit has carried them over already.
void zoom_compressed_curves(Model& model, bool were_of_section) {
  const GraphProperties& graph = model.PESG.pending;
  if (!were_of_section && section_stands(model))
    model.ZoomScaleLimits[0] = {graph.ZoomMinX, graph.ZoomMaxX, 0, 0};
  if (!graph.ZoomActive) hold_shared_section(model);
}

}  // namespace

void forget_section(Model& model) {
  constexpr f64 kUnlimited = std::numeric_limits<f64>::infinity();
  model.ZoomScaleLimits = {};
  model.ZoomScaleLimits[0] = {-kUnlimited, kUnlimited, 0, 0};
}

bool zoom_taken_back(const Model& model) {
  return !std::isfinite(model.ZoomScaleLimits[0][1]);
}

void begin_section(Model& model) {
  if (zoom_taken_back(model)) model.ZoomScaleLimits = {};
}

bool compresses_curves(const Model& model) {
  return model.DisplayCompression && curve_on_show(model, true);
}

void hold_sparse_section(Model& model) {
  GraphProperties& graph = model.PESG.pending;
  if (graph.ManualScaleControlX != 0 || samples_fill_section(model)) return;
  hold_automatic_x(model);
  model.unzoomed_scale.overwritten = true;
  graph.ManualMinX = model.ZoomScaleLimits[0][0];
  graph.ManualMaxX = model.ZoomScaleLimits[0][1];
  PEactions(model.PESG, kRedrawFromSettings);
}

void settle_section(Model& model) {
  const bool were_of_section = std::exchange(model.PESG.curves_of_section, false);
  if (!model.Zoomed) return;
  if (compresses_curves(model)) return zoom_compressed_curves(model, were_of_section);
  if (!were_of_section) return;
  // The limits of the band still stand in the zoom of the graph.
  show_unzoomed_scale(model);
  if (!model.OriginalDataMode && !zoom_taken_back(model)) model.PESG.pending.ZoomActive = true;
}

}  // namespace trendaro
