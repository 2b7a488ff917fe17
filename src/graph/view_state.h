#pragma once

#include <array>
#include <optional>
#include <string>

#include "app/types.h"
#include "files/sample_array.h"
#include "graph/axis_settings.h"
#include "graph/picture_window.h"

namespace trendaro {

// The section on show in the main graph, and where its data come from.
struct ZoomWindow {
  f64 ZoomXMin = 0, ZoomXMax = 0;    // x units of the graph
  f64 ZoomYMin = 0, ZoomYMax = 0;    // left y axis
  f64 ZoomRYMin = 0, ZoomRYMax = 0;  // right y axis
  bool Zoomed = false;               // the main graph shows a zoomed section
  bool SurveyZoom = false;           // the survey graph itself is zoomed
  bool OriginalDataMode = false;     // the main graph shows samples imported from the original files
  bool KeepOriginalChannels = false;
  bool OriginalFileMissing = false;
  bool MissingFileReported = false;
  f64 ReductionXmin = 0;  // section handed to the reducer and section writer, in display points
  f64 ReductionXmax = 0;
  i32 ZoomPoints = 0;          // original points that the zoom shows
  i32 MaxZoomPoints = 10000;   // most points taken into a zoom
  i32 ScrollInterval = 100;    // scroll step in points
  f64 CompressedDXMax = 0;     // largest x step of any plot in the compressed display
  i32 ActiveReduceFactor = 0;  // reduce factor of the plot with the most original points; 0 with no plots
  i32 MaxViewPoints = 0;       // largest compressed point count of any plot
  i32 MaxPlotPoints = 0;       // largest plain plot
  i16 LayerShift = 0;
  i16 FirstZoomLayer = 0, LastZoomLayer = 2;  // layers on show, from 0
  i16 StartAnnoDrag = 0;                      // limit line under the pointer, 0 or 1
  bool AnnoDrag = false;                      // a drag of a limit line is running
  f64 XPos = 0, YPos = 0;                     // last pointer position in graph units
  bool SurveyMouseMoved = false;              // the pointer moved during the drag of a limit line
  f64 SurveyZoomMarginX = 0;                  // margin at each end of x of the zoomed survey graph
  i16 CurveOffset = 0;                        // plots of hidden layers: plot number less curve number
};

// The scale of the main graph as it was before a compressed view was zoomed.
struct UnzoomedScale {
  struct Axis {
    i16 control = 0;
    f64 low = 0, high = 0;
  };
  bool held = false;
  bool overwritten = false;  // a compressed view has written its window over it
  f64 low_x = 0, high_x = 0;
  bool x_held = false;              // x was scaled automatically, and the zoom holds its section
  std::array<Axis, 3> left, right;  // index: layer from 0
};

// What a redraw of the main graph leaves behind and reads from the settings.
struct RedrawState {
  i32 ViewPoints = 0;                        // PointCount of the graph: slot length of each curve
  i32 LongestOriginalPoints = 0;             // points in the original data of the longest plot
  i32 LongestFullPoints = 0;                 // longest plain plot
  std::string XTitle, XUnit;                 // title and unit of the x axis
  std::array<std::string, 6> AxisUnits;      // left axes of layers 0 to 2, then right axes
  i16 FirstLayer = 0, LastLayer = 2;         // layers on show, from 0
  std::string FirstDateText;                 // date text of the longest plot
  bool DateAxis = false;                     // the x axis shows date and time
  f64 SurveyMarginX = 0, SurveyMarginY = 0;  // padding that auto-scaling gave the axes of the survey
  i32 SurveySpanPoints = 0;                  // drawn x range of the survey in samples of the longest plot
  bool NoDataRefresh = false;                // the next redraw reads no curves; nothing sets it
  bool NoLegend = false;                     // the legend is switched off
  bool VerboseMode = false;                  // messages in full; nothing sets it
  i16 GraphStyleValue = 0;                   // 0 becomes 3 at start

  bool DisplayCompression = false;
  i32 CompressTarget = 10000;      // points to which a curve is compressed
  i32 CompressThreshold = 100000;  // a longer plain curve switches compression on
  i32 CompressFactor = 1;          // samples per half of a pair in the current view, at least 1
  bool CurveCacheOff = false;
  bool XCacheValid = false;  // XCacheBlock holds the x channel that all plots of a view share
  SampleArray XCacheBlock;   // its samples; empty where nothing is kept
  i32 XCachePoints = 0;      // samples in XCacheBlock
  i16 LongestPlot = 0;       // plot with the most original points, 0 for none; outlives a zoom into originals
  i16 LayerBase = 0;         // layers that the graph does not count because they are scrolled out
  // Scale limits of a zoom. Row 0 is x with columns 0 lower and 1 upper; row k + 1 is layer k, columns 0 and
  // 1 the left y axis, 2 and 3 the right one. A pair without width, as of a zoom that no rubber band narrowed
  // in y, limits no axis; x without end limits nothing.
  std::array<std::array<f64, 4>, 8> ZoomScaleLimits{};
  // Plain curves over time are read for a picture of this part alone; see window_reading.h.
  std::optional<PictureWindow> picture_window;
  UnzoomedScale unzoomed_scale;
  SavedAxes saved_axes;  // y axes of layers that left the main graph
};

// Title texts of both graphs.
struct TitleState {
  bool AxisAutoTitle = false;                                   // axis titles follow the data
  bool NoYTitle = false;                                        // no y titles at all
  std::array<std::string, 6> MainAxisTitles, SurveyAxisTitles;  // the user's, in the order of AxisUnits
  // [0] main title, [1] subtitle, [2] to [11] extra lines above, [12] to [21] extra lines below.
  std::array<std::string, 23> MainTitles, SurveyTitles;
};

// The toolbar's choice for the next mark, and the unit of the time axis.
struct ToolbarChoice {
  i16 CurrentLayer = 1;  // 1 to 3
  i16 CurrentSide = 1;   // 1 left, 2 right
  i16 TimeUnit = 1;      // 0 ms, 1 s, 2 min, 3 h, 4 date and time
};

}  // namespace trendaro
