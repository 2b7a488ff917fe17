#include "graph/graph_layout.h"

#include <algorithm>
#include <cmath>

#include "graph/annotation_layout.h"
#include "graph/axes_placement.h"
#include "graph/legend_layout.h"
#include "graph/plot_methods.h"
#include "graph/table_layout.h"
#include "graph/title_layout.h"

namespace trendaro {
namespace {

// Curves that the handed-over values are enough for.
std::size_t curve_count(const GraphProperties& shown) {
  if (!shown.YData || shown.PointCount <= 0 || shown.SubsetCount <= 0) return 0;
  return std::min(static_cast<std::size_t>(shown.SubsetCount),
                  shown.YData->size() / static_cast<std::size_t>(shown.PointCount));
}

// The layer of each slot, and how many curves it takes.
struct LayerShare {
  std::size_t layer;
  std::size_t curves;
};

std::vector<LayerShare> layer_shares(const GraphProperties& shown) {
  std::vector<LayerShare> shares;
  for (std::size_t layer = 0; layer < std::min(kGraphLayers, shown.MultiAxesSubsets.size()); ++layer)
    if (shown.MultiAxesSubsets[layer] > 0)
      shares.push_back({layer, static_cast<std::size_t>(shown.MultiAxesSubsets[layer])});
  if (shares.empty()) shares.push_back({0, curve_count(shown)});
  return shares;
}

i32 plot_method(const GraphProperties& shown, std::size_t subset) {
  return subset < shown.SubsetPlotMethods.size() ? shown.SubsetPlotMethods[subset] : 0;
}

// A right axis that is switched off leaves its curves their scale, and the grid its lines.
void mark_sides(const GraphProperties& shown, GraphLayout& layout) {
  for (const CurvePlace& place : layout.curves) {
    LayerLayout& layer = layout.layers[place.slot];
    (place.right ? layer.has_right : layer.has_left) = true;
  }
  for (LayerLayout& layer : layout.layers)
    layer.shows_right = layer.has_right && shown.layers[layer.layer].ShowRYAxis;
}

// The frame alone, of an empty graph or of one with no room for a curve.
void place_frame(const PixelRectangle& room, GraphLayout& layout) {
  layout.layers.resize(1);
  layout.layers[0].area = {std::round(room.x), std::round(room.y), std::max(0.0, std::floor(room.width)),
                           std::max(0.0, std::floor(room.height))};
  for (CurvePlace& place : layout.curves) place.slot = 0;
}

PixelRectangle room_inside(f64 width, f64 height, const TextMeasure& measure) {
  const f64 margin = std::min({std::round(measure.height(TextRole::Axis) * 0.6), width / 8, height / 8});
  return {margin, margin, width - 2 * margin, height - 2 * margin};
}

void place_surroundings(const GraphProperties& shown, const TextMeasure& measure,
                        const Surroundings& surroundings, GraphLayout& layout) {
  layout.titles.clear();
  layout.legend.clear();
  layout.legend_notes.clear();
  layout.table_room = {};
  PixelRectangle room = room_inside(layout.width, layout.height, measure);
  place_titles(shown, measure, surroundings.title_share, room, layout.titles);
  if (surroundings.table) place_table_room(shown, measure, room, layout.table_room);
  if (surroundings.legend) place_legend(shown, measure, room, layout);
  place_margins(shown, measure, room);
  layout.room = room;
}

// Lets the title lines have no more than `share`; false when they had no more before.
bool limit_titles(Surroundings& surroundings, f64 share) {
  if (surroundings.title_share <= share) return false;
  surroundings.title_share = share;
  return true;
}

// The next part that takes room in the direction that lacks it; false when there is none left.
bool give_up_next(const GraphProperties& shown, const RoomShortage& shortage, Surroundings& surroundings) {
  const bool beside = stands_beside(shown);
  const auto give_up = [](bool& part, bool helps) {
    const bool given = part && helps;
    if (given) part = false;
    return given;
  };
  return (shortage.height && limit_titles(surroundings, kFairTitleShare)) ||
         give_up(surroundings.legend, beside ? shortage.width : shortage.height) ||
         give_up(surroundings.table, shortage.width) ||
         (shortage.height && limit_titles(surroundings, kFewTitlesShare)) ||
         (shortage.height && limit_titles(surroundings, 0)) ||
         give_up(surroundings.x_title, shortage.height) || give_up(surroundings.y_titles, shortage.width) ||
         give_up(surroundings.y_labels, shortage.width || shortage.height) ||
         give_up(surroundings.x_labels, shortage.width || shortage.height);
}

// Whether the curves find room, in the end without all that stands around them.
bool place_with_axes(const GraphProperties& shown, const TextMeasure& measure, GraphLayout& layout) {
  Surroundings surroundings;
  for (;;) {
    place_surroundings(shown, measure, surroundings, layout);
    const RoomShortage shortage = place_axes(shown, measure, surroundings, layout);
    if (!shortage.width && !shortage.height) return true;
    if (!give_up_next(shown, shortage, surroundings)) return false;
  }
}

void lay_out_frame(const GraphProperties& shown, const TextMeasure& measure, GraphLayout& layout) {
  Surroundings surroundings;
  if (!layout.curves.empty()) surroundings = {.legend = false, .table = false, .title_share = 0};
  layout.layers.clear();
  layout.x_axis = {};
  place_surroundings(shown, measure, surroundings, layout);
  place_frame(layout.room, layout);
}

void color_titles(const GraphProperties& shown, GraphLayout& layout) {
  for (PlacedText& title : layout.titles) title.color = shown.TextColor;
  for (LegendEntry& entry : layout.legend) entry.name.color = shown.TextColor;
  for (PlacedText& note : layout.legend_notes) note.color = shown.TextColor;
}

// The start of the last whole UTF-8 character before `end`.
std::size_t character_start(const std::string& text, std::size_t end) {
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return end;
}

}  // namespace

std::vector<CurvePlace> curve_places(const GraphProperties& shown) {
  std::vector<CurvePlace> places;
  const std::vector<LayerShare> shares = layer_shares(shown);
  const std::size_t count = curve_count(shown);
  std::size_t slot = 0;
  std::size_t in_slot = 0;
  for (std::size_t subset = 0; subset < count; ++subset, ++in_slot) {
    if (in_slot == shares[slot].curves && slot + 1 < shares.size()) {
      ++slot;
      in_slot = 0;
    }
    const i32 method = plot_method(shown, subset);
    const bool right = method >= kRightAxisMethod;
    places.push_back({subset, slot, right, method_without_side(method)});
  }
  return places;
}

GraphLayout graph_layout(const GraphProperties& shown, f64 width, f64 height, const TextMeasure& measure) {
  GraphLayout layout;
  layout.width = width;
  layout.height = height;
  layout.curves = curve_places(shown);
  std::size_t slots = 0;
  for (const CurvePlace& place : layout.curves) slots = std::max(slots, place.slot + 1);
  if (slots > 0) {
    const std::vector<LayerShare> shares = layer_shares(shown);
    layout.layers.resize(slots);
    for (std::size_t i = 0; i < slots; ++i) layout.layers[i].layer = shares[i].layer;
    mark_sides(shown, layout);
    layout.has_axes = place_with_axes(shown, measure, layout);
  }
  if (!layout.has_axes) lay_out_frame(shown, measure, layout);
  place_legend_in_layers(shown, measure, layout);
  color_titles(shown, layout);
  return layout;
}

std::string elided(const std::string& text, f64 width, TextRole role, const TextMeasure& measure) {
  if (measure.width(role, text) <= width) return text;
  std::size_t shortest = 0;
  std::size_t longest = text.size();
  while (shortest + 1 < longest) {
    const std::size_t middle = (shortest + longest) / 2;
    const std::string cut = text.substr(0, character_start(text, middle)) + "…";
    (measure.width(role, cut) <= width ? shortest : longest) = middle;
  }
  const std::string cut = text.substr(0, character_start(text, shortest)) + "…";
  return measure.width(role, cut) <= width ? cut : std::string();
}

}  // namespace trendaro
