#include "graph/graph_setup.h"

#include <gtest/gtest.h>

#include "app/model.h"
#include "support/graph_data.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

class GraphSetupTest : public testing::Test {
 protected:
  RecordingShell shell;
  Model model{shell};
};

TEST_F(GraphSetupTest, LookOutlivesTheResetAndTheDataDoNot) {
  GraphProperties& graph = model.PESG.pending;
  set_curves(graph, 2, {0, 1}, {5, 6});
  graph.MainTitle = "Lauf";
  graph.MinorGridColor = 0x112233;
  graph.FontScale2 = 1.5;
  graph.LabelItalic = true;
  graph.LegendLocation = 2;
  graph.CursorStyle3 = 7;
  graph.NullDataValue = -5;
  graph.GridStyle = 4;
  graph.AllowZooming = 1;
  graph.layers[4].RYAxisLabel = "bar";
  graph.layers[1].AxisTicksOn = false;
  graph.layers[1].InvertedYAxis = true;
  graph.AutoScaleData = true;
  graph.InvertedXAxis = true;
  InitMainGraph(model);
  EXPECT_EQ(graph.MainTitle, "Lauf");
  EXPECT_EQ(graph.MinorGridColor, 0x112233);
  EXPECT_EQ(graph.FontScale2, 1.5f);
  EXPECT_TRUE(graph.LabelItalic);
  EXPECT_EQ(graph.LegendLocation, 2);
  EXPECT_EQ(graph.CursorStyle3, 7);
  EXPECT_EQ(graph.NullDataValue, -5);
  EXPECT_EQ(graph.GridStyle, 4);
  EXPECT_EQ(graph.AllowZooming, 1);
  EXPECT_EQ(graph.layers[4].RYAxisLabel, "bar");
  EXPECT_FALSE(graph.layers[1].AxisTicksOn);
  EXPECT_TRUE(graph.layers[1].InvertedYAxis);
  EXPECT_FALSE(graph.AutoScaleData);
  EXPECT_FALSE(graph.InvertedXAxis);
  EXPECT_EQ(graph.SubsetCount, 0);
  EXPECT_EQ(graph.PointCount, 0);
  EXPECT_EQ(graph.YData, nullptr);
}

TEST_F(GraphSetupTest, SwitchesAreWritten) {
  model.GraphStyleValue = 3;
  InitSurvGraph(model);
  const GraphProperties& graph = model.PESGSurvey.pending;
  EXPECT_TRUE(graph.Switch03 && graph.Switch108 && graph.Switch10F && graph.Switch116 && graph.Switch12 &&
              graph.Switch90 && graph.SwitchAA && graph.SwitchAB && graph.SwitchAC && graph.SwitchAD &&
              graph.Switch40 && graph.Switch120 && graph.Switch3E && graph.Switch10C && graph.Switch10D &&
              graph.Switch10E);
  EXPECT_FALSE(graph.Switch0E || graph.Switch11 || graph.Switch41);
  EXPECT_EQ(graph.Switch35 + graph.Switch36 + graph.Switch45, 0);
  EXPECT_TRUE(graph.SetupDone);
  EXPECT_EQ(graph.SetupMode, 1);
  EXPECT_EQ(graph.GraphStyleValue, 3);
  EXPECT_EQ(model.LastDatabaseStatus, kPropertyDone);
}

TEST_F(GraphSetupTest, LimitsPassThroughSinglePrecisionAndTheZoomDoesNot) {
  GraphProperties& graph = model.PESG.pending;
  graph.ManualMinX = 44260.123456789;
  graph.layers[2].ManualMaxRY = 0.1;
  graph.ZoomMinX = 44260.123456789;
  graph.ZoomActive = true;
  graph.layers[1].ZoomMaxY = 0.1;
  InitMainGraph(model);
  EXPECT_EQ(graph.ManualMinX, static_cast<f64>(44260.123456789f));
  EXPECT_EQ(graph.layers[2].ManualMaxRY, static_cast<f64>(0.1f));
  EXPECT_EQ(graph.ZoomMinX, 44260.123456789);
  EXPECT_TRUE(graph.ZoomActive);
  EXPECT_EQ(graph.layers[1].ZoomMaxY, 0.1);
}

