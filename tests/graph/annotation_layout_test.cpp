#include "graph/annotation_layout.h"

#include <gtest/gtest.h>

#include "graph/graph_surface.h"
#include "support/fixed_measure.h"
#include "support/graph_data.h"

namespace trendaro {
namespace {

class AnnotationLayoutTest : public testing::Test {
 protected:
  AnnotationLayoutTest() {
    set_curves(graph.pending, 2, {0, 10, 0, 10}, {0, 10, 0, 10});
    graph.pending.MultiAxesSubsets = {1, 1};
    graph.pending.AutoPadPercent = 0;
    graph.pending.ShowAnnotations = true;
  }

  std::vector<PlacedAnnotation> placed() {
    PEactions(graph, kTakeOverAndRedraw);
    layout = graph_layout(graph.shown(), 700, 400, FixedMeasure());
    return place_annotations(graph.shown(), layout, FixedMeasure());
  }

  void add_point(i32 kind, f64 x, f64 y, const std::string& text, i32 axis = 0) {
    const auto index = static_cast<i32>(graph.pending.GraphAnnotationType.size());
    set_element(graph.pending.GraphAnnotationType, index, kind);
    set_element(graph.pending.GraphAnnotationX, index, x);
    set_element(graph.pending.GraphAnnotationY, index, y);
    set_element(graph.pending.GraphAnnotationText, index, text);
    set_element(graph.pending.GraphAnnotationColor, index, 0xFF);
    set_element(graph.pending.GraphAnnotationAxis, index, axis);
  }

