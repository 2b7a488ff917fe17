#pragma once

#include <string>
#include <vector>

#include "app/types.h"
#include "graph/axis_ticks.h"
#include "graph/graph_properties.h"
#include "graph/graph_scale.h"
#include "graph/text_measure.h"

namespace trendaro {

// Pixels from the upper left corner of the graph.
struct PixelPoint {
  f64 x = 0, y = 0;
};

struct PixelRectangle {
  f64 x = 0, y = 0, width = 0, height = 0;

  [[nodiscard]] f64 right() const { return x + width; }
  [[nodiscard]] f64 bottom() const { return y + height; }
};

enum class TextAlignment : u8 { Left, Centre, Right };

// One line of text in its box, elided already. A turned text reads from bottom to top.
struct PlacedText {
  std::string text;
  PixelRectangle box;
  TextRole role = TextRole::Axis;
  TextAlignment alignment = TextAlignment::Centre;
  bool turned = false;
  i32 color = 0;  // 0x00BBGGRR, or 0x80000000 + i for a system colour
};

enum class AxisSide : u8 { Bottom, Left, Right };

struct AxisLayout {
  AxisSide side = AxisSide::Bottom;
  AxisScale scale;  // pixels included
  i32 color = 0;
  std::vector<f64> major, minor;   // pixels along the axis
  std::vector<PlacedText> labels;  // of the major ticks, and of the days of a date axis
  PlacedText title;                // empty text: none
};

// One y layer that is on show.
struct LayerLayout {
  std::size_t layer = 0;  // index of its settings
  PixelRectangle area;    // where its curves are drawn
  AxisLayout left, right;
  bool has_left = false, has_right = false;  // curves hang on that axis
  bool shows_right = false;                  // the right axis is drawn as well
  bool tables_below = false;                 // tables inside of it stand in its lower corner
};

// Where a curve belongs.
struct CurvePlace {
  std::size_t subset = 0;
  std::size_t slot = 0;  // index into `layers` of the layout
  bool right = false;    // hangs on the right axis
  i32 method = 0;        // plotting method, 0 to 999
};

struct LegendEntry {
  std::size_t subset = 0;
  PixelRectangle sample;  // room for a piece of the curve's line
  PlacedText name;
};

struct GraphLayout {
  f64 width = 0, height = 0;
  std::vector<PlacedText> titles;   // and how many lines were left out
  std::vector<LayerLayout> layers;  // from top to bottom; one without axes where the graph is empty
  AxisLayout x_axis;
  bool has_axes = false;  // false: no curves, or no room for one
  std::vector<CurvePlace> curves;
  std::vector<LegendEntry> legend;
  std::vector<PlacedText> legend_notes;  // how many curves a legend leaves out
  PixelRectangle room;                   // axes and layers, their labels included; margins lie outside
  PixelRectangle table_room;             // right of the graph; without a width where no table stands there
  std::vector<PixelRectangle> legend_backs;  // behind a legend that stands in the layers
};

// Which layer and side each curve of a graph hangs on, in curve order. Layers without curves take no slot.
std::vector<CurvePlace> curve_places(const GraphProperties& shown);

// Places everything that a graph of `width` x `height` pixels shows. Where the room is short, curves come
// before all that stands around them: legend, table, titles, titles of axes and labels are given up in this
// order, each where it takes room in the direction that is short. Nothing overlaps or leaves the graph.
GraphLayout graph_layout(const GraphProperties& shown, f64 width, f64 height, const TextMeasure& measure);

// The text cut to a width, with an ellipsis where something was cut; empty where not even that fits.
std::string elided(const std::string& text, f64 width, TextRole role, const TextMeasure& measure);

}  // namespace trendaro
