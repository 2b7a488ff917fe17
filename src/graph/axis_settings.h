#pragma once

#include <string>
#include <vector>

#include "app/types.h"
#include "graph/graph_properties.h"

namespace trendaro {

// The settings of one y axis that a user can make.
struct YAxisSettings {
  i16 manual_scale = 0;       // 0 scaled to the data, 3 both limits given
  f64 low = 0, high = 0;      // limits in axis units
  i32 scale_kind = 1;         // 0 automatic, 1 linear, 2 logarithmic
  bool manual_ticks = false;  // `tick` and `line` count
  f64 tick = 0, line = 0;     // steps of ticks and grid lines
  i32 color = 0;              // 0x00BBGGRR
  std::string title = {};
  std::string format = {};  // of the labels: prefix "|" digits "|" suffix; empty: as many digits as it takes
  bool inverted = false;    // the highest value stands at the bottom
};

// The y axes of the layers that a zoom takes off the main graph, until the layers come back.
struct SavedAxes {
  std::vector<YAxisSettings> left, right;  // index: layer from 0
  i16 StoredAxisCount = 0;                 // layers held
  bool AxesStored = false;                 // the next set-up of the main graph takes them
};

// One axis of a layer, read from its properties and written to them.
YAxisSettings left_axis(const LayerProperties& layer);
YAxisSettings right_axis(const LayerProperties& layer);
void write_left_axis(LayerProperties& layer, const YAxisSettings& settings);
void write_right_axis(LayerProperties& layer, const YAxisSettings& settings);

}  // namespace trendaro
