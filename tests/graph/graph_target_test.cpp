#include "graph/graph_target.h"

#include <gtest/gtest.h>

#include "support/fixed_measure.h"
#include "support/hand_layout.h"

namespace trendaro {
namespace {

class GraphTargetTest : public ::testing::Test {
 protected:
  GraphTargetTest() { hand_curves(graph); }

  GraphTarget at(f64 x, f64 y, TargetOrder order = TargetOrder::DataFirst) {
    return target_at(graph.pending, layout, {x, y}, order, &measure);
  }
  void expect_kind(TargetKind kind, f64 x, f64 y) {
    EXPECT_EQ(static_cast<int>(at(x, y).kind), static_cast<int>(kind)) << x << ", " << y;
  }
  void annotate(i32 kind, f64 x, f64 y, const std::string& text = "") {
    graph.pending.GraphAnnotationText.push_back(text);
    graph.pending.ShowAnnotations = true;
    graph.pending.GraphAnnotationType.push_back(kind);
    graph.pending.GraphAnnotationX.push_back(x);
    graph.pending.GraphAnnotationY.push_back(y);
    graph.pending.GraphAnnotationAxis.push_back(0);
  }

  GraphSurface graph{1};
  GraphLayout layout = hand_layout();
  FixedMeasure measure;
};

TEST_F(GraphTargetTest, TitlesAxesAndLegend) {
  expect_kind(TargetKind::MainTitle, 250, 10);
  expect_kind(TargetKind::SubTitle, 250, 30);
  expect_kind(TargetKind::XAxis, 250, 290);
  expect_kind(TargetKind::XAxis, 250, 272);
  expect_kind(TargetKind::LeftAxis, 45, 100);
  expect_kind(TargetKind::RightAxis, 445, 100);
  expect_kind(TargetKind::LeftAxis, 90, 200);
  expect_kind(TargetKind::None, 445, 200);
  expect_kind(TargetKind::None, 20, 390);
  EXPECT_EQ(at(172, 355).subset, 1);
  expect_kind(TargetKind::LegendEntry, 172, 355);
}

TEST_F(GraphTargetTest, DataPointsAndTheLinesBetweenThem) {
  const GraphTarget point = at(204, 54);
  EXPECT_EQ(static_cast<int>(point.kind), static_cast<int>(TargetKind::DataPoint));
  EXPECT_EQ(point.subset, 0);
  EXPECT_EQ(point.point, 1);
  const GraphTarget line = at(150, 98);  // the line passes at (150, 100)
  EXPECT_EQ(static_cast<int>(line.kind), static_cast<int>(TargetKind::Curve));
  EXPECT_EQ(line.subset, 0);
  expect_kind(TargetKind::None, 150, 60);
  expect_kind(TargetKind::None, 350, 120);  // behind point 2 there is a gap
}

TEST_F(GraphTargetTest, SymbolsLinesAndShapes) {
  annotate(1, 5, 9);    // symbol at (150, 60)
  annotate(38, 1, 1);   // line from (110, 140)
  annotate(45, 9, 1);   // to (190, 140)
  annotate(46, 21, 9);  // rectangle from (310, 60)
  annotate(47, 29, 1);  // to (390, 140)
  annotate(48, 29, 1);
  EXPECT_EQ(at(152, 63).index, 0);
  EXPECT_EQ(at(150, 143).index, 2);
  EXPECT_EQ(at(350, 62).index, 5);
  EXPECT_EQ(at(388, 100).index, 5);
  expect_kind(TargetKind::None, 350, 100);
  expect_kind(TargetKind::None, 150, 130);
}

TEST_F(GraphTargetTest, TheTextOfAnAnnotationIsATarget) {
  annotate(0, 5, 9, "nur Text");  // from (150, 60) on, 56 wide and 14 high
  EXPECT_EQ(at(200, 64).index, 0);
  expect_kind(TargetKind::None, 212, 64);
  expect_kind(TargetKind::None, 200, 72);
  annotate(1, 21, 9, "Spitze");  // symbol at (310, 60), text from 317 to 359
  EXPECT_EQ(at(355, 60).index, 1);
  EXPECT_EQ(static_cast<int>(target_at(graph.pending, layout, {355, 60}, TargetOrder::AnnotationsFirst).kind),
            static_cast<int>(TargetKind::None));
}

TEST_F(GraphTargetTest, ATextInTheMarginIsATarget) {
  graph.pending.ShowAnnotations = true;
  graph.pending.HorzLineAnnotation = {8};  // 70
  graph.pending.HorzLineAnnotationAxis = {0};
  graph.pending.HorzLineAnnotationText = {"max|R"};
  layout.room = {30, 40, 430, 290};
  // 4 pixels beside the room, 21 wide.
  EXPECT_EQ(static_cast<int>(at(480, 70).kind), static_cast<int>(TargetKind::HorzLine));
  expect_kind(TargetKind::None, 490, 70);
  expect_kind(TargetKind::RightAxis, 445, 70);
}

TEST_F(GraphTargetTest, AnEllipseIsHitOnItsArc) {
  annotate(46, 21, 9);  // from (310, 60)
  annotate(47, 29, 1);  // to (390, 140): centre (350, 100), radius 40
  annotate(64, 29, 1);
  EXPECT_EQ(at(322, 72).index, 2);  // 39.6 from the centre
  EXPECT_EQ(at(350, 141).index, 2);
  expect_kind(TargetKind::None, 312, 62);
  expect_kind(TargetKind::None, 350, 100);
}

TEST_F(GraphTargetTest, AFilledShapeIsHitAllOver) {
  annotate(46, 21, 9);
  annotate(47, 29, 1);
  annotate(71, 29, 1);
  EXPECT_EQ(at(350, 110).index, 2);
  expect_kind(TargetKind::None, 312, 62);
  graph.pending.GraphAnnotationType.back() = 55;  // a filled rectangle
  EXPECT_EQ(at(312, 62).index, 2);
  graph.pending.GraphAnnotationType.back() = 63;  // a filled rounded one
  EXPECT_EQ(at(350, 110).index, 2);
}

TEST_F(GraphTargetTest, ALargeSymbolIsHitOnItsEdge) {
  annotate(30, 5, 9);  // a square of 14 around (150, 60)
  expect_kind(TargetKind::PointAnnotation, 158, 60);
  expect_kind(TargetKind::None, 160, 60);
  graph.pending.GraphAnnotationType.back() = 6;
  expect_kind(TargetKind::None, 158, 60);
}

TEST_F(GraphTargetTest, WholeLinesAndTheLayerOfTheirs) {
  graph.pending.ShowAnnotations = true;
  graph.pending.HorzLineAnnotation = {8};
  graph.pending.HorzLineAnnotationAxis = {0};
  graph.pending.VertLineAnnotation = {27};
  EXPECT_EQ(static_cast<int>(at(150, 72).kind), static_cast<int>(TargetKind::HorzLine));
  EXPECT_EQ(static_cast<int>(at(372, 200).kind), static_cast<int>(TargetKind::VertLine));
  graph.pending.HorzLineAnnotationAxis = {-1};
  expect_kind(TargetKind::None, 150, 72);
  graph.pending.ShowAnnotations = false;
  expect_kind(TargetKind::None, 372, 130);
}

TEST_F(GraphTargetTest, ARightAxisThatIsSwitchedOffIsNoTarget) {
  expect_kind(TargetKind::RightAxis, 445, 100);
  layout.layers[0].shows_right = false;
  expect_kind(TargetKind::None, 445, 100);
}

TEST_F(GraphTargetTest, AnnotationsOfALayerWithoutLeftCurvesCountOnItsRightAxis) {
  layout.layers[0].has_left = false;
  annotate(1, 15, 90);  // (250, 60)
  expect_kind(TargetKind::PointAnnotation, 250, 60);
  graph.pending.HorzLineAnnotation = {20};  // 130
  graph.pending.HorzLineAnnotationAxis = {0};
  expect_kind(TargetKind::HorzLine, 350, 130);
}

TEST_F(GraphTargetTest, TheOrderDecidesBetweenPointAndAnnotation) {
  annotate(1, 10, 10);
  EXPECT_EQ(static_cast<int>(at(200, 52).kind), static_cast<int>(TargetKind::DataPoint));
  EXPECT_EQ(static_cast<int>(at(200, 52, TargetOrder::AnnotationsFirst).kind),
            static_cast<int>(TargetKind::PointAnnotation));
}

TEST_F(GraphTargetTest, LinesAreGrippedWithinFivePixels) {
  graph.pending.VertLineAnnotation = {5, 20};
  EXPECT_EQ(gripped_line(graph.pending, layout, {150, 100}), -1);
  graph.pending.ShowAnnotations = true;
  EXPECT_EQ(gripped_line(graph.pending, layout, {146, 100}), 0);
  EXPECT_EQ(gripped_line(graph.pending, layout, {304, 160}), 1);
  EXPECT_EQ(gripped_line(graph.pending, layout, {144, 100}), -1);
  EXPECT_EQ(gripped_line(graph.pending, layout, {150, 40}), -1);
}

TEST_F(GraphTargetTest, LinesAtOnePlaceCanBothBeGripped) {
  graph.pending.ShowAnnotations = true;
  graph.pending.VertLineAnnotation = {10, 10};
  EXPECT_EQ(gripped_line(graph.pending, layout, {198, 100}), 0);
  EXPECT_EQ(gripped_line(graph.pending, layout, {200, 100}), 1);
  EXPECT_EQ(gripped_line(graph.pending, layout, {203, 100}), 1);
}

TEST_F(GraphTargetTest, LinesOutsideOfTheSectionAreNotGripped) {
  graph.pending.ShowAnnotations = true;
  graph.pending.VertLineAnnotation = {-0.3, 30};
  EXPECT_EQ(gripped_line(graph.pending, layout, {100, 100}), -1);
  EXPECT_EQ(gripped_line(graph.pending, layout, {400, 100}), 1);
}

}  // namespace
}  // namespace trendaro
