#include "graph/graph_surface.h"

#include <type_traits>
#include <utility>

#include "app/run_time_error.h"
#include "graph/auto_scale.h"
#include "graph/curve_fits.h"
#include "graph/curve_index.h"
#include "graph/table_layout.h"

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
  pending.curve_fits = curve_fits(pending, pending.curve_fits);
  scale_to_data(pending);
  shown = pending;
}

// Axes that follow the data leave their limits where handlers look for them.
void hand_back_limits(const GraphProperties& scaled, GraphProperties& pending) {
  pending.ManualMinX = scaled.ManualMinX;
  pending.ManualMaxX = scaled.ManualMaxX;
  for (std::size_t i = 0; i < kGraphLayers; ++i) {
    pending.layers[i].ManualMinY = scaled.layers[i].ManualMinY;
    pending.layers[i].ManualMaxY = scaled.layers[i].ManualMaxY;
    pending.layers[i].ManualMinRY = scaled.layers[i].ManualMinRY;
    pending.layers[i].ManualMaxRY = scaled.layers[i].ManualMaxRY;
  }
}

void take_over_settings(GraphProperties& pending, GraphProperties& shown) {
  GraphProperties taken = pending;
  taken.XData = std::move(shown.XData);
  taken.YData = std::move(shown.YData);
  taken.XDataII = std::move(shown.XDataII);
  taken.curve_index = std::move(shown.curve_index);
  taken.NullDataValue = shown.NullDataValue;
  taken.NullDataValueX = shown.NullDataValueX;
  taken.UsingXDataII = shown.UsingXDataII;
  taken.SubsetCount = shown.SubsetCount;
  taken.PointCount = shown.PointCount;
  taken.curve_fits = curve_fits(taken, shown.curve_fits);
  scale_to_data(taken);
  hand_back_limits(taken, pending);
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

TableProperties& GraphSurface::table() {
  const auto index = static_cast<std::size_t>(pending.WorkingTable);
  if (pending.WorkingTable < 0 || index >= kGraphTables) throw RunTimeError{kIndexOutOfRange};
  return pending.tables[index];
}

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
      graph.curves_of_section = false;
      break;
    case kResetToEmpty:
      reset(graph.pending, graph.shown_);
      break;
    case kShowExportDialog:
    case kPrintGraph:
    case kMetafileToClipboard:
    case kMetafileToFile:
    case kBitmapToClipboard:
    case kBitmapToFile:
    case kJpegToClipboard:
    case kJpegToFile:
      if (graph.output) graph.output(graph, action);
      return;
    default:
      return;
  }
  ++graph.revision_;
}

void TableRefresh(GraphSurface& graph, i32 apply) {
  if (apply == 0) return;
  const TableExtents former = table_extents(graph.shown_);
  graph.shown_.tables = graph.pending.tables;
  graph.shown_.TablesEnabled = graph.pending.TablesEnabled;
  ++(table_extents(graph.shown_) == former ? graph.overlay_revision_ : graph.revision_);
}

void write_show_annotations(GraphSurface& graph, bool show) {
  graph.pending.ShowAnnotations = graph.shown_.ShowAnnotations = show;
  graph.shown_.VertLineAnnotation = graph.pending.VertLineAnnotation;
  graph.shown_.VertLineAnnotationText = graph.pending.VertLineAnnotationText;
  graph.shown_.VertLineAnnotationColor = graph.pending.VertLineAnnotationColor;
  graph.shown_.VertLineAnnotationType = graph.pending.VertLineAnnotationType;
  ++graph.overlay_revision_;
}

void set_cell_text(TableProperties& table, i32 row, i32 column, std::string text) {
  table.cells[{row, column}].text = std::move(text);
}

void set_cell_color(TableProperties& table, i32 row, i32 column, i32 color) {
  table.cells[{row, column}].color = color;
}

i32 PEvset(GraphSurface& graph, i32 property, FlatArray values) {
  if (property != kXData && property != kYData) return kPropertyUnknown;
  auto& place = property == kXData ? graph.pending.XData : graph.pending.YData;
  place = std::make_shared<FlatArray>(std::move(values));
  return kPropertyDone;
}

i32 PEvset(GraphSurface& graph, i32 property, SampleArray values) {
  if (property != kXDataII) return kPropertyUnknown;
  graph.pending.XDataII = std::make_shared<SampleArray>(std::move(values));
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
#define TABLE_PROPERTY(number, type, name, initial) \
  case number:                                      \
    return write_integer(graph.table().name, value);
#include "graph/graph_properties.def"
    default:
      return kPropertyUnknown;
  }
}

namespace {

template <typename Values>
i32 read_cell(const std::shared_ptr<const Values>& values, std::size_t place, f64& value) {
  if (!values || place >= values->size()) return kPropertyUnknown;
  value = static_cast<f64>((*values)[place]);
  return kPropertyDone;
}

}  // namespace

i32 PEvgetcellEx(const GraphSurface& graph, i32 property, i32 subset, i32 point, f64& value) {
  const GraphProperties& shown = graph.shown();
  if (subset < 0 || subset >= shown.SubsetCount || point < 0 || point >= shown.PointCount)
    return kPropertyUnknown;
  const std::size_t place = static_cast<std::size_t>(subset) * static_cast<std::size_t>(shown.PointCount) +
                            static_cast<std::size_t>(point);
  switch (property) {
    case kXData:
      return read_cell(shown.XData, place, value);
    case kYData:
      return read_cell(shown.YData, place, value);
    case kXDataII:
      return read_cell(shown.XDataII, place, value);
    default:
      return kPropertyUnknown;
  }
}

}  // namespace trendaro
