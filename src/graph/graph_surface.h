#pragma once

#include <string>

#include "app/types.h"
#include "graph/graph_properties.h"

namespace trendaro {

// Codes of PEactions.
inline constexpr i16 kTakeOverAndRedraw = 0;   // takes over all data and settings
inline constexpr i16 kRedrawFromSettings = 2;  // takes over the settings; the data stay
inline constexpr i16 kLeaveZoom = 19;
inline constexpr i16 kResetToEmpty = 20;  // no curves, no points, every setting at its start value

// Numbers of the bulk data properties of PEvset.
inline constexpr i32 kXData = 0x857;
inline constexpr i32 kYData = 0x85C;
inline constexpr i32 kXDataII = 0xBC5;

// Result of the flat functions: they give 1 when the property exists and 0 otherwise.
inline constexpr i32 kPropertyDone = 1;
inline constexpr i32 kPropertyUnknown = 0;

// One graph: settings that handlers write, and settings that are on show. Nothing a handler writes shows
// before PEactions.
class GraphSurface {
 public:
  // `handle` tells the graphs of a model apart.
  explicit GraphSurface(i32 handle) : Handle(handle) {}

  i32 Handle;
  GraphProperties pending;

  // The settings of the layer that pending.WorkingAxis chooses. Throws RunTimeError{kIndexOutOfRange} for a
  // layer that does not exist.
  LayerProperties& layer();

  // What painters draw.
  [[nodiscard]] const GraphProperties& shown() const { return shown_; }
  // Raised by every PEactions that changes what is on show.
  [[nodiscard]] u64 revision() const { return revision_; }

 private:
  friend void PEactions(GraphSurface& graph, i16 action);
  GraphProperties shown_;
  u64 revision_ = 0;
};

// Executes a command on a graph; see the codes above. Taking over scales every axis whose manual scale
// control is 0 to its data, padded by AutoPadPercent at both ends, and leaves the limits in ManualMinX ...
// ManualMaxRY of `pending` and of what is shown. Unknown codes do nothing.
void PEactions(GraphSurface& graph, i16 action);

// Hands over the values of all curves: kXData or kYData / kXDataII. They count SubsetCount x PointCount.
i32 PEvset(GraphSurface& graph, i32 property, FlatArray values);
i32 PEvset(GraphSurface& graph, i32 property, SampleArray values);

// Writes an integer property by its number.
i32 PEnset(GraphSurface& graph, i32 property, i32 value);

// Writes an element of an array property, growing the array. Index -1 empties it.
template <typename T, typename V>
void set_element(std::vector<T>& list, i32 index, V value) {
  if (index < 0) {
    list.clear();
    return;
  }
  const auto slot = static_cast<std::size_t>(index);
  if (list.size() <= slot) list.resize(slot + 1);
  list[slot] = static_cast<T>(std::move(value));
}

}  // namespace trendaro