TEST_F(GraphSetupTest, SurveyKeepsItsCountOfPoints) {
  model.PESG.pending.PointCount = 9;
  model.PESGSurvey.pending.PointCount = 9;
  InitMainGraph(model);
  InitSurvGraph(model);
  EXPECT_EQ(model.PESG.pending.PointCount, 0);
  EXPECT_EQ(model.PESGSurvey.pending.PointCount, 9);
}

TEST_F(GraphSetupTest, MainGraphLosesTheTitleOfItsLastAxis) {
  for (GraphSurface* graph : {&model.PESG, &model.PESGSurvey})
    for (LayerProperties& layer : graph->pending.layers) layer.YAxisLabel = "V";
  InitMainGraph(model);
  InitSurvGraph(model);
  EXPECT_EQ(model.PESG.pending.layers[0].YAxisLabel, "V");
  EXPECT_EQ(model.PESG.pending.layers[5].YAxisLabel, "");
  EXPECT_EQ(model.PESGSurvey.pending.layers[5].YAxisLabel, "V");
}

TEST_F(GraphSetupTest, SavedAxesComeBackAheadOfTheOthers) {
  for (std::size_t i = 0; i < kGraphLayers; ++i) {
    model.PESG.pending.layers[i].YAxisColor = static_cast<i32>(i);
    model.PESG.pending.layers[i].RYAxisColor = static_cast<i32>(10 + i);
    model.PESG.pending.layers[i].LayerPlacement = static_cast<i16>(20 + i);
  }
  model.saved_axes = {.left = {{.color = 100}, {.color = 101}},
                      .right = {{.color = 110}, {.color = 111}},
                      .StoredAxisCount = 2,
                      .AxesStored = true};
  InitMainGraph(model);
  const auto& layers = model.PESG.pending.layers;
  EXPECT_EQ(layers[0].YAxisColor, 100);
  EXPECT_EQ(layers[1].YAxisColor, 101);
  EXPECT_EQ(layers[2].YAxisColor, 0);
  EXPECT_EQ(layers[5].YAxisColor, 3);
  EXPECT_EQ(layers[1].RYAxisColor, 111);
  EXPECT_EQ(layers[3].RYAxisColor, 11);
  EXPECT_EQ(layers[2].LayerPlacement, 22);
  EXPECT_EQ(model.saved_axes.StoredAxisCount, 0);
  EXPECT_FALSE(model.saved_axes.AxesStored);
}

TEST_F(GraphSetupTest, VisibleLayersShiftDownWhileAxesAreSaved) {
  for (std::size_t i = 0; i < kGraphLayers; ++i)
    model.PESG.pending.layers[i].YAxisColor = static_cast<i32>(i);
  model.PESG.pending.FirstVisibleAxis = 1;
  model.saved_axes = {
      .left = {{.color = 100}}, .right = {{.color = 110}}, .StoredAxisCount = 0, .AxesStored = true};
  InitMainGraph(model);
  EXPECT_EQ(model.PESG.pending.layers[0].YAxisColor, 1);
  EXPECT_EQ(model.PESG.pending.layers[4].YAxisColor, 5);
}

TEST_F(GraphSetupTest, SurveyHasNoShift) {
  model.PESGSurvey.pending.layers[0].YAxisColor = 5;
  model.saved_axes = {.left = {{.color = 100}}, .right = {}, .StoredAxisCount = 1, .AxesStored = true};
  InitSurvGraph(model);
  EXPECT_EQ(model.PESGSurvey.pending.layers[0].YAxisColor, 5);
  EXPECT_TRUE(model.saved_axes.AxesStored);
}

}  // namespace
}  // namespace trendaro
