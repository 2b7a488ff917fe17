#include "graph/title_layout.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/layout_graph.h"

namespace trendaro {
namespace {

TEST(TitleLayoutTest, BarsDivideALineIntoThreeParts) {
  EXPECT_EQ(title_parts("abc").centre, "abc");
  EXPECT_EQ(title_parts("|abc|").centre, "abc");
  EXPECT_EQ(title_parts("a|b|c").left, "a");
  EXPECT_EQ(title_parts("a|b|c").right, "c");
  EXPECT_EQ(title_parts("a|b").left, "a");
  EXPECT_EQ(title_parts("a|b").centre, "b");
}

// A graph with so many lines above and below the main title.
GraphSurface graph_with_lines(std::size_t above, std::size_t below) {
  GraphSurface graph = graph_with(1);
  graph.pending.MainTitle = "Lauf";
  for (std::size_t i = 0; i < above; ++i) graph.pending.MultiSubTitles.push_back("oben " + std::to_string(i));
  for (std::size_t i = 0; i < below; ++i)
    graph.pending.MultiBottomTitles.push_back("|unten " + std::to_string(i) + "|rechts");
  graph.pending.SubsetsToLegend = {-1};
  PEactions(graph, kTakeOverAndRedraw);
  return graph;
}

std::string titles_of(const GraphLayout& layout) {
  std::string all;
  for (const PlacedText& title : layout.titles) all += (all.empty() ? "" : ", ") + title.text;
  return all;
}

TEST(TitleLayoutTest, PartsOfALineShareItsRow) {
  // A row of 700 less two margins of 8: 684, which 97 characters fit.
  const auto boxes_of = [](const std::string& line) {
    GraphSurface graph = graph_with(1);
    graph.pending.MultiSubTitles = {line};
    PEactions(graph, kRedrawFromSettings);
    return layout_of(graph).titles;
  };
  const std::string wide(97, 'n');
  for (const std::string& line : {wide + "||", "|" + wide + "|", "||" + wide, wide}) {
    const std::vector<PlacedText> alone = boxes_of(line);
    ASSERT_EQ(alone.size(), 1U);
    EXPECT_EQ(alone[0].text, wide);
    EXPECT_EQ(alone[0].box.x, 8);
    EXPECT_EQ(alone[0].box.width, 684);
  }
  EXPECT_EQ(boxes_of("a||")[0].alignment, TextAlignment::Left);
  EXPECT_EQ(boxes_of("||a")[0].alignment, TextAlignment::Right);
  // 684 less 14 between them, halved: 335, 47 characters.
  const std::string half(47, 'n');
  const std::vector<PlacedText> pair = boxes_of(half + "||" + half + "n");
  ASSERT_EQ(pair.size(), 2U);
  EXPECT_EQ(pair[0].text, half);
  EXPECT_EQ(pair[0].box.right(), 343);
  EXPECT_EQ(pair[1].text, half.substr(1) + "…");
  EXPECT_EQ(pair[1].box.x, 357);
  EXPECT_EQ(pair[1].box.right(), 692);
  // A third of 684 are 228, 32 characters.
  const std::string third(32, 'n');
  for (const std::string& line : {third + "|a|", third + "|a|b", "|" + third + "|b"}) {
    const std::vector<PlacedText> parts = boxes_of(line);
    ASSERT_GE(parts.size(), 2U);
    for (const PlacedText& part : parts) EXPECT_EQ(part.box.width, 228) << line;
  }
  EXPECT_EQ(boxes_of(third + "n|a|")[0].text, third.substr(1) + "…");
}

TEST(TitleLayoutTest, LinesAboveAndBelowShareTheRoom) {
  // 0.45 of 284 are 127, nine lines: half of it for four above, five below.
  const GraphLayout layout = layout_of(graph_with_lines(8, 8), 700, 300);
  EXPECT_EQ(
      titles_of(layout),
      "Lauf, oben 0, oben 1, + 5 Zeilen, oben 2, "
      "unten 0, rechts, unten 1, rechts, unten 2, rechts, unten 3, rechts, + 3 Zeilen, unten 4, rechts");
  for (const PlacedText& title : layout.titles) {
    EXPECT_GE(title.box.x, 8);
    EXPECT_LE(title.box.right(), 692);
  }
}

TEST(TitleLayoutTest, OneSideTakesWhatTheOtherLeaves) {
  EXPECT_EQ(titles_of(layout_of(graph_with_lines(6, 1), 700, 300)),
            "Lauf, oben 0, oben 1, oben 2, oben 3, oben 4, oben 5, unten 0, rechts");
  EXPECT_EQ(titles_of(layout_of(graph_with_lines(8, 1), 700, 300)),
            "Lauf, oben 0, oben 1, oben 2, oben 3, oben 4, oben 5, + 1 Zeile, oben 6, unten 0, rechts");
}

TEST(TitleLayoutTest, ALowGraphGivesUpMostLinesBeforeAll) {
  const GraphSurface graph = graph_with_lines(3, 3);
  // 0.45 of 156 are five lines: two above, three below.
  EXPECT_EQ(titles_of(layout_of(graph, 700, 172)),
            "Lauf, + 2 Zeilen, oben 0, unten 0, rechts, unten 1, rechts, unten 2, rechts");
  // A third of 109 are two lines, and one on each side leaves 39 for the area.
  EXPECT_EQ(titles_of(layout_of(graph, 700, 125)), "+ 3 Zeilen, Lauf, + 2 Zeilen, unten 0, rechts");
  // Two lines would leave 20 of 90; a fifth of it holds one line, whose note counts for both sides.
  EXPECT_EQ(titles_of(layout_of(graph, 700, 106)), "+ 6 Zeilen, Lauf");
}

}  // namespace
}  // namespace trendaro
