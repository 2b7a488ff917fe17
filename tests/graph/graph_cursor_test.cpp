#include "graph/graph_cursor.h"

#include <gtest/gtest.h>

#include "support/hand_layout.h"

namespace trendaro {
namespace {

class GraphCursorTest : public ::testing::Test {
 protected:
  GraphCursorTest() {
    hand_curves(graph);
    graph.pending.CursorMode = kCursorCross;
  }

  void expect_cursor(i32 subset, i32 point) {
    EXPECT_EQ(graph.pending.CursorSubset, subset);
    EXPECT_EQ(graph.pending.CursorPoint, point);
  }
  bool step(CursorStep step) { return step_cursor(graph, layout, step); }

  GraphSurface graph{1};
  GraphLayout layout = hand_layout();
};

TEST_F(GraphCursorTest, SnapsToTheNearestPointOfTheLayer) {
  EXPECT_TRUE(snap_cursor(graph, layout, {320, 180}));
  expect_cursor(1, 2);
  EXPECT_TRUE(snap_cursor(graph, layout, {190, 70}));
  expect_cursor(0, 1);
  EXPECT_FALSE(snap_cursor(graph, layout, {191, 70}));
}

TEST_F(GraphCursorTest, VerticalLineStaysOnItsCurve) {
  graph.pending.CursorMode = kCursorLine;
  EXPECT_TRUE(snap_cursor(graph, layout, {310, 180}));
  expect_cursor(0, 2);
}

TEST_F(GraphCursorTest, BetweenTheLayersItStays) {
  EXPECT_FALSE(snap_cursor(graph, layout, {310, 160}));
  expect_cursor(0, 0);
}

TEST_F(GraphCursorTest, KeysStepFromPointToPoint) {
  EXPECT_TRUE(step(CursorStep::Forward));
  expect_cursor(0, 1);
  EXPECT_TRUE(step(CursorStep::Forward));
  EXPECT_FALSE(step(CursorStep::Forward));
  expect_cursor(0, 2);
  EXPECT_TRUE(step(CursorStep::Back));
  expect_cursor(0, 1);
}

TEST_F(GraphCursorTest, KeysChangeTheCurveAtTheSamePoint) {
  EXPECT_TRUE(step(CursorStep::Forward));
  EXPECT_TRUE(step(CursorStep::CurveBelow));
  expect_cursor(1, 1);
  EXPECT_FALSE(step(CursorStep::CurveBelow));
  EXPECT_TRUE(step(CursorStep::Last));
  expect_cursor(1, 3);
  EXPECT_TRUE(step(CursorStep::CurveAbove));
  expect_cursor(0, 2);
  EXPECT_FALSE(step(CursorStep::CurveAbove));
}

TEST_F(GraphCursorTest, EndKeysStayOnWhatIsOnShow) {
  layout.x_axis.scale = {9, 21, false, 100, 400};
  EXPECT_TRUE(step(CursorStep::Forward));
  EXPECT_TRUE(step(CursorStep::Last));
  expect_cursor(0, 2);
  EXPECT_TRUE(step(CursorStep::CurveBelow));
  EXPECT_FALSE(step(CursorStep::Forward));
  expect_cursor(1, 2);
  EXPECT_TRUE(step(CursorStep::First));
  expect_cursor(1, 1);
  EXPECT_FALSE(step(CursorStep::Back));
}

TEST_F(GraphCursorTest, JumpsMoveAStretchOfThePicture) {
  std::vector<f32> x(301);
  for (std::size_t i = 0; i < x.size(); ++i) x[i] = 0.1F * static_cast<f32>(i);
  set_curves(graph.pending, 301, x, std::vector<f32>(301, 5));
  graph.pending.CursorPoint = 100;
  PEactions(graph, kTakeOverAndRedraw);
  EXPECT_TRUE(step(CursorStep::JumpForward));
  expect_cursor(0, 125);
  EXPECT_TRUE(step(CursorStep::JumpBack));
  expect_cursor(0, 100);
}

TEST_F(GraphCursorTest, ACursorThatIsLostStartsInTheMiddle) {
  graph.pending.CursorPoint = 999;
  EXPECT_FALSE(cursor_mark(graph, layout).vertical);
  EXPECT_TRUE(step(CursorStep::Forward));
  EXPECT_TRUE(cursor_mark(graph, layout).vertical);
}

TEST_F(GraphCursorTest, EachModeHasItsStrokes) {
  graph.pending.CursorPoint = 1;
  const CursorMark cross = cursor_mark(graph, layout);
  ASSERT_TRUE(cross.vertical && cross.horizontal);
  EXPECT_DOUBLE_EQ(cross.vertical->x, 200);
  EXPECT_DOUBLE_EQ(cross.vertical->y, 50);
  EXPECT_DOUBLE_EQ(cross.vertical->bottom(), 270);
  EXPECT_DOUBLE_EQ(cross.horizontal->y, 50);
  EXPECT_DOUBLE_EQ(cross.horizontal->x, 100);
  EXPECT_DOUBLE_EQ(cross.horizontal->right(), 400);
  EXPECT_FALSE(cross.square);
  graph.pending.CursorMode = kCursorLine;
  EXPECT_FALSE(cursor_mark(graph, layout).horizontal);
  graph.pending.CursorMode = kCursorSquare;
  const CursorMark square = cursor_mark(graph, layout);
  EXPECT_FALSE(square.vertical);
  ASSERT_TRUE(square.square);
  EXPECT_DOUBLE_EQ(square.square->x, 200);
}

TEST_F(GraphCursorTest, NoStrokesWithoutACursorOrOutsideOfTheSection) {
  graph.pending.CursorMode = kCursorOff;
  EXPECT_FALSE(cursor_mark(graph, layout).vertical);
  graph.pending.CursorMode = kCursorCross;
  layout.x_axis.scale = {10, 20, false, 100, 400};
  EXPECT_FALSE(cursor_mark(graph, layout).vertical);
  EXPECT_FALSE(cursor_mark(graph, layout).horizontal);
}

TEST_F(GraphCursorTest, AboveTheSectionTheUprightStrokeStays) {
  graph.pending.CursorPoint = 1;  // at y = 10
  layout.layers[0].left.scale = {0, 5, false, 150, 50};
  EXPECT_TRUE(cursor_mark(graph, layout).vertical);
  EXPECT_FALSE(cursor_mark(graph, layout).horizontal);
}

TEST_F(GraphCursorTest, AnEmptyGraphHasNoCursor) {
  GraphSurface empty{2};
  empty.pending.CursorMode = kCursorCross;
  const GraphLayout frame;
  EXPECT_FALSE(snap_cursor(empty, frame, {10, 10}));
  EXPECT_FALSE(step_cursor(empty, frame, CursorStep::Forward));
  EXPECT_FALSE(cursor_mark(empty, frame).vertical);
}

}  // namespace
}  // namespace trendaro
