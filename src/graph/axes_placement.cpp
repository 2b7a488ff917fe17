#include "graph/axes_placement.h"

#include <algorithm>
#include <cmath>

#include "graph/axis_layout.h"
#include "graph/shape_room.h"

namespace trendaro {
namespace {

constexpr f64 kLeastArea = 5;      // pixels of a layer's side, when nothing else is left to give up
constexpr f64 kUnlabelledGap = 4;  // pixels between layers whose axes have no labels

// In lines of text: what a layer should have while there is something to give up.
constexpr f64 kGoodHeight = 2;
constexpr f64 kFairHeight = 1.15;  // the labels of its axes still stand apart
constexpr f64 kPoorHeight = 0.8;
constexpr f64 kGoodWidth = 5;  // beside a table
constexpr f64 kFairWidth = 3;

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

// A power of ten that the title would have told stays in the labels.
void give_up_title(AxisSettings& axis) {
  axis.title.clear();
  axis.power = 0;
}

std::vector<LayerAxes> layer_axes(const GraphProperties& shown, const GraphLayout& layout, bool titles,
                                  const TextMeasure& measure) {
  std::vector<LayerAxes> all;
  for (std::size_t slot = 0; slot < layout.layers.size(); ++slot) {
    const LayerLayout& layer = layout.layers[slot];
    LayerAxes axes{y_axis_settings(shown, layer.layer, AxisSide::Left),
                   y_axis_settings(shown, layer.layer, AxisSide::Right),
                   {},
                   {}};
    if (!titles) give_up_title(axes.left);
    if (!titles) give_up_title(axes.right);
    set_pixels(axes.left, layer.area.y, layer.area.height);
    set_pixels(axes.right, layer.area.y, layer.area.height);
    fit_title(axes.left, measure);
    fit_title(axes.right, measure);
    make_room_for_shapes_in_y(shown, layout, slot, axes.left);
    make_room_for_shapes_in_y(shown, layout, slot, axes.right);
    if (layer.has_left) axes.left_ticks = axis_ticks(axes.left, measure);
    if (layer.has_right) axes.right_ticks = axis_ticks(axes.right, measure);
    all.push_back(std::move(axes));
  }
  return all;
}

// Room left and right of the areas.
struct SideRoom {
  f64 left = 0, right = 0;
};

// The widest axis at each side, and never less than half an x label needs.
SideRoom side_room(const GraphLayout& layout, const std::vector<LayerAxes>& axes,
                   const Surroundings& surroundings, const TextMeasure& measure) {
  const f64 least =
      surroundings.x_labels ? std::round(measure.height(TextRole::Axis) * 1.2) : tick_length(measure);
  SideRoom room{least, least};
  if (!surroundings.y_labels) return room;
  for (std::size_t i = 0; i < axes.size(); ++i) {
    if (layout.layers[i].has_left)
      room.left = std::max(room.left, axis_thickness(axes[i].left, axes[i].left_ticks, measure));
    if (layout.layers[i].shows_right)
      room.right = std::max(room.right, axis_thickness(axes[i].right, axes[i].right_ticks, measure));
  }
  return room;
}

// How high the x axis gets is known only with its ticks, which depend on its length alone.
f64 x_axis_height(const AxisSettings& axis, bool labels, const TextMeasure& measure) {
  if (!labels) return tick_length(measure);
  AxisTicks two_lines;
  two_lines.major.push_back({0, "0", axis.dates ? "0" : ""});
  return axis_thickness(axis, two_lines, measure);
}

void leave_out_texts(AxisLayout& axis) {
  axis.labels.clear();
  axis.title.text.clear();
}

f64 wished_height(const Surroundings& surroundings, f64 line) {
  if (surroundings.title_share > 0) return kGoodHeight * line;
  if (surroundings.y_labels) return kFairHeight * line;
  return surroundings.x_labels ? kPoorHeight * line : kLeastArea;
}

f64 wished_width(const Surroundings& surroundings, f64 line) {
  if (surroundings.table) return kGoodWidth * line;
  return surroundings.x_labels ? kFairWidth * line : kLeastArea;
}

// Puts the layers below each other; whether they got the height they should have. By their proportions one
// may be lower than the others.
bool stack_in_room(const GraphProperties& shown, f64 x_axis, const Surroundings& surroundings,
                   const TextMeasure& measure, GraphLayout& layout) {
  const f64 line = measure.height(TextRole::Axis);
  const f64 above = surroundings.y_labels ? std::round(line / 2) : 0;
  const f64 gap = surroundings.y_labels ? std::round(line * 1.15) : kUnlabelledGap;
  const auto count = static_cast<f64>(layout.layers.size());
  const f64 height = layout.room.height - x_axis - above;
  stack_layers(shown, layout.room.y + above, height, gap, layout);
  return height - gap * (count - 1) >= count * wished_height(surroundings, line);
}

}  // namespace

RoomShortage place_axes(const GraphProperties& shown, const TextMeasure& measure,
                        const Surroundings& surroundings, GraphLayout& layout) {
  AxisSettings x_axis = x_axis_settings(shown);
  if (!surroundings.x_title) give_up_title(x_axis);
  const PixelRectangle& room = layout.room;
  const f64 below = x_axis_height(x_axis, surroundings.x_labels, measure);
  RoomShortage shortage;
  shortage.height = !stack_in_room(shown, below, surroundings, measure, layout);
  if (shortage.height) return shortage;
  const std::vector<LayerAxes> axes = layer_axes(shown, layout, surroundings.y_titles, measure);

  const SideRoom side = side_room(layout, axes, surroundings, measure);
  const f64 left = std::round(room.x + side.left);
  const f64 width = std::round(room.right() - side.right) - left;
  shortage.width = width < wished_width(surroundings, measure.height(TextRole::Axis));
  if (shortage.width) return shortage;

  set_pixels(x_axis, left, width);
  fit_title(x_axis, measure);
  make_room_for_shapes_in_x(shown, layout, x_axis);
  x_axis.room_start = room.x;
  x_axis.room_end = room.right();
  const AxisTicks x_ticks = axis_ticks(x_axis, measure);
  for (std::size_t i = 0; i < layout.layers.size(); ++i) {
    LayerLayout& layer = layout.layers[i];
    layer.area.x = left;
    layer.area.width = width;
    layer.left = place_axis(axes[i].left, axes[i].left_ticks, layer.area, room, measure);
    layer.right = place_axis(axes[i].right, axes[i].right_ticks, layer.area, room, measure);
    if (!layer.has_left || !surroundings.y_labels) leave_out_texts(layer.left);
    if (!layer.shows_right || !surroundings.y_labels) leave_out_texts(layer.right);
  }
  layout.x_axis = place_axis(x_axis, x_ticks, layout.layers.back().area, room, measure);
  if (!surroundings.x_labels) leave_out_texts(layout.x_axis);
  return shortage;
}

}  // namespace trendaro
