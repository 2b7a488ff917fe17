#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/model.h"
#include "support/curve_file.h"
#include "support/recording_shell.h"

namespace trendaro {

// A model whose plots stand on files of the test.
class PlotFixture : public testing::Test {
 protected:
  RecordingShell shell;
  Model model{shell};
  TemporaryFolder folder;

  std::string write(const std::string& name, const FileBuilder& file) {
    write_file(folder.file(name), file.bytes());
    return folder.file(name);
  }

  // Adds a plot of a file to both lists, as a mark would.
  PlotRecord& add_plot(const std::string& path, i16 channel, i16 kind, i32 points) {
    PlotRecord plot;
    const auto number = static_cast<i16>(model.Plots.size() + 1);
    plot.Title = "Signal " + std::to_string(number) + "@" + path;
    plot.ChannelIndex = channel;
    plot.FileKind = kind;
    plot.Points = points;
    plot.TimeFromRate = 1;
    plot.DatabaseChannel = number;
    model.Plots.push_back(plot);
    model.SurveyPlots.push_back(plot);
    model.PlotReduceFactor.resize(model.Plots.size());
    model.PlotDateTexts.resize(model.Plots.size());
    model.NofPlots = number;
    ++model.LayerPlotCount[1];
    if (kind == kKindPlain) model.HasFullDataPlot = true;
    return model.Plots[number];
  }

  static std::vector<f32> y_of(const GraphSurface& graph) {
    return {graph.shown().YData->begin(), graph.shown().YData->end()};
  }
  static std::vector<f32> x_of(const GraphSurface& graph) {
    return {graph.shown().XData->begin(), graph.shown().XData->end()};
  }
};

}  // namespace trendaro
