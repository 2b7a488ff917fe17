#pragma once

#include <string>

#include "app/types.h"

namespace trendaro {

// What a plot's samples come from, one of the constants below.
using PlotFileKind = i16;

// Kinds of a plot's source. The kinds Database and DatabaseFromBlock exist only while a zoom shows original
// samples.
inline constexpr PlotFileKind kKindDatabase = 0;  // was kReducedPairs; samples lie in DatabaseChannel
inline constexpr PlotFileKind kKindReducedPairs =
    1;                                         // "STO", "ST1", "ST2": two stored channels make one signal
inline constexpr PlotFileKind kKindPlain = 2;  // full data
inline constexpr PlotFileKind kKindReducedBlock = 3;       // "REB"
inline constexpr PlotFileKind kKindDatabaseFromBlock = 4;  // was kReducedBlock

// One curve in a graph.
struct PlotRecord {
  f64 SampleStart = 0;  // first x value of the curve
  i16 Layer = 1;        // y layer, 1 to 3
  std::string Title;    // signal name, "@", full path; from the "@" on it identifies the source file
  PlotFileKind FileKind = kKindPlain;
  i16 XSource = 0;       // channel that gives x, 0 for the time base
  i16 ChannelIndex = 0;  // channel inside the file, from 1; the odd number of a reduced pair
  i32 Color = 0;         // 0x00BBGGRR
  i16 LineType = 0;
  i16 PointType = 0;
  i32 Points = 0;    // samples; doubled for reduced pairs; -1 not known before the values are read
  u8 RightAxis = 0;  // 1 when it belongs to the right y axis of its layer
  u8 DisplayStyle = 0;
  u8 TimeFromRate = 0;      // 1 when made with the first entry of xSrc: x comes from the time base
  f64 XOffset = 0;          // added to every x value
  f32 YOffset = 0;          // added to every y value
  i16 InvertFlag = 0;       // 1: drawn upside down
  i16 DatabaseChannel = 0;  // database channel of this plot's zoomed values, from 1
  i16 PlotMethod = 0;
  std::string Unit;  // physical unit
  i16 Cached = 0;    // the curve cache holds this plot's samples
};

// The signal's name out of a plot's Title: the text ahead of the "@" of the path; the whole Title without
// one.
std::string plot_signal(const PlotRecord& plot);
// The path out of a plot's Title, empty without an "@". It starts behind the first "@" that a root follows
// ("/", "\\", "C:\\"), or behind the first "@" where the path is relative.
std::string plot_path(const PlotRecord& plot);

}  // namespace trendaro
