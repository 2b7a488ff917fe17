// What a set-up keeps, held against every property there is.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/model.h"
#include "graph/graph_layout.h"
#include "graph/graph_setup.h"
#include "graph/picture_state.h"
#include "support/filled_graph.h"
#include "support/fixed_measure.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

// These go back to their start values: curves, annotations, tables, lines of text, places.
constexpr const char* kGivenUp[] = {"PlottingMethod",
                                    "SubsetCount",
                                    "SubsetLabels",
                                    "SubsetColors",
                                    "SubsetPointTypes",
                                    "SubsetLineTypes",
                                    "SubsetPlotMethods",
                                    "SubsetsToLegend",
                                    "SpecialSubsetCount",
                                    "MultiAxesSubsets",
                                    "UsingXDataII",
                                    "AutoScaleData",
                                    "AutoPadPercent",
                                    "InvertedXAxis",
                                    "ZoomAxisTop",
                                    "ZoomAxisBottom",
                                    "CursorPoint",
                                    "CursorSubset",
                                    "FirstVisibleAxis",
                                    "ShowAnnotations",
                                    "GraphAnnotationType",
                                    "GraphAnnotationX",
                                    "GraphAnnotationY",
                                    "GraphAnnotationText",
                                    "GraphAnnotationColor",
                                    "GraphAnnotationAxis",
                                    "HorzLineAnnotation",
                                    "HorzLineAnnotationText",
                                    "HorzLineAnnotationColor",
                                    "HorzLineAnnotationType",
                                    "HorzLineAnnotationAxis",
                                    "VertLineAnnotation",
                                    "VertLineAnnotationText",
                                    "VertLineAnnotationColor",
                                    "VertLineAnnotationType",
                                    "XAxisAnnotation",
                                    "XAxisAnnotationText",
                                    "XAxisAnnotationColor",
                                    "AnnotationTextSize",
                                    "AxisAnnotationTextSize",
                                    "LineAnnotationTextSize",
                                    "LeftMargin",
                                    "TopMargin",
                                    "RightMargin",
                                    "BottomMargin",
                                    "TablesEnabled",
                                    "WorkingTable",
                                    "ExportWidth",
                                    "ExportHeight",
                                    "ExportFileName",
                                    "MultiSubTitles",
                                    "MultiBottomTitles"};
constexpr const char* kGivenUpByLayers[] = {"ShowRYAxis", "YAxisAnnotation", "YAxisAnnotationText",
                                            "YAxisAnnotationColor"};
constexpr const char* kLayersWithoutTicks[] = {"layer 3 ", "layer 4 ", "layer 5 "};

constexpr const char* kOn[] = {"Switch03", "Switch108", "Switch10F", "Switch116", "Switch12", "Switch90",
                               "SwitchAA", "SwitchAB",  "SwitchAC",  "SwitchAD",  "Switch40", "Switch120",
                               "Switch3E", "Switch10C", "Switch10D", "Switch10E", "SetupDone"};
constexpr const char* kOff[] = {"Switch0E", "Switch11", "Switch41"};
constexpr const char* kZero[] = {"Switch35", "Switch36", "Switch45"};

void round_to_single(f64& value) {
  value = static_cast<f32>(value);
}

GraphProperties with_limits_in_single_precision(GraphProperties graph) {
  round_to_single(graph.ManualMinX);
  round_to_single(graph.ManualMaxX);
  for (LayerProperties& layer : graph.layers)
    for (f64* limit : {&layer.ManualMinY, &layer.ManualMaxY, &layer.ManualMinRY, &layer.ManualMaxRY})
      round_to_single(*limit);
  return graph;
}

// What a set-up leaves of `before`, for either graph.
PropertyTexts after_set_up(const GraphProperties& before) {
  PropertyTexts texts = property_texts(with_limits_in_single_precision(before));
  const PropertyTexts start = property_texts(GraphProperties{});
  for (const char* name : kGivenUp) texts[name] = start.at(name);
  for (std::size_t i = 0; i < kGraphLayers; ++i)
    for (const char* name : kGivenUpByLayers) {
      const std::string full = "layer " + std::to_string(i) + " " + name;
      texts[full] = start.at(full);
    }
  for (const char* layer : kLayersWithoutTicks) texts[layer + std::string("AxisTicksOn")] = "true";
  for (auto& [name, text] : texts)
    if (name.starts_with("table ")) text = start.at(name);
  for (const char* name : kOn) texts[name] = "true";
  for (const char* name : kOff) texts[name] = "false";
  for (const char* name : kZero) texts[name] = "0";
  texts["WorkingAxis"] = "2";
  texts["SetupMode"] = "1";
  texts["GraphStyleValue"] = "3";
  return texts;
}

