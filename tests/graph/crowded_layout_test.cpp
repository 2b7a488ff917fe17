// Graphs with all that can stand around and inside of the curves, drawn at random.

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "graph/legend_layout.h"
#include "graph/table_layout.h"
#include "support/layout_graph.h"

namespace trendaro {
namespace {

class RandomParts {
 public:
  explicit RandomParts(u32 seed) : random_(seed) {}

  i32 below(i32 limit) { return static_cast<i32>(random_() % static_cast<u32>(limit)); }
  bool one_in(i32 count) { return below(count) == 0; }
  std::string name(i32 most) { return std::string(1 + static_cast<std::size_t>(below(most)), 'n'); }

 private:
  std::mt19937 random_;
};

void draw_layers(GraphProperties& shown, RandomParts& parts) {
  const i32 layers = std::min(shown.SubsetCount, 1 + parts.below(3));
  i32 left = shown.SubsetCount;
  for (i32 layer = 0; layer < layers; ++layer) {
    const i32 others = layers - 1 - layer;
    const i32 share = others == 0 ? left : 1 + parts.below(left - others);
    set_element(shown.MultiAxesSubsets, layer, share);
    left -= share;
  }
  for (LayerProperties& layer : shown.layers) {
    if (parts.one_in(2)) layer.YAxisLabel = "Kraft/kN";
    if (parts.one_in(2)) layer.RYAxisLabel = "Druck/bar";
    layer.ShowRYAxis = parts.one_in(2);
    layer.LayerProportion = static_cast<i16>(parts.below(4));
  }
}

void draw_titles(GraphProperties& shown, RandomParts& parts) {
  if (parts.one_in(2)) shown.MainTitle = parts.name(120);
  if (parts.one_in(2)) shown.SubTitle = "unkomprimierte Daten";
  for (i32 line = parts.below(6); line > 0; --line)
    shown.MultiSubTitles.push_back(parts.name(60) + "|" + parts.name(60) + "|" + parts.name(60));
  for (i32 line = parts.below(6); line > 0; --line)
    shown.MultiBottomTitles.push_back(parts.one_in(2) ? parts.name(200) + "||" : "a||" + parts.name(200));
  if (parts.one_in(2)) shown.XAxisLabel = "Zeit/s";
}

void draw_table(TableProperties& table, i32 location, RandomParts& parts) {
  table.TableVisible = true;
  table.TableLocation = location;
  table.TableRows = 1 + parts.below(6);
  table.TableColumns = 1 + parts.below(5);
  for (i32 row = 0; row < table.TableRows; ++row)
    for (i32 column = 0; column < table.TableColumns; ++column)
      set_cell_text(table, row, column, parts.name(15));
}

void draw_tables(GraphProperties& shown, RandomParts& parts) {
  shown.TablesEnabled = parts.one_in(2);
  const bool in_layers = parts.one_in(2);
  for (std::size_t i = 0; i < shown.tables.size(); ++i)
    if (parts.one_in(2))
      draw_table(shown.tables[i], in_layers ? kTableInLayer + parts.below(3) : kTableRightOfGraph, parts);
}

GraphSurface random_graph(RandomParts& parts) {
  GraphSurface graph = graph_with(1 + parts.below(12));
  GraphProperties& shown = graph.pending;
  for (std::string& label : shown.SubsetLabels) label = parts.name(40);
  for (i32& method : shown.SubsetPlotMethods) method = parts.one_in(3) ? kRightAxisMethod : 0;
  shown.LegendLocation = static_cast<i16>(parts.below(parts.one_in(2) ? 2 : 4));
  shown.LegendStyle = static_cast<i16>(parts.one_in(2) ? kLegendList : parts.below(3));
  if (parts.one_in(5)) shown.RightMargin = "Grenze|R";
  draw_layers(shown, parts);
  draw_titles(shown, parts);
  draw_tables(shown, parts);
  PEactions(graph, kTakeOverAndRedraw);
  return graph;
}

struct NamedBox {
  std::string name;
  PixelRectangle box;
};
using Boxes = std::vector<NamedBox>;

void add_text(Boxes& boxes, const std::string& name, const PlacedText& text) {
  if (!text.text.empty()) boxes.push_back({name, text.box});
}

void add_axis(Boxes& boxes, const std::string& name, const AxisLayout& axis) {
  for (const PlacedText& label : axis.labels) add_text(boxes, "value of " + name, label);
  add_text(boxes, "title of " + name, axis.title);
}

Boxes legend_boxes(const GraphLayout& layout) {
  Boxes boxes;
  for (const LegendEntry& entry : layout.legend) {
    const std::string name = "curve " + std::to_string(entry.subset);
    boxes.push_back({"sample of " + name, entry.sample});
    add_text(boxes, "name of " + name, entry.name);
  }
  for (const PlacedText& note : layout.legend_notes) add_text(boxes, "note", note);
  return boxes;
}

// What stands around the layers, and what stands inside of them.
struct Parts {
  Boxes around, inside;
};

Parts parts_of(const GraphProperties& shown, const GraphLayout& layout) {
  Parts parts;
  for (const PlacedText& title : layout.titles) add_text(parts.around, "title line", title);
  add_axis(parts.around, "x", layout.x_axis);
  for (const LayerLayout& layer : layout.layers) {
    if (layer.has_left) add_axis(parts.around, "left", layer.left);
    if (layer.shows_right) add_axis(parts.around, "right", layer.right);
  }
  const Boxes legend = legend_boxes(layout);
  Boxes& place = shown.LegendStyle == kLegendInLayers ? parts.inside : parts.around;
  place.insert(place.end(), legend.begin(), legend.end());
  for (const PlacedTable& table : place_tables(shown, layout, FixedMeasure()))
    (table.box.x >= layout.room.right() ? parts.around : parts.inside).push_back({"table", table.box});
  return parts;
}

bool holds(const PixelRectangle& outer, const PixelRectangle& inner) {
  return inner.x >= outer.x - 0.5 && inner.y >= outer.y - 0.5 && inner.right() <= outer.right() + 0.5 &&
         inner.bottom() <= outer.bottom() + 0.5;
}

std::string first_overlap(const Boxes& boxes) {
  for (std::size_t i = 0; i < boxes.size(); ++i)
    for (std::size_t j = 0; j < i; ++j)
      if (overlap(boxes[i].box, boxes[j].box)) return boxes[i].name + " lies on " + boxes[j].name;
  return {};
}

// What is wrong with a layout; empty where nothing is.
std::string fault_of(const GraphProperties& shown, const GraphLayout& layout) {
  const Parts parts = parts_of(shown, layout);
  for (const NamedBox& part : parts.around) {
    if (!holds({0, 0, layout.width, layout.height}, part.box)) return part.name + " leaves the graph";
    for (const LayerLayout& layer : layout.layers)
      if (overlap(part.box, layer.area)) return part.name + " lies on the curves";
  }
  for (const NamedBox& part : parts.inside)
    if (std::none_of(layout.layers.begin(), layout.layers.end(),
                     [&](const LayerLayout& layer) { return holds(layer.area, part.box); }))
      return part.name + " leaves its layer";
  const std::string around = first_overlap(parts.around);
  return around.empty() ? first_overlap(parts.inside) : around;
}

TEST(CrowdedLayoutTest, NothingOverlapsAtAnySize) {
  constexpr i32 kRounds = 4000;
  RandomParts parts(1);
  for (i32 round = 0; round < kRounds; ++round) {
    const GraphSurface graph = random_graph(parts);
    const f64 width = 1 + parts.below(parts.one_in(3) ? 300 : 1600);
    const f64 height = 1 + parts.below(parts.one_in(3) ? 200 : 900);
    const GraphLayout layout = graph_layout(graph.shown(), width, height, FixedMeasure());
    EXPECT_EQ(fault_of(graph.shown(), layout), "") << "round " << round << ", " << width << " x " << height;
  }
}

}  // namespace
}  // namespace trendaro
