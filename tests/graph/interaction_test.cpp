#include "graph/interaction.h"

#include <gtest/gtest.h>

#include "graph/rubber_band.h"
#include "support/hand_layout.h"

namespace trendaro {
namespace {

class InteractionTest : public ::testing::Test {
 protected:
  InteractionTest() { hand_curves(graph); }

  // Each gives what it told.
  GraphEvents press(f64 x, f64 y, PointerButton button = PointerButton::Left) {
    return press_pointer(interaction, graph, layout, {x, y}, button);
  }
  GraphEvents move(f64 x, f64 y) { return move_pointer(interaction, graph, layout, {x, y}); }
  GraphEvents release(f64 x, f64 y) {
    return release_pointer(interaction, graph, layout, {x, y}, PointerButton::Left);
  }
  GraphEvents key(GraphKey key) { return press_graph_key(interaction, graph, layout, key, taken); }
  void show_limit_lines() {
    interaction.has_limit_lines = true;
    graph.pending.ShowAnnotations = true;
    graph.pending.VertLineAnnotation = {5, 20};
    PEactions(graph, kRedrawFromSettings);
  }
  static void expect_one(const GraphEvents& events, GraphEventKind kind) {
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(static_cast<int>(events[0].kind), static_cast<int>(kind));
  }

