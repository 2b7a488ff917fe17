#pragma once

#include <string>

#include "app/one_based.h"
#include "app/types.h"
#include "datasource/plot_record.h"
#include "graph/sample_index.h"

namespace trendaro {

// The plots and what runs parallel to them. Filled by RebuildPlotList.
struct PlotListState {
  OneBased<PlotRecord> Plots;        // main graph
  OneBased<PlotRecord> SurveyPlots;  // survey graph
  i16 NofPlots = 0;

  OneBased<i32> PlotReduceFactor;           // original samples per pair; 0 where not reduced
  OneBased<f64> PlotScale;                  // scale value of the current view
  OneBased<i32> PlotOffsetPoints;           // first original sample of the imported section
  OneBased<std::string> OriginalFileNames;  // the original file of the plot
  OneBased<std::string> PlotUnits;
  OneBased<f64> PlotStep;               // x step of two display points
  OneBased<std::string> PlotDateTexts;  // date text of each plot's file
  OneBased<CurveBlock> CurveCache;      // samples of a plot; empty where nothing is cached

  OneBased<i16> LayerPlotCount = OneBased<i16>(3);       // all plots of layer 1 to 3
  OneBased<i16> LayerRightPlotCount = OneBased<i16>(3);  // right-axis plots of layer 1 to 3
  i16 ActiveLayers = 0;                                  // layers with at least one plot
  bool ActiveLayersChanged = false;                      // the last rebuild changed that number
  bool gMultiLayer = false;                              // more than one layer holds plots
  bool HasFullDataPlot = false;                          // a plot of kind kKindPlain exists

  i16 XScratchChannel = 1;         // first database channel of the import range
  i16 HighestDatabaseChannel = 0;  // highest database channel used so far
  i16 MaxDatabaseChannels = 0;     // size of the host's database
  bool ZoomLengthWarned = false;   // the message was said once
  bool OccupiedWarned = false;     // the message was said once
};

}  // namespace trendaro
