#include "graph/legend_layout.h"

#include <random>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/layout_graph.h"

namespace trendaro {
namespace {

TEST(LegendLayoutTest, TheListEndsAtItsMarker) {
  GraphSurface graph = graph_with(3);
  graph.pending.SubsetsToLegend = {2, 0, -1, 1};
  PEactions(graph, kRedrawFromSettings);
  EXPECT_EQ(legend_subsets(graph.shown()), (std::vector<std::size_t>{2, 0}));
  graph.pending.SubsetsToLegend = {-1, 0};
  PEactions(graph, kRedrawFromSettings);
  EXPECT_TRUE(layout_of(graph).legend.empty());
  graph.pending.SubsetsToLegend = {99, 1};
  PEactions(graph, kRedrawFromSettings);
  EXPECT_EQ(legend_subsets(graph.shown()), std::vector<std::size_t>{1});
}

TEST(LegendLayoutTest, OneLineHoldsAllNamesByCuttingTheLongOnes) {
  GraphSurface graph = graph_with(4);
  graph.pending.LegendStyle = kLegendOneLine;
  graph.pending.SubsetLabels[1] = std::string(200, 'x');
  PEactions(graph, kRedrawFromSettings);
  const GraphLayout layout = layout_of(graph);
  ASSERT_EQ(layout.legend.size(), 4U);
  for (const LegendEntry& entry : layout.legend) EXPECT_EQ(entry.name.box.y, layout.legend[0].name.box.y);
  EXPECT_EQ(layout.legend[0].name.text, "Kurve 1");
  EXPECT_LT(layout.legend[1].name.text.size(), 200U);
}

// Names of 34 characters, 238 pixels, that differ at their end only.
GraphSurface graph_with_long_names(i32 curves) {
  GraphSurface graph = graph_with(curves);
  for (i32 i = 0; i < curves; ++i)
    graph.pending.SubsetLabels[static_cast<std::size_t>(i)] =
        "Schwingweg gefiltert 10 Hz bis " + std::to_string(100 + i);
  PEactions(graph, kRedrawFromSettings);
  return graph;
}

std::size_t columns_of(const GraphLayout& layout) {
  std::set<f64> starts;
  for (const LegendEntry& entry : layout.legend) starts.insert(entry.sample.x);
  return starts.size();
}

TEST(LegendLayoutTest, LongNamesStandInTwoColumnsAndAreToldApartByTheirEnds) {
  // A column of 500 - 16 pixels less a gap of 20, halved and less 28 for the sample: 204, which 29 characters
  // fit.
  const GraphLayout layout = layout_of(graph_with_long_names(4), 500, 400);
  ASSERT_EQ(layout.legend.size(), 4U);
  EXPECT_EQ(columns_of(layout), 2U);
  EXPECT_EQ(layout.legend[0].name.text, "Schwingweg gef… 10 Hz bis 100");
  EXPECT_EQ(layout.legend[3].name.text, "Schwingweg gef… 10 Hz bis 103");
  EXPECT_TRUE(layout.legend_notes.empty());
}

TEST(LegendLayoutTest, ANarrowGraphCutsANameToItsWholeWidth) {
  // 84 less 28 for the sample are 56, eight characters.
  const GraphLayout layout = layout_of(graph_with_long_names(1), 100, 400);
  ASSERT_EQ(layout.legend.size(), 1U);
  EXPECT_EQ(layout.legend[0].name.text, "Schw…100");
  // Narrower than a sample and three lines of text there is no legend.
  EXPECT_TRUE(layout_of(graph_with_long_names(1), 85, 400).legend.empty());
}

TEST(LegendLayoutTest, ManyCurvesGetMoreColumnsWithShorterNames) {
  // A quarter of 384 less a gap of 6 holds 6 lines, so 24 curves need 4 columns.
  const GraphLayout layout = layout_of(graph_with_long_names(24), 900, 400);
  EXPECT_EQ(layout.legend.size(), 24U);
  EXPECT_EQ(columns_of(layout), 4U);
  EXPECT_TRUE(layout.legend_notes.empty());
  std::set<std::string> names;
  for (const LegendEntry& entry : layout.legend) names.insert(entry.name.text);
  EXPECT_EQ(names.size(), 24U);
}

// Names of these lengths, in `room`; the legend takes what it needs from it.
GraphLayout legend_of(const std::vector<std::size_t>& lengths, i16 location, PixelRectangle& room) {
  GraphSurface graph = graph_with(static_cast<i32>(lengths.size()));
  for (std::size_t i = 0; i < lengths.size(); ++i)
    graph.pending.SubsetLabels[i] = std::string(lengths[i], 'n');
  graph.pending.LegendLocation = location;
  PEactions(graph, kRedrawFromSettings);
  GraphLayout layout;
  place_legend(graph.shown(), FixedMeasure(), room, layout);
  return layout;
}

TEST(LegendLayoutTest, FewerColumnsForTheSameRowsAreTakenOnlyWhereTheyFit) {
  // A column takes 7 pixels a character of its longest name, and 28; gaps are 20. In two rows
  // - six columns hold 36, 39, 9, 3, 18 and 14 characters: 119 * 7 + 6 * 28 + 5 * 20 = 1101,
  // - five hold 36, 39, 36, 3 and 18: 132 * 7 + 5 * 28 + 4 * 20 = 1144,
  // - four hold 36, 39, 31 and 36: 142 * 7 + 4 * 28 + 3 * 20 = 1166.
  const auto columns_in = [](f64 width) {
    PixelRectangle room{0, 0, width, 400};
    const GraphLayout layout = legend_of({36, 39, 9, 3, 18, 14, 31, 36}, kLegendBottom, room);
    EXPECT_EQ(layout.legend.size(), 8U);
    for (const LegendEntry& entry : layout.legend) EXPECT_LE(entry.name.box.right(), width) << entry.subset;
    EXPECT_EQ(room.height, 400 - 2 * 14 - 6);
    return columns_of(layout);
  };
  EXPECT_EQ(columns_in(1101), 6U);
  EXPECT_EQ(columns_in(1143), 6U);
  EXPECT_EQ(columns_in(1144), 5U);
  EXPECT_EQ(columns_in(1166), 4U);
}

TEST(LegendLayoutTest, EveryEntryStandsInsideOfItsRoom) {
  std::mt19937 random(1);
  const auto below = [&](std::size_t limit) { return random() % limit; };
  for (int round = 0; round < 8000; ++round) {
    std::vector<std::size_t> lengths(2 + below(11));
    for (std::size_t& length : lengths) length = 1 + below(40);
    const PixelRectangle all{10, 20, static_cast<f64>(100 + below(1600)), 400};
    PixelRectangle room = all;
    const GraphLayout layout = legend_of(lengths, static_cast<i16>(below(4)), room);
    for (const LegendEntry& entry : layout.legend) {
      ASSERT_GE(entry.sample.x, all.x) << round;
      ASSERT_GE(entry.sample.y, all.y) << round;
      EXPECT_LE(entry.name.box.right(), all.right()) << round;
      ASSERT_LE(entry.name.box.bottom(), all.bottom()) << round;
    }
  }
}

TEST(LegendLayoutTest, CurvesThatFindNoRoomAreCounted) {
  // Names of at least 84 pixels: two columns in 284, of 6 lines each; the last place is for the note.
  const GraphLayout layout = layout_of(graph_with_long_names(24), 300, 400);
  EXPECT_EQ(layout.legend.size(), 11U);
  ASSERT_EQ(layout.legend_notes.size(), 1U);
  EXPECT_EQ(layout.legend_notes[0].text, "+ 13 weitere");
  EXPECT_EQ(layout.legend_notes[0].box.y, layout.legend[10].name.box.y);
}

TEST(LegendLayoutTest, OneLineCountsTheCurvesThatItDoesNotHold) {
  GraphSurface graph = graph_with_long_names(24);
  graph.pending.LegendStyle = kLegendOneLine;
  PEactions(graph, kRedrawFromSettings);
  // Each curve takes 28 and at least 42, with gaps of 20 and a note of 84: 90 n + 84 in 684.
  const GraphLayout layout = layout_of(graph);
  EXPECT_EQ(layout.legend.size(), 6U);
  ASSERT_EQ(layout.legend_notes.size(), 1U);
  EXPECT_EQ(layout.legend_notes[0].text, "+ 18 weitere");
  EXPECT_EQ(layout.legend_notes[0].box.y, layout.legend[0].name.box.y);
  EXPECT_LE(layout.legend_notes[0].box.right(), 692.5);
  // 90 n + 84 in 84 leave no curve, and the note stands for all.
  const GraphLayout narrow = layout_of(graph, 110, 400);
  EXPECT_TRUE(narrow.legend.empty());
  ASSERT_EQ(narrow.legend_notes.size(), 1U);
  EXPECT_EQ(narrow.legend_notes[0].text, "24 Kurven");
}

TEST(LegendLayoutTest, AListAtTheSideCountsTheCurvesThatItDoesNotHold) {
  GraphSurface graph = graph_with_long_names(24);
  for (const i16 location : {kLegendLeft, kLegendRight}) {
    graph.pending.LegendLocation = location;
    PEactions(graph, kRedrawFromSettings);
    // 234 pixels hold 16 lines.
    const GraphLayout layout = layout_of(graph, 700, 250);
    EXPECT_EQ(layout.legend.size(), 15U);
    ASSERT_EQ(layout.legend_notes.size(), 1U);
    EXPECT_EQ(layout.legend_notes[0].text, "+ 9 weitere");
    EXPECT_EQ(layout.legend_notes[0].box.x, layout.legend[0].sample.x);
  }
}

TEST(LegendLayoutTest, InTheLayersItKeepsTheOrderOfTheListAndCountsTheRest) {
  GraphSurface graph = graph_with(3);
  graph.pending.LegendStyle = kLegendInLayers;
  graph.pending.SubsetsToLegend = {2, 0, 1};
  PEactions(graph, kRedrawFromSettings);
  const GraphLayout layout = layout_of(graph);
  ASSERT_EQ(layout.legend.size(), 3U);
  EXPECT_EQ(layout.legend[0].subset, 2U);
  EXPECT_EQ(layout.legend[1].subset, 0U);
  EXPECT_EQ(layout.legend[2].subset, 1U);
  // Margins 16, half a label 7 and labels of 22 leave 60 of 105; less 28 they hold two lines.
  const GraphLayout low = layout_of(graph, 700, 105);
  ASSERT_EQ(low.legend.size(), 1U);
  EXPECT_EQ(low.legend[0].subset, 2U);
  ASSERT_EQ(low.legend_notes.size(), 1U);
  EXPECT_EQ(low.legend_notes[0].text, "+ 2 weitere");
  // 50 hold one line, with room for all three beside each other.
  const GraphLayout lowest = layout_of(graph, 700, 95);
  ASSERT_EQ(lowest.legend.size(), 3U);
  EXPECT_EQ(lowest.legend[0].sample.y, lowest.legend[2].sample.y);
  EXPECT_LT(lowest.legend[2].name.box.right(), lowest.legend_backs[0].right());
}

TEST(LegendLayoutTest, InTheLayersItStandsInsideTheAreas) {
  GraphSurface graph = graph_with(2);
  graph.pending.LegendStyle = kLegendInLayers;
  PEactions(graph, kRedrawFromSettings);
  const GraphLayout layout = layout_of(graph);
  ASSERT_EQ(layout.legend.size(), 2U);
  EXPECT_TRUE(overlap(layout.legend[0].name.box, layout.layers[0].area));
}

}  // namespace
}  // namespace trendaro