  GraphSurface graph{1};
  GraphLayout layout;
};

TEST_F(AnnotationLayoutTest, ASymbolStandsAtItsPointInItsLayer) {
  add_point(5, 5, 5, "Spitze", 1);
  const auto all = placed();
  ASSERT_EQ(all.size(), 1U);
  EXPECT_EQ(all[0].shape, AnnotationShape::Symbol);
  EXPECT_EQ(all[0].style, 5);
  const PixelRectangle& area = layout.layers[1].area;
  EXPECT_DOUBLE_EQ(all[0].from.x, area.x + area.width / 2);
  EXPECT_DOUBLE_EQ(all[0].from.y, area.y + area.height / 2);
  EXPECT_EQ(all[0].text.text, "Spitze");
  EXPECT_EQ(all[0].text.color, 0xFF);
  EXPECT_DOUBLE_EQ(all[0].text.box.x, all[0].from.x + 7);
}

TEST_F(AnnotationLayoutTest, WhatLiesBeyondItsLayerHasNoText) {
  add_point(5, 11, 5, "rechts davon");
  add_point(5, 10, 5, "am Rand");
  add_point(kFirstCornerKind, -8, -8, "");
  add_point(kSecondCornerKind, -2, -2, "");
  add_point(kRectangleKind, 0, 0, "links davon");
  add_point(kFirstCornerKind, -8, -8, "");
  add_point(kSecondCornerKind, 18, 18, "");
  add_point(kRectangleKind, 0, 0, "ringsum");
  const auto all = placed();
  ASSERT_EQ(all.size(), 4U);
  EXPECT_EQ(all[0].text.text, "");
  EXPECT_EQ(all[1].text.text, "am Rand");
  EXPECT_EQ(all[2].text.text, "");
  EXPECT_EQ(all[3].text.text, "ringsum");
}

TEST_F(AnnotationLayoutTest, TwoEntriesMakeALineAndThreeAShape) {
  add_point(kLineStartKind + 3, 0, 0, "");
  add_point(kLineEndKind, 10, 10, "Rampe");
  add_point(kFirstCornerKind, 2, 2, "");
  add_point(kSecondCornerKind, 8, 8, "");
  add_point(kEllipseKind + kFilledShape, 0, 0, "Fenster");
  const auto all = placed();
  ASSERT_EQ(all.size(), 2U);
  const PixelRectangle& area = layout.layers[0].area;
  EXPECT_EQ(all[0].shape, AnnotationShape::Line);
  EXPECT_EQ(all[0].style, 3);
  EXPECT_EQ(all[0].entry, 1U);
  EXPECT_DOUBLE_EQ(all[0].from.x, area.x);
  EXPECT_DOUBLE_EQ(all[0].from.y, area.bottom());
  EXPECT_DOUBLE_EQ(all[0].to.x, area.right());
  EXPECT_EQ(all[1].shape, AnnotationShape::Ellipse);
  EXPECT_EQ(all[1].style, kFilledShape);
  EXPECT_EQ(all[1].entry, 4U);
  EXPECT_DOUBLE_EQ(all[1].from.x, area.x + area.width * 0.2);
  EXPECT_DOUBLE_EQ(all[1].to.x, area.x + area.width * 0.8);
}

TEST_F(AnnotationLayoutTest, WhatLacksItsStartOrCornersIsNotPlaced) {
  add_point(kLineEndKind, 5, 5, "");
  add_point(kRectangleKind, 5, 5, "");
  add_point(kFirstCornerKind, 2, 2, "");
  add_point(kRectangleKind, 5, 5, "");
  EXPECT_TRUE(placed().empty());
  // A second end does not begin where the line before did.
  add_point(kLineStartKind, 0, 0, "");
  add_point(kLineEndKind, 10, 10, "");
  add_point(kLineEndKind, 5, 5, "");
  const auto all = placed();
  ASSERT_EQ(all.size(), 1U);
  EXPECT_EQ(all[0].entry, 5U);
}

TEST_F(AnnotationLayoutTest, LayersThatAreNotOnShowLeaveTheirsOut) {
  add_point(1, 5, 5, "", -1);
  add_point(1, 5, 5, "", 2);
  add_point(1, 5, 5, "", 7);
  graph.pending.HorzLineAnnotation = {5};
  graph.pending.HorzLineAnnotationAxis = {-2};
  EXPECT_TRUE(placed().empty());
}

TEST_F(AnnotationLayoutTest, SwitchedOffNothingIsPlaced) {
  add_point(1, 5, 5, "");
  graph.pending.VertLineAnnotation = {5};
  graph.pending.ShowAnnotations = false;
  EXPECT_TRUE(placed().empty());
}

TEST_F(AnnotationLayoutTest, UprightLinesCrossAllLayersAndEndWithTheAxis) {
  graph.pending.VertLineAnnotation = {2.5, 11, -1};
  graph.pending.VertLineAnnotationType = {6};
  const auto all = placed();
  ASSERT_EQ(all.size(), 1U);
  EXPECT_EQ(all[0].table, AnnotationTable::VerticalLines);
  EXPECT_EQ(all[0].style, 6);
  EXPECT_DOUBLE_EQ(all[0].from.x, layout.layers[0].area.x + layout.layers[0].area.width / 4);
  EXPECT_DOUBLE_EQ(all[0].from.y, layout.layers[1].area.bottom());
  EXPECT_DOUBLE_EQ(all[0].to.y, layout.layers[0].area.y);
}

TEST_F(AnnotationLayoutTest, MarkedTextsStandInTheMarginOfTheirSide) {
  graph.pending.HorzLineAnnotation = {5, 5, 5};
  graph.pending.HorzLineAnnotationText = {"|LGrenze", "|RGrenze", "innen"};
  graph.pending.VertLineAnnotation = {5, 5};
  graph.pending.VertLineAnnotationText = {"|TStart", "|BStart"};
  graph.pending.LeftMargin = "|LGrenze";
  graph.pending.RightMargin = "|RGrenze";
  graph.pending.TopMargin = "|TStart";
  graph.pending.BottomMargin = "|BStart";
  const auto all = placed();
  ASSERT_EQ(all.size(), 5U);
  EXPECT_EQ(all[0].text.text, "Grenze");
  EXPECT_LE(all[0].text.box.right(), layout.room.x);
  EXPECT_GE(all[1].text.box.x, layout.room.right());
  EXPECT_LE(all[1].text.box.right(), 700);
  EXPECT_GE(all[2].text.box.x, layout.layers[0].area.x);
  EXPECT_LE(all[2].text.box.right(), layout.layers[0].area.right());
  EXPECT_LE(all[3].text.box.bottom(), layout.room.y);
  EXPECT_GE(all[4].text.box.y, layout.room.bottom());
}

TEST_F(AnnotationLayoutTest, MarginTextsTakeRoomFromTheAxes) {
  placed();
  const PixelRectangle before = layout.layers[0].area;
  graph.pending.RightMargin = "0123456789";
  placed();
  // Ten characters of 7 pixels and a gap of 8.
  EXPECT_DOUBLE_EQ(layout.layers[0].area.right(), before.right() - 78);
  graph.pending.RightMargin = std::string(1000, 'x');
  placed();
  EXPECT_GT(layout.layers[0].area.width, 300);
}

TEST_F(AnnotationLayoutTest, MarksAtTheAxesPointInward) {
  graph.pending.XAxisAnnotation = {5};
  graph.pending.XAxisAnnotationText = {"T1"};
  graph.pending.layers[1].YAxisAnnotation = {5, 50};
  graph.pending.layers[1].YAxisAnnotationText = {"soll"};
  const auto all = placed();
  ASSERT_EQ(all.size(), 2U);
  EXPECT_EQ(all[0].table, AnnotationTable::XAxis);
  EXPECT_DOUBLE_EQ(all[0].from.y, layout.layers[1].area.bottom());
  EXPECT_LT(all[0].to.y, all[0].from.y);
  EXPECT_EQ(all[1].table, AnnotationTable::YAxis);
  EXPECT_DOUBLE_EQ(all[1].from.x, layout.layers[1].area.x);
  EXPECT_GT(all[1].text.box.x, all[1].to.x);
}

TEST_F(AnnotationLayoutTest, ListsOfDifferentLengthAndSenselessKindsDoNoHarm) {
  graph.pending.GraphAnnotationType = {5, -3, 37, 46, 47, 1000, 45};
  graph.pending.GraphAnnotationX = {1};
  graph.pending.HorzLineAnnotation = {1, std::numeric_limits<f64>::quiet_NaN()};
  graph.pending.VertLineAnnotation = {std::numeric_limits<f64>::infinity()};
  EXPECT_EQ(placed().size(), 2U);  // the symbol and the level line
}

TEST(LineTextTest, TheSideStandsAtEitherEnd) {
  EXPECT_EQ(line_text("|LGrenze").text, "Grenze");
  EXPECT_EQ(line_text("|LGrenze").side, 'L');
  EXPECT_EQ(line_text("Grenze|B").text, "Grenze");
  EXPECT_EQ(line_text("Grenze|B").side, 'B');
  EXPECT_EQ(line_text("A|Lx").side, 0);
  EXPECT_EQ(line_text("|X").text, "|X");
  EXPECT_EQ(line_text("|").text, "|");
  EXPECT_EQ(line_text("").text, "");
}

}  // namespace
}  // namespace trendaro
