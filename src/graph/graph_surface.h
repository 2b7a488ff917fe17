#pragma once

#include <functional>
#include <string>

#include "app/types.h"
#include "graph/graph_properties.h"

namespace trendaro {

// Codes of PEactions.
inline constexpr i16 kTakeOverAndRedraw = 0;   // takes over all data and settings
inline constexpr i16 kRedrawFromSettings = 2;  // takes over the settings; the data stay
inline constexpr i16 kShowExportDialog = 6;
inline constexpr i16 kPrintGraph = 8;
inline constexpr i16 kMetafileToClipboard = 12;
inline constexpr i16 kMetafileToFile = 13;
inline constexpr i16 kBitmapToClipboard = 14;
inline constexpr i16 kBitmapToFile = 15;
inline constexpr i16 kLeaveZoom = 19;
inline constexpr i16 kResetToEmpty = 20;  // no curves, no points, every setting at its start value
inline constexpr i16 kJpegToClipboard = 21;
inline constexpr i16 kJpegToFile = 22;

// Numbers of the bulk data properties of PEvset.
#define GRAPH_SAMPLES(number, type, name) inline constexpr i32 k##name = number;
#include "graph/graph_properties.def"

// Result of the flat functions: they give 1 when the property exists and 0 otherwise.
inline constexpr i32 kPropertyDone = 1;
inline constexpr i32 kPropertyUnknown = 0;

// One graph: settings that handlers write, and settings that are on show. Nothing a handler writes shows
// before PEactions.
class GraphSurface {
 public:
  // `handle` tells the graphs of a model apart.
  explicit GraphSurface(i32 handle) : Handle(handle) {}

  i32 Handle;               // the same as long as the graph lives
  GraphProperties pending;  // settings as handlers write them
  // The curves were worked out for a section: such a zoom can be taken back although ZoomActive is false, and
  // there is nothing beyond to scroll to. Leaving the zoom lowers it, each redraw of the curves sets it anew.
  bool curves_of_section = false;

  // Takes the commands that carry the graph out of the program: dialog, printer, clipboard, files. Size and
  // file name stand in ExportWidth, ExportHeight and ExportFileName of `pending`. Empty: they do nothing.
  std::function<void(GraphSurface& graph, i16 action)> output;

  // The settings of the layer that pending.WorkingAxis chooses. Throws RunTimeError{kIndexOutOfRange} for a
  // layer that does not exist.
  LayerProperties& layer();
  // The table that pending.WorkingTable chooses; throws as `layer` does.
  TableProperties& table();

  // What painters draw.
  [[nodiscard]] const GraphProperties& shown() const { return shown_; }
  // Raised by every PEactions that changes what is on show.
  [[nodiscard]] u64 revision() const { return revision_; }
  // Raised when only what stands over the curves has changed: limit lines and tables.
  [[nodiscard]] u64 overlay_revision() const { return overlay_revision_; }

 private:
  friend void PEactions(GraphSurface& graph, i16 action);
  friend void TableRefresh(GraphSurface& graph, i32 apply);
  friend void write_show_annotations(GraphSurface& graph, bool show);
  GraphProperties shown_;
  u64 revision_ = 0;
  u64 overlay_revision_ = 0;
};

// Executes a command on a graph; see the codes above. Taking over scales every axis whose manual scale
// control is 0 to its data, padded by AutoPadPercent at both ends, and leaves the limits in ManualMinX ...
// ManualMaxRY of `pending` and of what is shown. Unknown codes do nothing.
void PEactions(GraphSurface& graph, i16 action);

// Brings the contents and the look of all tables on show, for `apply` other than 0. Nothing else is taken
// over.
// Counts as a change of the overlay unless the graph gets another width.
void TableRefresh(GraphSurface& graph, i32 apply);

// Writes ShowAnnotations and brings the vertical lines on show at once, and nothing else: a dragged line
// costs no more than that.
void write_show_annotations(GraphSurface& graph, bool show);

// Text and colour of a cell of a table, row and column from 0; cells beyond the table's size are kept unseen.
void set_cell_text(TableProperties& table, i32 row, i32 column, std::string text);
void set_cell_color(TableProperties& table, i32 row, i32 column, i32 color);

// Hands over the values of all curves: kXData or kYData / kXDataII. They count SubsetCount x PointCount.
i32 PEvset(GraphSurface& graph, i32 property, FlatArray values);
i32 PEvset(GraphSurface& graph, i32 property, SampleArray values);

// Writes an integer property by its number.
i32 PEnset(GraphSurface& graph, i32 property, i32 value);

// Reads a value of the data on show: kXData, kYData or kXDataII of curve `subset` at `point`, both from 0.
// kPropertyUnknown, with `value` untouched, where there is none.
i32 PEvgetcellEx(const GraphSurface& graph, i32 property, i32 subset, i32 point, f64& value);

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
