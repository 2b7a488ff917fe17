#include "graph/graph_layout.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "graph/table_layout.h"
#include "support/layout_graph.h"

namespace trendaro {
namespace {

std::string dump(const PixelRectangle& box) {
  const auto number = [](f64 value) { return std::to_string(static_cast<int>(value)); };
  return number(box.x) + "," + number(box.y) + " " + number(box.width) + "x" + number(box.height);
}

std::string labels_of(const AxisLayout& axis) {
  std::string text;
  for (const PlacedText& label : axis.labels) text += (text.empty() ? "" : " ") + label.text;
  return text;
}

// Boxes of all texts of a layout that has nothing turned.
std::vector<PixelRectangle> text_boxes(const GraphLayout& layout) {
  std::vector<PixelRectangle> boxes;
  const auto add = [&](const PlacedText& text) {
    if (!text.text.empty()) boxes.push_back(text.box);
  };
  for (const PlacedText& title : layout.titles) add(title);
  for (const LegendEntry& entry : layout.legend) add(entry.name);
  for (const PlacedText& note : layout.legend_notes) add(note);
  const auto add_axis = [&](const AxisLayout& axis) {
    for (const PlacedText& label : axis.labels) add(label);
    add(axis.title);
  };
  add_axis(layout.x_axis);
  for (const LayerLayout& layer : layout.layers) {
    if (layer.has_left) add_axis(layer.left);
    if (layer.shows_right) add_axis(layer.right);
  }
  return boxes;
}

TEST(GraphLayoutTest, APlainGraphHasItsPartsInPlace) {
  GraphSurface graph = graph_with(1);
  graph.pending.MainTitle = "Ausschnitt";
  graph.pending.XAxisLabel = "Zeit/s";
  graph.pending.layers[0].YAxisLabel = "bar";
  PEactions(graph, kRedrawFromSettings);
  const GraphLayout layout = layout_of(graph);
  ASSERT_EQ(layout.layers.size(), 1U);
  // Margin 8. Above: title 14, gap 7, half a label 7. Below: distance 8, labels 14, gap 5, title 14, legend
  // 14 with gap 6, margin 8. Left: margin 8, title 14, gap 5, two digits 14, distance 8. Right: 17 + 8.
  EXPECT_EQ(dump(layout.layers[0].area), "49,36 626x295");
  EXPECT_EQ(labels_of(layout.x_axis), "0 2 4 6 8 10");
  EXPECT_EQ(labels_of(layout.layers[0].left), "0 2 4 6 8 10");
  EXPECT_EQ(dump(layout.titles[0].box), "8,8 684x14");
  EXPECT_EQ(dump(layout.layers[0].left.title.box), "8,36 14x295");
  EXPECT_EQ(dump(layout.x_axis.title.box), "49,358 626x14");
  ASSERT_EQ(layout.legend.size(), 1U);
  EXPECT_EQ(layout.legend[0].name.box.y, 378);
}

TEST(GraphLayoutTest, ScalesReachFromEdgeToEdge) {
  const GraphLayout layout = layout_of(graph_with(1));
  const LayerLayout& layer = layout.layers[0];
  EXPECT_DOUBLE_EQ(pixel_of(layout.x_axis.scale, 0), layer.area.x);
  EXPECT_DOUBLE_EQ(pixel_of(layout.x_axis.scale, 10), layer.area.right());
  EXPECT_DOUBLE_EQ(pixel_of(layer.left.scale, 0), layer.area.bottom());
  EXPECT_DOUBLE_EQ(pixel_of(layer.left.scale, 10), layer.area.y);
}

TEST(GraphLayoutTest, InvertedAxesRunTheOtherWay) {
  GraphSurface graph = graph_with(1);
  graph.pending.InvertedXAxis = true;
  graph.pending.layers[0].InvertedYAxis = true;
  PEactions(graph, kRedrawFromSettings);
  const GraphLayout layout = layout_of(graph);
  EXPECT_DOUBLE_EQ(pixel_of(layout.x_axis.scale, 0), layout.layers[0].area.right());
  EXPECT_DOUBLE_EQ(pixel_of(layout.layers[0].left.scale, 0), layout.layers[0].area.y);
}

TEST(GraphLayoutTest, AnEmptyGraphIsFrameAndTitleOnly) {
  GraphSurface graph(1);
  graph.pending.MainTitle = "Ausschnitt";
  PEactions(graph, kTakeOverAndRedraw);
  const GraphLayout layout = layout_of(graph);
  EXPECT_FALSE(layout.has_axes);
  ASSERT_EQ(layout.layers.size(), 1U);
  EXPECT_EQ(layout.titles.size(), 1U);
  EXPECT_TRUE(layout.x_axis.labels.empty());
  EXPECT_TRUE(layout.legend.empty());
}

TEST(GraphLayoutTest, LayersAreStackedAndShareTheXAxis) {
  GraphSurface graph = graph_with(4);
  graph.pending.MultiAxesSubsets = {2, 0, 1, 1};
  PEactions(graph, kTakeOverAndRedraw);
  const GraphLayout layout = layout_of(graph);
  ASSERT_EQ(layout.layers.size(), 3U);
  EXPECT_EQ(layout.layers[0].layer, 0U);
  EXPECT_EQ(layout.layers[1].layer, 2U);
  EXPECT_EQ(layout.layers[2].layer, 3U);
  for (std::size_t i = 1; i < 3; ++i) {
    EXPECT_EQ(layout.layers[i].area.x, layout.layers[0].area.x);
    EXPECT_EQ(layout.layers[i].area.width, layout.layers[0].area.width);
    EXPECT_NEAR(layout.layers[i].area.height, layout.layers[0].area.height, 1);
    EXPECT_NEAR(layout.layers[i].area.y - layout.layers[i - 1].area.bottom(), 16, 1);
  }
  EXPECT_EQ(layout.curves[1].slot, 0U);
  EXPECT_EQ(layout.curves[2].slot, 1U);
  EXPECT_EQ(layout.curves[3].slot, 2U);
}

TEST(GraphLayoutTest, ProportionsDivideTheHeight) {
  GraphSurface graph = graph_with(2);
  graph.pending.MultiAxesSubsets = {1, 1};
  graph.pending.layers[0].LayerProportion = 75;
  graph.pending.layers[1].LayerProportion = 25;
  PEactions(graph, kTakeOverAndRedraw);
  const GraphLayout layout = layout_of(graph);
  EXPECT_NEAR(layout.layers[0].area.height, layout.layers[1].area.height * 3, 3);
}

TEST(GraphLayoutTest, RightCurvesHaveTheirOwnAxis) {
  GraphSurface graph = graph_with(2);
  graph.pending.SubsetPlotMethods = {0, 1002};
  graph.pending.layers[0].ShowRYAxis = true;
  PEactions(graph, kTakeOverAndRedraw);
  const GraphLayout layout = layout_of(graph);
  EXPECT_TRUE(layout.layers[0].has_left);
  EXPECT_TRUE(layout.layers[0].has_right);
  EXPECT_TRUE(layout.layers[0].shows_right);
  EXPECT_TRUE(layout.curves[1].right);
  EXPECT_EQ(layout.curves[1].method, 2);
  EXPECT_FALSE(layout.layers[0].right.labels.empty());
}

TEST(GraphLayoutTest, RightAxisThatIsSwitchedOffLeavesItsCurvesTheirScale) {
  GraphSurface graph = graph_with(2);
  graph.pending.layers[0].RYAxisLabel = "kN";
  const f64 plain_width = layout_of(graph).layers[0].area.width;
  graph.pending.SubsetPlotMethods = {0, 1000};
  PEactions(graph, kTakeOverAndRedraw);
  const LayerLayout layer = layout_of(graph).layers[0];
  EXPECT_TRUE(layer.has_right);
  EXPECT_FALSE(layer.shows_right);
  EXPECT_TRUE(layer.right.labels.empty());
  EXPECT_EQ(layer.right.title.text, "");
  EXPECT_EQ(layer.area.width, plain_width);
  EXPECT_DOUBLE_EQ(pixel_of(layer.right.scale, 10), layer.area.y);
}

TEST(GraphLayoutTest, RightAxisWithoutCurvesIsNotShown) {
  GraphSurface graph = graph_with(1);
  graph.pending.layers[0].ShowRYAxis = true;
  PEactions(graph, kRedrawFromSettings);
  EXPECT_FALSE(layout_of(graph).layers[0].shows_right);
}

TEST(GraphLayoutTest, LevelLinesOfALayerWithoutAnAxisOnShowStandAtItsRightScale) {
  GraphSurface graph = graph_with(1);
  graph.pending.SubsetPlotMethods = {1000};
  PEactions(graph, kTakeOverAndRedraw);
  const LayerLayout layer = layout_of(graph).layers[0];
  EXPECT_FALSE(layer.shows_right);
  EXPECT_EQ(layer.right.major.size(), 6U);  // 0 2 4 6 8 10
}

TEST(GraphLayoutTest, TheZoomWindowTakesThePlaceOfTheLimits) {
  GraphSurface graph = graph_with(1);
  graph.pending.ZoomActive = true;
  graph.pending.ZoomMinX = 2;
  graph.pending.ZoomMaxX = 4;
  graph.pending.layers[0].ZoomMinY = 5;
  graph.pending.layers[0].ZoomMaxY = 6;
  graph.pending.AllowZooming = 1;
  PEactions(graph, kRedrawFromSettings);
  GraphLayout layout = layout_of(graph);
  EXPECT_EQ(layout.x_axis.scale.minimum, 2);
  EXPECT_EQ(layout.layers[0].left.scale.minimum, 0);
  graph.pending.AllowZooming = 2;
  PEactions(graph, kRedrawFromSettings);
  layout = layout_of(graph);
  EXPECT_EQ(layout.layers[0].left.scale.minimum, 5);
}

TEST(GraphLayoutTest, AutomaticDataScalingMovesThePowerIntoTheTitle) {
  GraphSurface graph = graph_with(1);
  graph.pending.AutoScaleData = true;
  graph.pending.ManualScaleControlX = 3;
  graph.pending.ManualMinX = 0;
  graph.pending.ManualMaxX = 50000;
  graph.pending.XAxisLabel = "Zeit/s";
  PEactions(graph, kRedrawFromSettings);
  const GraphLayout layout = layout_of(graph);
  EXPECT_EQ(layout.x_axis.title.text, "Zeit/s  ×10⁴");
  EXPECT_EQ(labels_of(layout.x_axis), "0.0 0.5 1.0 1.5 2.0 2.5 3.0 3.5 4.0 4.5 5.0");
}

std::string left_title(GraphSurface& graph, const std::string& title, f64 height) {
  graph.pending.layers[0].YAxisLabel = title;
  PEactions(graph, kTakeOverAndRedraw);
  return layout_of(graph, 700, height).layers[0].left.title.text;
}

TEST(GraphLayoutTest, ATitleOfWhichTooLittleIsLeftGoesAwayWithItsRoom) {
  GraphSurface graph = graph_with(1);
  const f64 area = layout_of(graph, 700, 150).layers[0].area.height;
  // 7 pixels a character: the layer holds the ellipsis and four or three more.
  EXPECT_EQ(left_title(graph, "Schwinggeschwindigkeit", 150 - area + 36), "Schw…");
  EXPECT_EQ(left_title(graph, "Öl°C Temperatur", 150 - area + 36), "Öl°C…");
  EXPECT_EQ(left_title(graph, "Schwinggeschwindigkeit", 150 - area + 34), "");
  EXPECT_EQ(left_title(graph, "U/mi", 150 - area + 34), "U/mi");
  // Without a title its line of 14 and the gap of 5 belong to the curves.
  const f64 left = layout_of(graph, 700, 150 - area + 34).layers[0].area.x;
  left_title(graph, "Schwinggeschwindigkeit", 150 - area + 34);
  EXPECT_EQ(layout_of(graph, 700, 150 - area + 34).layers[0].area.x, left - 19);
}

TEST(GraphLayoutTest, APowerThatWouldBeCutOffItsTitleStaysInTheLabels) {
  GraphSurface graph(1);
  graph.pending.SubsetCount = 1;
  graph.pending.PointCount = 2;
  graph.pending.AutoPadPercent = 0;
  graph.pending.AutoScaleData = true;
  PEvset(graph, kXData, FlatArray{0, 10});
  PEvset(graph, kYData, FlatArray{0, 20000});
  graph.pending.layers[0].YAxisLabel = "Drehzahl";
  PEactions(graph, kTakeOverAndRedraw);
  const GraphLayout roomy = layout_of(graph, 700, 400);
  EXPECT_EQ(roomy.layers[0].left.title.text, "Drehzahl  ×10⁴");
  EXPECT_EQ(roomy.layers[0].left.labels.back().text, "2.0");
  // 98 pixels for the whole, 56 for the name.
  const GraphLayout low = layout_of(graph, 700, 400 - roomy.layers[0].area.height + 90);
  EXPECT_EQ(low.layers[0].left.title.text, "Drehzahl");
  EXPECT_EQ(low.layers[0].left.labels.back().text, "20000");
}

TEST(GraphLayoutTest, EqualManualLimitsOfADateAxisAreAMinuteToBothSides) {
  GraphSurface graph = graph_with(1);
  graph.pending.DateTimeMode = 1;
  graph.pending.ManualScaleControlX = 3;
  graph.pending.ManualMinX = 45292.5;
  graph.pending.ManualMaxX = 45292.5;
  PEactions(graph, kRedrawFromSettings);
  const GraphLayout layout = layout_of(graph);
  EXPECT_NEAR(layout.x_axis.scale.minimum, 45292.5 - 60.0 / 86400, 1e-10);
  EXPECT_NEAR(layout.x_axis.scale.maximum, 45292.5 + 60.0 / 86400, 1e-10);
  EXPECT_EQ(layout.x_axis.labels.front().text, "11:59:00");
}

TEST(GraphLayoutTest, AxesComeBeforeLegendAndTitles) {
  GraphSurface graph = graph_with(3);
  graph.pending.MainTitle = "Prüflauf";
  graph.pending.MultiAxesSubsets = {1, 1, 1};
  graph.pending.SubsetsToLegend = {0, 1, 2};
  PEactions(graph, kTakeOverAndRedraw);
  const GraphLayout roomy = layout_of(graph, 400, 250);
  EXPECT_TRUE(roomy.has_axes);
  EXPECT_EQ(roomy.titles.size(), 1U);
  EXPECT_EQ(roomy.legend.size(), 3U);
  // Three layers of 28 with gaps of 16, labels of 22 below and half a label above make 145 pixels; margins of
  // 8, a title of 21 and a legend of 20 leave less.
  const GraphLayout tight = layout_of(graph, 400, 190);
  EXPECT_TRUE(tight.has_axes);
  EXPECT_EQ(tight.titles.size(), 1U);
  EXPECT_TRUE(tight.legend.empty());
  const GraphLayout narrow = layout_of(graph, 400, 165);
  EXPECT_TRUE(narrow.has_axes);
  EXPECT_TRUE(narrow.titles.empty());
}

// Three layers with all that can stand around them.
GraphSurface crowded_graph() {
  GraphSurface graph = graph_with(3);
  graph.pending.MainTitle = "Übersicht";
  graph.pending.MultiAxesSubsets = {1, 1, 1};
  graph.pending.XAxisLabel = "Zeit/s";
  for (LayerProperties& layer : graph.pending.layers) layer.YAxisLabel = "V";
  PEactions(graph, kTakeOverAndRedraw);
  return graph;
}

std::string texts_of(const GraphLayout& layout) {
  std::string parts;
  const auto add = [&](bool there, const char* part) { parts += there ? part : ""; };
  add(!layout.legend.empty(), "Legende ");
  add(!layout.titles.empty(), "Titel ");
  add(!layout.x_axis.title.text.empty(), "x-Titel ");
  add(!layout.layers[0].left.title.text.empty(), "y-Titel ");
  add(!layout.layers[0].left.labels.empty(), "y-Werte ");
  add(!layout.x_axis.labels.empty(), "x-Werte ");
  return parts;
}

TEST(GraphLayoutTest, ALowGraphGivesUpItsTextsOneAfterTheOther) {
  const GraphSurface graph = crowded_graph();
  // Below the layers 41 with the title and 22 without, above 7, gaps 2 x 16, margins 2 x 8: 96 and 3 x 28.
  EXPECT_EQ(texts_of(layout_of(graph, 400, 221)), "Legende Titel x-Titel y-Titel y-Werte x-Werte ");
  EXPECT_EQ(texts_of(layout_of(graph, 400, 220)), "Titel x-Titel y-Titel y-Werte x-Werte ");
  EXPECT_EQ(texts_of(layout_of(graph, 400, 201)), "Titel x-Titel y-Titel y-Werte x-Werte ");
  // Without titles the layers may be as low as 16.1 each.
  EXPECT_EQ(texts_of(layout_of(graph, 400, 200)), "x-Titel y-Titel y-Werte x-Werte ");
  EXPECT_EQ(texts_of(layout_of(graph, 400, 145)), "x-Titel y-Titel y-Werte x-Werte ");
  EXPECT_EQ(texts_of(layout_of(graph, 400, 144)), "y-Titel y-Werte x-Werte ");
  EXPECT_EQ(texts_of(layout_of(graph, 400, 126)), "y-Titel y-Werte x-Werte ");
  // Without labels gaps are 4 wide and nothing stands above; 3 x 11.2 remain for the layers.
  EXPECT_EQ(texts_of(layout_of(graph, 400, 125)), "x-Werte ");
  EXPECT_EQ(texts_of(layout_of(graph, 400, 80)), "x-Werte ");
  EXPECT_EQ(texts_of(layout_of(graph, 400, 79)), "");
}

TEST(GraphLayoutTest, ANarrowGraphKeepsWhatTakesHeightOnly) {
  const GraphSurface graph = crowded_graph();
  // Margins 2 x 8, title and labels of the left axis 41, right of the area 17, and 42 for the area
  // once a table beside it is given up.
  EXPECT_EQ(texts_of(layout_of(graph, 116, 400)), "Legende Titel x-Titel y-Titel y-Werte x-Werte ");
  EXPECT_EQ(texts_of(layout_of(graph, 100, 400)), "Legende Titel x-Titel y-Werte x-Werte ");
  EXPECT_EQ(texts_of(layout_of(graph, 93, 400)), "Legende Titel x-Titel x-Werte ");
  EXPECT_EQ(texts_of(layout_of(graph, 50, 400)).find("Werte"), std::string::npos);
}

TEST(GraphLayoutTest, CurvesAreOnShowDownToATinyArea) {
  GraphSurface graph = crowded_graph();
  // Three layers of 5, two gaps of 4, a tick of 5: 28, which is three quarters of 38, between the margins.
  EXPECT_TRUE(layout_of(graph, 50, 38).has_axes);
  EXPECT_FALSE(layout_of(graph, 50, 37).has_axes);
  EXPECT_EQ(layout_of(graph, 50, 37).layers.size(), 1U);
  EXPECT_TRUE(layout_of(graph, 50, 37).titles.empty());
  for (f64 height = 38; height < 250; ++height) {
    const GraphLayout layout = layout_of(graph, 300, height);
    ASSERT_TRUE(layout.has_axes) << height;
    for (const LayerLayout& layer : layout.layers) EXPECT_GE(layer.area.height, 5) << height;
  }
}

TEST(GraphLayoutTest, APowerOfTenWhoseTitleIsGivenUpStaysInTheLabels) {
  GraphSurface graph = graph_with(1);
  graph.pending.AutoScaleData = true;
  graph.pending.ManualScaleControlX = 3;
  graph.pending.ManualMinX = 0;
  graph.pending.ManualMaxX = 50000;
  PEactions(graph, kRedrawFromSettings);
  const GraphLayout layout = layout_of(graph, 400, 65);
  EXPECT_EQ(layout.x_axis.title.text, "");
  EXPECT_EQ(labels_of(layout.x_axis), "0 10000 20000 30000 40000 50000");
}

TEST(GraphLayoutTest, ATableGivesWayToTheCurves) {
  GraphSurface graph = graph_with(1);
  TableProperties& table = graph.pending.tables[0];
  graph.pending.TablesEnabled = true;
  table.TableVisible = true;
  table.TableLocation = kTableRightOfGraph;
  table.TableRows = table.TableColumns = 1;
  table.cells[{0, 0}].text = "12345678";
  PEactions(graph, kRedrawFromSettings);
  EXPECT_GT(layout_of(graph, 300, 200).table_room.width, 0);
  const GraphLayout narrow = layout_of(graph, 130, 200);
  EXPECT_EQ(narrow.table_room.width, 0);
  EXPECT_TRUE(place_tables(graph.shown(), narrow, FixedMeasure()).empty());
}

TEST(GraphLayoutTest, NothingOverlapsAtAnySize) {
  GraphSurface graph = graph_with(9);
  graph.pending.MainTitle = "Ein langer Haupttitel über dem Ganzen";
  graph.pending.SubTitle = "unkomprimierte Daten";
  graph.pending.MultiSubTitles = {"links|Mitte|rechts"};
  graph.pending.MultiBottomTitles = {"|unten|", "noch eine"};
  graph.pending.XAxisLabel = "Zeit/s";
  graph.pending.MultiAxesSubsets = {3, 3, 3};
  graph.pending.SubsetPlotMethods = {0, 1000, 0, 0, 1000, 0, 0, 0, 1000};
  for (LayerProperties& layer : graph.pending.layers) {
    layer.YAxisLabel = layer.RYAxisLabel = "Kraft/kN";
    layer.ShowRYAxis = true;
  }
  for (i16 location = 0; location < 4; ++location)
    for (i16 style = 0; style < 2; ++style) {
      graph.pending.LegendLocation = location;
      graph.pending.LegendStyle = style;
      PEactions(graph, kTakeOverAndRedraw);
      for (const auto& [width, height] :
           {std::pair(1600.0, 900.0), std::pair(640.0, 480.0), std::pair(300.0, 400.0),
            std::pair(900.0, 200.0), std::pair(120.0, 80.0), std::pair(20.0, 10.0), std::pair(1.0, 1.0)}) {
        const GraphLayout layout = layout_of(graph, width, height);
        const auto boxes = text_boxes(layout);
        for (std::size_t i = 0; i < boxes.size(); ++i) {
          EXPECT_GE(boxes[i].x, -0.5);
          EXPECT_LE(boxes[i].right(), width + 0.5);
          EXPECT_GE(boxes[i].y, -0.5);
          EXPECT_LE(boxes[i].bottom(), height + 0.5);
          for (std::size_t j = 0; j < i; ++j)
            ASSERT_FALSE(overlap(boxes[i], boxes[j])) << width << "x" << height << " legend " << location
                                                      << ": " << dump(boxes[i]) << " and " << dump(boxes[j]);
          for (const LayerLayout& layer : layout.layers) ASSERT_FALSE(overlap(boxes[i], layer.area));
        }
      }
    }
}

TEST(ElidedTest, CutsBetweenCharactersOnly) {
  const FixedMeasure measure;
  EXPECT_EQ(elided("Größe", 35, TextRole::Axis, measure), "Größe");
  EXPECT_EQ(elided("Größe", 28, TextRole::Axis, measure), "Grö…");
  EXPECT_EQ(elided("Größe", 21, TextRole::Axis, measure), "Gr…");
  EXPECT_EQ(elided("Größe", 7, TextRole::Axis, measure), "…");
  EXPECT_EQ(elided("Größe", 6, TextRole::Axis, measure), "");
}

}  // namespace
}  // namespace trendaro