  GraphSurface graph{1};
  GraphLayout layout = hand_layout();
  Interaction interaction;
  bool taken = false;
};

TEST_F(InteractionTest, ABandZoomsWhenTheButtonGoesUp) {
  graph.pending.AllowZooming = kZoomHorizontal;
  EXPECT_TRUE(press(150, 100).empty());
  EXPECT_TRUE(move(250, 110).empty());
  EXPECT_DOUBLE_EQ(drawn_band(interaction, layout).x, 150);
  EXPECT_DOUBLE_EQ(drawn_band(interaction, layout).width, 100);
  EXPECT_FALSE(graph.pending.ZoomActive);
  expect_one(release(250, 110), GraphEventKind::ZoomEnd);
  EXPECT_DOUBLE_EQ(graph.pending.ZoomMinX, 5);
  EXPECT_DOUBLE_EQ(graph.pending.ZoomMaxX, 15);
  EXPECT_EQ(drawn_band(interaction, layout).width, 0);
}

TEST_F(InteractionTest, EscapeEndsABandWithoutAnEvent) {
  graph.pending.AllowZooming = kZoomRectangle;
  press(150, 100);
  move(250, 140);
  EXPECT_TRUE(give_up_pointer(interaction, layout).empty());
  EXPECT_TRUE(release(250, 140).empty());
  EXPECT_FALSE(graph.pending.ZoomActive);
}

TEST_F(InteractionTest, NoBandWithoutPermissionOrOutsideOfTheLayers) {
  press(150, 100);
  move(250, 100);
  EXPECT_EQ(drawn_band(interaction, layout).width, 0);
  EXPECT_TRUE(release(250, 100).empty());
  graph.pending.AllowZooming = kZoomHorizontal;
  press(50, 100);
  move(250, 100);
  EXPECT_TRUE(release(250, 100).empty());
  EXPECT_FALSE(graph.pending.ZoomActive);
}

TEST_F(InteractionTest, AModeThatEndsDuringTheDragStillZooms) {
  graph.pending.AllowZooming = kZoomHorizontal;
  press(150, 100);
  graph.pending.AllowZooming = kZoomVertical;
  expect_one(release(250, 100), GraphEventKind::ZoomEnd);
  EXPECT_DOUBLE_EQ(graph.pending.ZoomMaxX, 15);
}

TEST_F(InteractionTest, AnUnsteadyClickIsAClick) {
  graph.pending.AllowZooming = kZoomHorizontal;
  press(200, 52);
  const GraphEvents events = release(202, 51);
  expect_one(events, GraphEventKind::Click);
  EXPECT_EQ(static_cast<int>(events[0].target.kind), static_cast<int>(TargetKind::DataPoint));
  EXPECT_EQ(events[0].target.point, 1);
  EXPECT_FALSE(graph.pending.ZoomActive);
}

TEST_F(InteractionTest, EventsTellThePlaceInGraphUnits) {
  press(150, 120);
  const GraphEvents events = release(150, 120);
  ASSERT_EQ(events.size(), 1U);
  EXPECT_DOUBLE_EQ(events[0].x, 5);
  EXPECT_DOUBLE_EQ(events[0].y, 3);
  EXPECT_DOUBLE_EQ(events[0].right_y, 30);
  EXPECT_EQ(events[0].layer, 0);
}

TEST_F(InteractionTest, ALimitLineIsGrippedDraggedAndDropped) {
  show_limit_lines();
  graph.pending.AllowZooming = kZoomHorizontal;
  const GraphEvents gripped = press(303, 100);
  expect_one(gripped, GraphEventKind::LimitLineClick);
  EXPECT_EQ(gripped[0].target.index, 1);
  const GraphEvents moved = move(350, 20);
  expect_one(moved, GraphEventKind::PointerMove);
  EXPECT_DOUBLE_EQ(moved[0].x, 25);
  EXPECT_EQ(moved[0].target.index, 1);
  EXPECT_EQ(drawn_band(interaction, layout).width, 0);
  expect_one(move(450, 20), GraphEventKind::PointerMove);
  expect_one(release(450, 20), GraphEventKind::ButtonUp);
  EXPECT_TRUE(move(150, 100).empty());
}

TEST_F(InteractionTest, ALostGripIsTold) {
  show_limit_lines();
  press(150, 100);
  move(160, 100);
  expect_one(give_up_pointer(interaction, layout), GraphEventKind::GripLost);
  EXPECT_TRUE(release(160, 100).empty());
}

TEST_F(InteractionTest, LinesOfTheDetailGraphAreNotGripped) {
  show_limit_lines();
  interaction.has_limit_lines = false;
  EXPECT_TRUE(press(150, 120).empty());
  const GraphEvents events = release(150, 120);
  expect_one(events, GraphEventKind::Click);
  EXPECT_EQ(static_cast<int>(events[0].target.kind), static_cast<int>(TargetKind::VertLine));
}

TEST_F(InteractionTest, TheCursorFollowsThePointer) {
  graph.pending.CursorMode = kCursorCross;
  graph.pending.CursorPromptTracking = true;
  expect_one(move(290, 100), GraphEventKind::CursorMove);
  EXPECT_EQ(graph.pending.CursorPoint, 2);
  EXPECT_TRUE(move(291, 100).empty());
  EXPECT_TRUE(move(200, 10).empty());
}

TEST_F(InteractionTest, ACursorThatDoesNotFollowJumpsToAClick) {
  graph.pending.CursorMode = kCursorSquare;
  EXPECT_TRUE(move(290, 100).empty());
  press(290, 100);
  const GraphEvents events = release(290, 100);
  ASSERT_EQ(events.size(), 2U);
  EXPECT_EQ(static_cast<int>(events[0].kind), static_cast<int>(GraphEventKind::CursorMove));
  EXPECT_EQ(static_cast<int>(events[1].kind), static_cast<int>(GraphEventKind::Click));
}

TEST_F(InteractionTest, ArrowKeysAreToldWithoutACursorAndMoveIt) {
  const GraphEvents left = key(GraphKey::Left);
  expect_one(left, GraphEventKind::KeyDown);
  EXPECT_EQ(left[0].key, 37);
  EXPECT_EQ(key(GraphKey::Right)[0].key, 39);
  EXPECT_TRUE(key(GraphKey::Up).empty());
  EXPECT_FALSE(taken);
  graph.pending.CursorMode = kCursorLine;
  expect_one(key(GraphKey::Right), GraphEventKind::CursorMove);
  EXPECT_EQ(graph.pending.CursorPoint, 1);
  EXPECT_TRUE(taken);
  key(GraphKey::Right);
  EXPECT_TRUE(key(GraphKey::Right).empty());
  EXPECT_TRUE(taken);
}

TEST_F(InteractionTest, UndoOfAZoom) {
  key(GraphKey::Undo);
  EXPECT_FALSE(taken);
  graph.pending.AllowZooming = kZoomHorizontal;
  press(150, 100);
  release(250, 100);
  expect_one(key(GraphKey::Undo), GraphEventKind::ZoomUndo);
  EXPECT_FALSE(graph.shown().ZoomActive);
}

TEST_F(InteractionTest, AGraphWithLimitLinesKeepsItsZoom) {
  graph.pending.AllowZooming = kZoomHorizontal;
  press(150, 100);
  release(250, 100);
  interaction.has_limit_lines = true;
  EXPECT_TRUE(key(GraphKey::Undo).empty());
  EXPECT_FALSE(taken);
  EXPECT_TRUE(graph.shown().ZoomActive);
}

TEST_F(InteractionTest, DoubleClicksTellTheirTarget) {
  const GraphEvents title = double_click_pointer(interaction, graph, layout, {250, 10});
  expect_one(title, GraphEventKind::DoubleClick);
  EXPECT_EQ(static_cast<int>(title[0].target.kind), static_cast<int>(TargetKind::MainTitle));
  const GraphEvents axis = double_click_pointer(interaction, graph, layout, {90, 200});
  EXPECT_EQ(static_cast<int>(axis[0].target.kind), static_cast<int>(TargetKind::LeftAxis));
  EXPECT_EQ(axis[0].layer, 1);
  EXPECT_TRUE(release(90, 200).empty());
}

TEST_F(InteractionTest, RightClicksPreferAnnotationsAndStartNothing) {
  graph.pending.AllowZooming = kZoomHorizontal;
  graph.pending.ShowAnnotations = true;
  graph.pending.GraphAnnotationType = {1};
  graph.pending.GraphAnnotationX = {10};
  graph.pending.GraphAnnotationY = {10};
  graph.pending.GraphAnnotationAxis = {0};
  PEactions(graph, kRedrawFromSettings);
  const GraphEvents events = press(200, 52, PointerButton::Right);
  expect_one(events, GraphEventKind::RightClick);
  EXPECT_EQ(static_cast<int>(events[0].target.kind), static_cast<int>(TargetKind::PointAnnotation));
  EXPECT_EQ(events[0].target.index, 0);
  move(300, 60);
  EXPECT_EQ(drawn_band(interaction, layout).width, 0);
}

TEST_F(InteractionTest, ThePointerShowsWhatItCanDo) {
  const auto shape = [&](f64 x, f64 y) {
    return static_cast<int>(pointer_shape(interaction, graph, layout, {x, y}));
  };
  EXPECT_EQ(shape(250, 100), static_cast<int>(PointerShape::Arrow));
  graph.pending.AllowZooming = kZoomHorizontal;
  EXPECT_EQ(shape(250, 100), static_cast<int>(PointerShape::Cross));
  EXPECT_EQ(shape(250, 10), static_cast<int>(PointerShape::Arrow));
  show_limit_lines();
  EXPECT_EQ(shape(152, 100), static_cast<int>(PointerShape::Grip));
  press(152, 100);
  EXPECT_EQ(shape(250, 10), static_cast<int>(PointerShape::Grip));
}

}  // namespace
}  // namespace trendaro
