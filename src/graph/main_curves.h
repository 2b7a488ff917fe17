#pragma once

#include <string>

#include "graph/curve_readers.h"
#include "graph/time_axis.h"

namespace trendaro {

// What the main redraw carries from curve to curve.
struct MainReading {
  TimeFactor time;
  std::string unit_text;  // unit of the x axis
  TimeLine line;          // of the curve before; 0 ahead of the first
  bool settings_only = false;
};

// Each fills the slot of a plot of its kinds; what cannot be read keeps its null values. With settings_only
// only names and units are brought up to date.
void read_database_curve(CurveTask& task, MainReading& reading);  // kinds 0 and 4
void read_pair_curve(CurveTask& task, MainReading& reading);      // kind 1
void read_plain_curve(CurveTask& task, MainReading& reading);     // kind 2
void read_block_curve(CurveTask& task, MainReading& reading);     // kind 3

}  // namespace trendaro