void expect_same(const PropertyTexts& texts, const PropertyTexts& expected) {
  ASSERT_EQ(texts.size(), expected.size());
  for (const auto& [name, text] : expected) EXPECT_EQ(texts.at(name), text) << name;
}

class GraphCaptureTest : public testing::TestWithParam<bool> {
 protected:
  GraphCaptureTest() { model.GraphStyleValue = 3; }

  RecordingShell shell;
  Model model{shell};
};

TEST_P(GraphCaptureTest, DetailGraphKeepsAllButWhatIsGivenUp) {
  const GraphProperties before = filled_graph(1, GetParam());
  model.PESG.pending = before;
  InitMainGraph(model);
  PropertyTexts expected = after_set_up(before);
  expected["PointCount"] = "0";
  expected["layer 5 YAxisLabel"] = "\"\"";
  expect_same(property_texts(model.PESG.pending), expected);
}

TEST_P(GraphCaptureTest, SurveyKeepsItsCountOfPointsAndItsTitlesToo) {
  const GraphProperties before = filled_graph(1, GetParam());
  model.PESGSurvey.pending = before;
  InitSurvGraph(model);
  expect_same(property_texts(model.PESGSurvey.pending), after_set_up(before));
}

TEST_P(GraphCaptureTest, SecondSetUpChangesNothing) {
  model.PESG.pending = model.PESGSurvey.pending = filled_graph(1, GetParam());
  InitMainGraph(model);
  InitSurvGraph(model);
  const GraphProperties main_graph = model.PESG.pending;
  const GraphProperties survey = model.PESGSurvey.pending;
  InitMainGraph(model);
  InitSurvGraph(model);
  expect_same(property_texts(model.PESG.pending), property_texts(main_graph));
  expect_same(property_texts(model.PESGSurvey.pending), property_texts(survey));
}

INSTANTIATE_TEST_SUITE_P(Flags, GraphCaptureTest, testing::Bool());

std::vector<std::string> visible_texts(const GraphProperties& shown) {
  std::vector<std::string> texts;
  for (const PlacedText& title : graph_layout(shown, 640, 400, FixedMeasure()).titles)
    texts.push_back(title.text);
  return texts;
}

// The look that menus and dialogs give a graph without curves.
void dress(GraphProperties& graph) {
  graph.MainTitle = "Lauf 3";
  graph.SubTitle = "warm";
  graph.DeskColor = 0x112233;
  graph.TextColor = 0x445566;
  graph.GraphBackColor = 0x778899;
  graph.GraphForeColor = 0x123456;
  graph.ShadowColor = 0x654321;
  graph.FontSizeClass = 0;
  graph.FontScale1 = 1.5;
  graph.MainTitleItalic = true;
  graph.SubTitleFont = "DejaVu Serif";
  graph.LegendStyle = 1;
  graph.GridLineControl = 3;
  graph.TickSetting = 4;
  graph.XAxisLabel = "s";
}

TEST(EmptyGraphTest, SetUpChangesNothingOnShow) {
  RecordingShell shell;
  Model model(shell);
  InitMainGraph(model);
  InitSurvGraph(model);
  for (GraphSurface* graph : {&model.PESG, &model.PESGSurvey}) {
    dress(graph->pending);
    PEactions(*graph, kTakeOverAndRedraw);
    const PictureState former = picture_state(graph->shown());
    const std::vector<std::string> texts = visible_texts(graph->shown());
    ASSERT_EQ(texts, (std::vector<std::string>{"Lauf 3", "warm"}));
    (graph == &model.PESG ? InitMainGraph : InitSurvGraph)(model);
    PEactions(*graph, kTakeOverAndRedraw);
    EXPECT_EQ(visible_texts(graph->shown()), texts);
    EXPECT_TRUE(former.settings == picture_state(graph->shown()).settings);
  }
}

}  // namespace
}  // namespace trendaro
