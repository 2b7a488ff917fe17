#include "graph/graph_surface.h"

#include <type_traits>
#include <utility>

#include "app/run_time_error.h"
#include "graph/auto_scale.h"
#include "graph/curve_index.h"

namespace trendaro {
namespace {

// What an index was made from; when none of it has changed the index still holds.
bool same_data(const GraphProperties& a, const GraphProperties& b) {
  return a.XData == b.XData && a.YData == b.YData && a.XDataII == b.XDataII &&
         a.UsingXDataII == b.UsingXDataII && a.SubsetCount == b.SubsetCount && a.PointCount == b.PointCount &&
         a.NullDataValue == b.NullDataValue && a.NullDataValueX == b.NullDataValueX;
}

void take_over(GraphProperties& pending, GraphProperties& shown) {
  if (!pending.curve_index || !same_data(pending, shown)) pending.curve_index = build_curve_index(pending);
  scale_to_data(pending);
  shown = pending;
}

void take_over_settings(const GraphProperties& pending, GraphProperties& shown) {
  GraphProperties taken = pending;
  taken.XData = std::move(shown.XData);
  taken.YData = std::move(shown.YData);
  taken.XDataII = std::move(shown.XDataII);
  taken.curve_index = std::move(shown.curve_index);
  taken.UsingXDataII = shown.UsingXDataII;
  taken.SubsetCount = shown.SubsetCount;
  taken.PointCount = shown.PointCount;
  shown = std::move(taken);
}

// The count of points outlives the reset; who wants it gone writes 0 beforehand.
void reset(GraphProperties& pending, GraphProperties& shown) {
  const i32 points = pending.PointCount;
  pending = GraphProperties{};
  pending.PointCount = points;
  shown = pending;
}

// An integer property takes the value when its type can hold it; texts and reals are no integers.
template <typename T>
i32 write_integer(T& place, i32 value) {
  if constexpr (std::is_same_v<T, i32> || std::is_same_v<T, i16> || std::is_same_v<T, bool>) {
    if (!std::is_same_v<T, bool> && static_cast<T>(value) != value) return kPropertyUnknown;
    place = static_cast<T>(value);
    return kPropertyDone;
  }
  return kPropertyUnknown;
}

}  // namespace

LayerProperties& GraphSurface::layer() {
  const auto index = static_cast<std::size_t>(pending.WorkingAxis);
  if (pending.WorkingAxis < 0 || index >= kGraphLayers) throw RunTimeError{kIndexOutOfRange};
  return pending.layers[index];
}

void PEactions(GraphSurface& graph, i16 action) {
  switch (action) {
    case kTakeOverAndRedraw:
      take_over(graph.pending, graph.shown_);
      break;
    case kRedrawFromSettings:
      take_over_settings(graph.pending, graph.shown_);
      break;
    case kLeaveZoom:
      graph.pending.ZoomActive = graph.shown_.ZoomActive = false;
      break;
    case kResetToEmpty:
      reset(graph.pending, graph.shown_);
      break;
    default:
      return;
  }
  ++graph.revision_;
}

i32 PEvset(GraphSurface& graph, i32 property, FlatArray values) {
  if (property != kXData && property != kYData) return kPropertyUnknown;
  auto& place = property == kXData ? graph.pending.XData : graph.pending.YData;
  place = std::make_shared<const FlatArray>(std::move(values));
  return kPropertyDone;
}

i32 PEvset(GraphSurface& graph, i32 property, SampleArray values) {
  if (property != kXDataII) return kPropertyUnknown;
  graph.pending.XDataII = std::make_shared<const SampleArray>(std::move(values));
  return kPropertyDone;
}

i32 PEnset(GraphSurface& graph, i32 property, i32 value) {
  switch (property) {
#define GRAPH_PROPERTY(number, type, name, initial) \
  case number:                                      \
    return write_integer(graph.pending.name, value);
#define LAYER_PROPERTY(number, type, name, initial) \
  case number:                                      \
    return write_integer(graph.layer().name, value);
#include "graph/graph_properties.def"
    default:
      return kPropertyUnknown;
  }
}

}  // namespace trendaro
