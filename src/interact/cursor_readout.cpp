#include "interact/cursor_readout.h"

#include <algorithm>
#include <functional>
#include <string>

#include "app/attempt.h"
#include "app/dates.h"
#include "app/model.h"
#include "graph/graph_surface.h"
#include "graph/table_layout.h"
#include "interact/cursor_format.h"

namespace trendaro {
namespace {

constexpr i32 kLayers = 6;
constexpr i32 kWhiteTable = 0xFFFFFF;
constexpr i32 kBlackText = 0x000000;
constexpr i32 kFrame = 3;
constexpr i32 kTextPercent = 80;
constexpr i32 kColumnCharacters = 10;
constexpr i32 kColumnsWithX = 5;  // of the first layer
constexpr i32 kColumns = 4;       // of the others
constexpr const char* kSeparator = "----------------";

i32 curves_of_layer(const GraphProperties& graph, i32 layer) {
  const auto index = static_cast<std::size_t>(layer);
  if (graph.MultiAxesSubsets.empty()) return layer == 0 ? graph.SubsetCount : 0;
  return index < graph.MultiAxesSubsets.size() ? graph.MultiAxesSubsets[index] : 0;
}

// The curves of each layer in turn, numbers from 0; no more than the graph has.
void each_curve(const GraphProperties& graph,
                const std::function<void(i32 layer, i32 curve, i32 place)>& visit,
                const std::function<void(i32 layer)>& layer_done) {
  i32 curve = 0;
  for (i32 layer = 0; layer < kLayers && curve < graph.SubsetCount; ++layer) {
    const i32 curves = std::min(curves_of_layer(graph, layer), graph.SubsetCount - curve);
    for (i32 place = 1; place <= curves; ++place) visit(layer, curve++, place);
    if (curves > 0) layer_done(layer);
  }
}

f64 cell_value(Model& model, i32 property, i32 curve) {
  f64 value = 0;
  model.LastDatabaseStatus = PEvgetcellEx(model.PESG, property, curve, model.PESG.pending.CursorPoint, value);
  return value;
}

std::string x_text(Model& model, const char* behind_date) {
  const GraphProperties& graph = model.PESG.pending;
  const f64 x = cell_value(model, graph.UsingXDataII ? kXDataII : kXData, graph.CursorSubset);
  if (graph.UsingXDataII) return "x=" + date_time_text(x) + behind_date;
  return "x=" + FormatCursorValue(x) + " " + model.XUnit;
}

std::string curve_text(Model& model, i32 curve) {
  const i32 plot = curve + 1 + model.CurveOffset;
  const std::string unit = plot >= 1 && plot <= model.NofPlots ? model.Plots[plot].Unit : "";
  return FormatCursorValue(cell_value(model, kYData, curve)) + " " + unit;
}

void write_curve(Model& model, TableProperties& table, i32 row, i32 column, i32 curve) {
  const auto& colors = model.PESG.pending.SubsetColors;
  const auto index = static_cast<std::size_t>(curve);
  set_cell_text(table, row, column, curve_text(model, curve));
  set_cell_color(table, row, column, index < colors.size() ? colors[index] : kBlackText);
}

void fill_column(Model& model) {
  TableProperties& table = model.PESG.pending.tables[0];
  i32 row = 0;
  set_cell_text(table, row++, 0, x_text(model, ""));
  each_curve(
      model.PESG.pending, [&](i32, i32 curve, i32) { write_curve(model, table, row++, 0, curve); },
      [&](i32) { set_cell_text(table, row++, 0, kSeparator); });
}

// The first layer's table begins with x, so its curves stand from the second cell on.
void fill_layers(Model& model) {
  auto& tables = model.PESG.pending.tables;
  if (curves_of_layer(model.PESG.pending, 0) > 0) set_cell_text(tables[0], 0, 0, x_text(model, "     "));
  each_curve(
      model.PESG.pending,
      [&](i32 layer, i32 curve, i32 place) {
        const i32 columns = layer == 0 ? kColumnsWithX : kColumns;
        const i32 cell = layer == 0 ? place : place - 1;
        write_curve(model, tables[static_cast<std::size_t>(layer)], cell / columns, cell % columns, curve);
      },
      [](i32) {});
}

void give_look(TableProperties& table, i32 location, i32 rows, i32 columns) {
  table.TableLocation = location;
  table.TableRows = rows;
  table.TableColumns = columns;
  table.TableBorder = kFrame;
  table.TableBackground = kWhiteTable;
  table.TableForeground = kBlackText;
  table.TableTextSize = kTextPercent;
  table.column_widths.clear();
  for (i32 column = 0; column < columns; ++column) table.column_widths[column] = kColumnCharacters;
  table.cells.clear();
  table.TableVisible = true;
}

void build_column(GraphProperties& graph) {
  for (TableProperties& table : graph.tables) table.TableVisible = false;
  give_look(graph.tables[0], kTableRightOfGraph, graph.SubsetCount + 4, 1);
}

void build_layers(GraphProperties& graph) {
  for (i32 layer = 0; layer < kLayers; ++layer) {
    TableProperties& table = graph.tables[static_cast<std::size_t>(layer)];
    const i32 curves = curves_of_layer(graph, layer);
    const i32 columns = layer == 0 ? kColumnsWithX : kColumns;
    if (curves > 0)
      give_look(table, kTableInLayer + layer, curves / columns + 1, columns);
    else
      table.TableVisible = false;
  }
}

}  // namespace

void ShowCursorDisplay(Model& model, bool hide) {
  GraphProperties& graph = model.PESG.pending;
  if (!hide) {
    if (model.CursorDisplayPos == kInsideLayers)
      build_layers(graph);
    else
      build_column(graph);
    UpdateCursorDisplay(model);
  }
  graph.TablesEnabled = !hide;
  TableRefresh(model.PESG, 1);
}

void UpdateCursorDisplay(Model& model) {
  const i16 mode = model.PESG.pending.CursorMode;
  if (mode == 4 || mode == 5) return;
  attempt([&] {
    if (model.CursorDisplayPos == kInsideLayers)
      fill_layers(model);
    else
      fill_column(model);
    TableRefresh(model.PESG, 1);
  });
}

void refresh_cursor_display(Model& model) {
  ShowCursorDisplay(model, model.PESG.pending.CursorMode == 0);
}

}  // namespace trendaro
