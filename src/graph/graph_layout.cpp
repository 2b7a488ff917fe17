#include "graph/graph_layout.h"

#include <algorithm>
#include <cmath>

#include "graph/annotation_layout.h"
#include "graph/axis_layout.h"
#include "graph/legend_layout.h"
#include "graph/plot_methods.h"
#include "graph/table_layout.h"
#include "graph/title_layout.h"

namespace trendaro {
namespace {

constexpr f64 kLeastArea = 8;  // pixels; below it labels give way

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

// Settings and ticks of the axes of one layer, before their place across is known.
struct LayerAxes {
  AxisSettings left, right;
  AxisTicks left_ticks, right_ticks;
};

// Divides the height among the layers by their proportions; a layer without one takes an even share.
void stack_layers(const GraphProperties& shown, f64 top, f64 height, f64 gap, GraphLayout& layout) {
  std::vector<f64> weights;
  for (const LayerLayout& layer : layout.layers)
    weights.push_back(std::max<f64>(0, shown.layers[layer.layer].LayerProportion));
  f64 sum = 0;
  for (const f64 weight : weights) sum += weight;
  const bool even = std::any_of(weights.begin(), weights.end(), [](f64 weight) { return weight == 0; });
  const auto count = static_cast<f64>(weights.size());
  const f64 usable = std::max(0.0, height - gap * (count - 1));
  f64 y = top;
  for (std::size_t i = 0; i < weights.size(); ++i) {
    const f64 share = usable * (even ? 1 / count : weights[i] / sum);
    const f64 end = y + share;
    layout.layers[i].area.y = std::round(y);
    layout.layers[i].area.height = std::max(0.0, std::round(end) - std::round(y));
    y = end + gap;
  }
}

std::vector<LayerAxes> layer_axes(const GraphProperties& shown, const GraphLayout& layout,
                                  const TextMeasure& measure) {
  std::vector<LayerAxes> all;
  for (const LayerLayout& layer : layout.layers) {
    LayerAxes axes{y_axis_settings(shown, layer.layer, AxisSide::Left),
                   y_axis_settings(shown, layer.layer, AxisSide::Right),
                   {},
                   {}};
    set_pixels(axes.left, layer.area.y, layer.area.height);
    set_pixels(axes.right, layer.area.y, layer.area.height);
    if (layer.has_left) axes.left_ticks = axis_ticks(axes.left, measure);
    if (layer.has_right) axes.right_ticks = axis_ticks(axes.right, measure);
    all.push_back(std::move(axes));
  }
  return all;
}

// Room left and right of the areas: the widest axis at each side, and never less than half an x label needs.
struct SideRoom {
  f64 left = 0, right = 0;
};

SideRoom side_room(const GraphLayout& layout, const std::vector<LayerAxes>& axes,
                   const TextMeasure& measure) {
  const f64 least = std::round(measure.height(TextRole::Axis) * 1.2);
  SideRoom room{least, least};
  for (std::size_t i = 0; i < axes.size(); ++i) {
    if (layout.layers[i].has_left)
      room.left = std::max(room.left, axis_thickness(axes[i].left, axes[i].left_ticks, measure));
    if (layout.layers[i].shows_right)
      room.right = std::max(room.right, axis_thickness(axes[i].right, axes[i].right_ticks, measure));
  }
  return room;
}

// How high the x axis gets is known only with its ticks, which depend on its length alone.
f64 x_axis_height(const AxisSettings& axis, const TextMeasure& measure) {
  AxisTicks two_lines;
  two_lines.major.push_back({0, "0", axis.dates ? "0" : ""});
  return axis_thickness(axis, two_lines, measure);
}

void leave_out_texts(AxisLayout& axis) {
  axis.labels.clear();
  axis.title.text.clear();
}

void place_axes(const GraphProperties& shown, const TextMeasure& measure, const PixelRectangle& room,
                GraphLayout& layout) {
  const f64 half_label = std::round(measure.height(TextRole::Axis) / 2);
  AxisSettings x_axis = x_axis_settings(shown);
  const f64 below = x_axis_height(x_axis, measure);
  const f64 gap = std::round(measure.height(TextRole::Axis) * 1.15);
  const f64 height = room.height - below - half_label;
  stack_layers(shown, room.y + half_label, std::max(kLeastArea, height), gap, layout);
  const std::vector<LayerAxes> axes = layer_axes(shown, layout, measure);

  const SideRoom side = side_room(layout, axes, measure);
  const f64 left = std::round(room.x + side.left);
  const f64 width = std::max(kLeastArea, std::round(room.right() - side.right) - left);
  set_pixels(x_axis, left, width);
  x_axis.room_start = room.x;
  x_axis.room_end = room.right();
  const AxisTicks x_ticks = axis_ticks(x_axis, measure);
  for (std::size_t i = 0; i < layout.layers.size(); ++i) {
    LayerLayout& layer = layout.layers[i];
    layer.area.x = left;
    layer.area.width = width;
    layer.left = place_axis(axes[i].left, axes[i].left_ticks, layer.area, room, measure);
    layer.right = place_axis(axes[i].right, axes[i].right_ticks, layer.area, room, measure);
    if (!layer.has_left) leave_out_texts(layer.left);
    if (!layer.shows_right) leave_out_texts(layer.right);
  }
  layout.x_axis = place_axis(x_axis, x_ticks, layout.layers.back().area, room, measure);
}

// An empty graph, or one too small for axes: the frame alone.
void place_frame(const PixelRectangle& room, GraphLayout& layout) {
  layout.layers.resize(1);
  layout.layers[0].area = {std::round(room.x), std::round(room.y), std::max(0.0, std::floor(room.width)),
                           std::max(0.0, std::floor(room.height))};
  for (CurvePlace& place : layout.curves) place.slot = 0;
}

bool has_room_for_axes(const PixelRectangle& room, std::size_t layers, const TextMeasure& measure) {
  const f64 line = measure.height(TextRole::Axis);
  return room.width >= line * 10 && room.height >= line * (3.5 + 2.3 * static_cast<f64>(layers));
}

PixelRectangle room_inside(f64 width, f64 height, const TextMeasure& measure) {
  const f64 margin = std::min({std::round(measure.height(TextRole::Axis) * 0.6), width / 8, height / 8});
  return {margin, margin, width - 2 * margin, height - 2 * margin};
}

// What stands around the axes; where they find no room, legend and titles give way in this order.
enum class Surroundings : u8 { All, WithoutLegend, None };

void place_surroundings(const GraphProperties& shown, const TextMeasure& measure, Surroundings kind,
                        GraphLayout& layout) {
  layout.titles.clear();
  layout.legend.clear();
  PixelRectangle room = room_inside(layout.width, layout.height, measure);
  if (kind != Surroundings::None) {
    place_titles(shown, measure, room, layout.titles);
    place_table_room(shown, measure, room, layout.table_room);
  }
  if (kind == Surroundings::All) place_legend(shown, measure, room, layout.legend);
  place_margins(shown, measure, room);
  layout.room = room;
}

// Whether axes find room for so many layers, in the end without all that stands around them.
bool make_room_for_axes(const GraphProperties& shown, const TextMeasure& measure, std::size_t layers,
                        GraphLayout& layout) {
  for (const Surroundings kind : {Surroundings::All, Surroundings::WithoutLegend, Surroundings::None}) {
    place_surroundings(shown, measure, kind, layout);
    if (has_room_for_axes(layout.room, layers, measure)) return true;
  }
  return false;
}

void color_titles(const GraphProperties& shown, GraphLayout& layout) {
  for (PlacedText& title : layout.titles) title.color = shown.TextColor;
  for (LegendEntry& entry : layout.legend) entry.name.color = shown.TextColor;
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
  layout.has_axes = slots > 0 && make_room_for_axes(shown, measure, slots, layout);
  if (layout.has_axes) {
    const std::vector<LayerShare> shares = layer_shares(shown);
    layout.layers.resize(slots);
    for (std::size_t i = 0; i < slots; ++i) layout.layers[i].layer = shares[i].layer;
    mark_sides(shown, layout);
    place_axes(shown, measure, layout.room, layout);
  } else {
    place_surroundings(shown, measure, Surroundings::All, layout);
    place_frame(layout.room, layout);
  }
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
