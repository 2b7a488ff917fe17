#include "graph/graph_handlers.h"

#include <gtest/gtest.h>

#include "graph/data_zoom.h"
#include "support/zoom_fixture.h"

namespace trendaro {
namespace {

// A recording of 200 s, 100 samples a second; a display point stands for 5 samples, 0.05 s.
class GraphHandlersTest : public ZoomFixture {
 protected:
  GraphHandlersTest() {
    box("PointsBox") = "10";  // no section is short enough for original samples
    open({});
    mark(2);
  }

  static GraphEvent event_of(GraphEventKind kind) {
    GraphEvent event;
    event.kind = kind;
    return event;
  }
  void in_survey(GraphEventKind kind, i32 line, f64 x = 0) {
    GraphEvent event = event_of(kind);
    event.target = {TargetKind::VertLine, line};
    event.x = x;
    handle_graph_event(model, model.PESGSurvey, event);
  }
  void press(i32 key) {
    GraphEvent event = event_of(GraphEventKind::KeyDown);
    event.key = key;
    handle_graph_event(model, model.PESG, event);
  }
  f64 line(std::size_t index) { return model.PESGSurvey.shown().VertLineAnnotation.at(index); }
};

TEST_F(GraphHandlersTest, RubberBandInTheMainGraphMakesTheSection) {
  model.PESG.pending.AllowZooming = 1;
  set_limits(50, 100);
  handle_graph_event(model, model.PESG, event_of(GraphEventKind::ZoomEnd));
  EXPECT_TRUE(model.Zoomed);
  EXPECT_DOUBLE_EQ(model.ZoomXMin, 50);
  EXPECT_DOUBLE_EQ(model.ZoomXMax, 100);
  EXPECT_DOUBLE_EQ(line(0), 50);
  EXPECT_DOUBLE_EQ(line(1), 100);
  EXPECT_FALSE(model.SurveyZoom);
}

TEST_F(GraphHandlersTest, RubberBandInTheSurveyNarrowsTheSurvey) {
  model.PESGSurvey.pending.ZoomMinX = 40;
  model.PESGSurvey.pending.ZoomMaxX = 120;
  model.PESGSurvey.pending.ZoomActive = true;
  handle_graph_event(model, model.PESGSurvey, event_of(GraphEventKind::ZoomEnd));
  EXPECT_TRUE(model.SurveyZoom);
}

TEST_F(GraphHandlersTest, DraggedLimitLineSetsTheSectionWhenItIsLetGo) {
  in_survey(GraphEventKind::LimitLineClick, 0);
  in_survey(GraphEventKind::PointerMove, 0, 30);
  EXPECT_DOUBLE_EQ(line(0), 30);
  EXPECT_FALSE(model.Zoomed);
  in_survey(GraphEventKind::ButtonUp, 0, 30);
  EXPECT_TRUE(model.Zoomed);
  EXPECT_DOUBLE_EQ(model.ZoomXMin, 30);
}

TEST_F(GraphHandlersTest, LostGripPutsTheLineBack) {
  const f64 before = line(1);
  in_survey(GraphEventKind::LimitLineClick, 1);
  in_survey(GraphEventKind::PointerMove, 1, 80);
  EXPECT_DOUBLE_EQ(line(1), 80);
  in_survey(GraphEventKind::GripLost, 1);
  EXPECT_DOUBLE_EQ(line(1), before);
  EXPECT_FALSE(model.Zoomed);
}

TEST_F(GraphHandlersTest, ArrowKeysScrollTheSection) {
  set_limits(50, 100);
  DataZoom(model);
  box("StepBox") = "500";  // 5 s
  press(kKeyRight);
  EXPECT_NEAR(model.ZoomXMin, 55, 1e-4);
  EXPECT_NEAR(model.ZoomXMax, 105, 1e-4);
  press(kKeyLeft);
  press(kKeyLeft);
  EXPECT_NEAR(model.ZoomXMin, 45, 1e-4);
}

TEST_F(GraphHandlersTest, PointerInTheMainGraphMovesNoLimitLine) {
  const f64 before = line(0);
  in_survey(GraphEventKind::LimitLineClick, 0);
  GraphEvent event = event_of(GraphEventKind::PointerMove);
  event.x = 30;
  handle_graph_event(model, model.PESG, event);
  EXPECT_DOUBLE_EQ(line(0), before);
}

TEST_F(GraphHandlersTest, StepsOfThePointerAreTold) {
  EXPECT_TRUE(is_pointer_step(event_of(GraphEventKind::PointerMove)));
  EXPECT_TRUE(is_pointer_step(event_of(GraphEventKind::CursorMove)));
  EXPECT_FALSE(is_pointer_step(event_of(GraphEventKind::ButtonUp)));
}

}  // namespace
}  // namespace trendaro
