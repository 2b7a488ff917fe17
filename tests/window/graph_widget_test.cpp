#include "graph/graph_widget.h"

#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <vector>

#include <gtest/gtest.h>

#include "graph/graph_cursor.h"
#include "graph/rubber_band.h"
#include "support/graph_data.h"

namespace trendaro {
namespace {

// A graph of two layers over x from 0 to 30, shown without its window.
class GraphWidgetTest : public ::testing::Test {
 protected:
  void SetUp() override {
    set_curves(graph.pending, 4, {0, 10, 20, 30, 0, 10, 20, 30}, {0, 10, 5, 2, 0, -5, 5, 0});
    graph.pending.MultiAxesSubsets = {1, 1};
    graph.pending.AutoPadPercent = 0;
    PEactions(graph, kTakeOverAndRedraw);
    show_as(GraphRole::Detail);
  }

  void show_as(GraphRole role) {
    widget = std::make_unique<GraphWidget>(graph, role);
    widget->resize(640, 480);
    QObject::connect(widget.get(), &GraphWidget::happened,
                     [this](const GraphEvent& event) { events.push_back(event); });
    widget->show();
    QApplication::processEvents();
  }

  // The pixel of a place in graph units, on whole pixels.
  QPoint at(f64 x, f64 y, std::size_t slot = 0) {
    const GraphLayout& layout = widget->layout_on_show();
    return {static_cast<int>(std::lround(pixel_of(layout.x_axis.scale, x))),
            static_cast<int>(std::lround(pixel_of(layout.layers[slot].left.scale, y)))};
  }
  // Graph units in one pixel across.
  f64 unit() {
    const AxisScale& scale = widget->layout_on_show().x_axis.scale;
    return (scale.maximum - scale.minimum) / (scale.last - scale.first);
  }

  void press(QPoint place) { QTest::mousePress(widget.get(), Qt::LeftButton, Qt::NoModifier, place); }
  void move(QPoint place, Qt::MouseButtons buttons = Qt::LeftButton) {
    QMouseEvent event(QEvent::MouseMove, place, widget->mapToGlobal(place), Qt::NoButton, buttons,
                      Qt::NoModifier);
    QApplication::sendEvent(widget.get(), &event);
  }
  void release(QPoint place) { QTest::mouseRelease(widget.get(), Qt::LeftButton, Qt::NoModifier, place); }
  // Whether a red line passes at the place; it stands on whole pixels, up to one beside.
  bool red_line_at(f64 x, f64 y) {
    const QImage all = picture();
    for (int beside = -1; beside <= 1; ++beside)
      if (all.pixelColor(at(x, y) + QPoint(beside, 0)) == QColor(255, 0, 0)) return true;
    return false;
  }
  QImage picture() { return widget->grab().toImage(); }

  std::vector<int> kinds() const {
    std::vector<int> all;
    for (const GraphEvent& event : events) all.push_back(static_cast<int>(event.kind));
    return all;
  }
  static int kind(GraphEventKind each) { return static_cast<int>(each); }

  QScrollBar* bar(Qt::Orientation orientation) {
    for (QScrollBar* each : widget->findChildren<QScrollBar*>())
      if (each->orientation() == orientation) return each;
    return nullptr;
  }

  void show_limit_lines() {
    graph.pending.ShowAnnotations = true;
    graph.pending.VertLineAnnotation = {5, 20};
    graph.pending.VertLineAnnotationColor = {0x0000FF, 0x0000FF};
    PEactions(graph, kRedrawFromSettings);
    show_as(GraphRole::Survey);
  }

  GraphSurface graph{1};
  std::vector<GraphEvent> events;
  std::unique_ptr<GraphWidget> widget;
};

TEST_F(GraphWidgetTest, ARubberBandZoomsTheGraph) {
  graph.pending.AllowZooming = kZoomRectangle;
  const f64 pixel = unit();
  press(at(5, 8));
  move(at(15, 2));
  EXPECT_EQ(widget->cursor().shape(), Qt::CrossCursor);
  release(at(15, 2));
  EXPECT_EQ(kinds(), std::vector<int>{kind(GraphEventKind::ZoomEnd)});
  EXPECT_NEAR(graph.shown().ZoomMinX, 5, pixel);
  EXPECT_NEAR(graph.shown().ZoomMaxX, 15, pixel);
  EXPECT_NEAR(graph.shown().layers[0].ZoomMinY, 2, 0.1);
  EXPECT_NEAR(graph.shown().layers[0].ZoomMaxY, 8, 0.1);
  EXPECT_EQ(graph.shown().ZoomAxisTop, 0);
}

TEST_F(GraphWidgetTest, TheBandIsDrawnOverTheKeptPicture) {
  graph.pending.AllowZooming = kZoomHorizontal;
  const QImage before = picture();
  const u64 painted = widget->pictures_painted();
  press(at(5, 8));
  move(at(25, 2));
  const QImage during = picture();
  const QPoint inside = at(21, -3, 1);
  EXPECT_NE(during.pixelColor(inside), before.pixelColor(inside));
  EXPECT_EQ(during.pixelColor(at(27, 9)), before.pixelColor(at(27, 9)));
  QTest::keyClick(widget.get(), Qt::Key_Escape);
  EXPECT_EQ(picture(), before);
  release(at(25, 2));
  EXPECT_TRUE(events.empty());
  EXPECT_EQ(widget->pictures_painted(), painted);
}

TEST_F(GraphWidgetTest, APointerThatIsTakenAwayEndsTheBand) {
  graph.pending.AllowZooming = kZoomHorizontal;
  press(at(5, 8));
  move(at(25, 2));
  move(at(26, 2), Qt::NoButton);
  release(at(26, 2));
  press(at(5, 8));
  move(at(25, 2));
  QEvent deactivate(QEvent::WindowDeactivate);
  QApplication::sendEvent(widget.get(), &deactivate);
  release(at(25, 2));
  EXPECT_TRUE(events.empty());
  EXPECT_FALSE(graph.pending.ZoomActive);
}

TEST_F(GraphWidgetTest, LimitLinesAreDraggedWithoutPaintingTheCurvesAgain) {
  show_limit_lines();
  QObject::connect(widget.get(), &GraphWidget::happened, [this](const GraphEvent& event) {
    if (event.kind != GraphEventKind::PointerMove) return;
    graph.pending.VertLineAnnotation[static_cast<std::size_t>(event.target.index)] = event.x;
    write_show_annotations(graph, true);
  });
  EXPECT_TRUE(red_line_at(20, 9));
  const u64 painted = widget->pictures_painted();
  press(at(20, 9) + QPoint(3, 0));
  EXPECT_EQ(events.back().target.index, 1);
  for (int step = 0; step <= 50; ++step) move(at(20 + 0.1 * step, 9));
  EXPECT_EQ(widget->cursor().shape(), Qt::SplitHCursor);
  release(at(25, 9));
  EXPECT_EQ(kind(events.back().kind), kind(GraphEventKind::ButtonUp));
  EXPECT_NEAR(graph.shown().VertLineAnnotation[1], 25, unit());
  EXPECT_TRUE(red_line_at(25, 9));
  EXPECT_FALSE(red_line_at(20, 9));
  EXPECT_EQ(widget->pictures_painted(), painted);
}

TEST_F(GraphWidgetTest, EscapeLosesTheGripOfALimitLine) {
  show_limit_lines();
  press(at(5, 9));
  move(at(8, 9));
  QTest::keyClick(widget.get(), Qt::Key_Escape);
  EXPECT_EQ(kind(events.back().kind), kind(GraphEventKind::GripLost));
}

TEST_F(GraphWidgetTest, TheCursorFollowsPointerAndKeysOverTheKeptPicture) {
  graph.pending.CursorMode = kCursorCross;
  graph.pending.CursorPromptTracking = true;
  graph.pending.GraphForeColor = 0x0000FF;
  PEactions(graph, kRedrawFromSettings);
  picture();
  const u64 painted = widget->pictures_painted();
  move(at(19, 5), Qt::NoButton);
  EXPECT_EQ(graph.pending.CursorPoint, 2);
  EXPECT_TRUE(red_line_at(20, 1));
  QTest::keyClick(widget.get(), Qt::Key_Left);
  EXPECT_EQ(graph.pending.CursorPoint, 1);
  EXPECT_TRUE(red_line_at(10, 1));
  EXPECT_EQ(kinds(), (std::vector<int>{kind(GraphEventKind::CursorMove), kind(GraphEventKind::CursorMove)}));
  EXPECT_EQ(widget->pictures_painted(), painted);
}

TEST_F(GraphWidgetTest, ArrowKeysAreToldWhileNoCursorIsOn) {
  QTest::keyClick(widget.get(), Qt::Key_Left);
  QTest::keyClick(widget.get(), Qt::Key_Right);
  ASSERT_EQ(events.size(), 2U);
  EXPECT_EQ(events[0].key, 37);
  EXPECT_EQ(events[1].key, 39);
}

TEST_F(GraphWidgetTest, ClicksDoubleClicksAndRightClicks) {
  QTest::mouseClick(widget.get(), Qt::LeftButton, Qt::NoModifier, at(10, 10));
  ASSERT_EQ(events.size(), 1U);
  EXPECT_EQ(kind(events[0].kind), kind(GraphEventKind::Click));
  EXPECT_EQ(events[0].target.point, 1);
  events.clear();
  const PixelRectangle area = widget->layout_on_show().layers[0].area;
  const QPoint axis(static_cast<int>(area.x) - 10, static_cast<int>(area.y + area.height / 2));
  QTest::mouseDClick(widget.get(), Qt::LeftButton, Qt::NoModifier, axis);
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(kind(events.back().kind), kind(GraphEventKind::DoubleClick));
  EXPECT_EQ(static_cast<int>(events.back().target.kind), static_cast<int>(TargetKind::LeftAxis));
  QTest::mouseClick(widget.get(), Qt::RightButton, Qt::NoModifier, at(15, 9));
  EXPECT_EQ(kind(events.back().kind), kind(GraphEventKind::RightClick));
}

TEST_F(GraphWidgetTest, ScrollBarsComeWithAZoomAndMoveIt) {
  EXPECT_TRUE(bar(Qt::Horizontal)->isHidden());
  graph.pending.AllowZooming = kZoomRectangle;
  graph.pending.ScrollingHorzZoom = graph.pending.ScrollingVertZoom = true;
  press(at(0, 8));
  move(at(15, 2));
  release(at(15, 2));
  ASSERT_TRUE(bar(Qt::Horizontal)->isVisible());
  ASSERT_TRUE(bar(Qt::Vertical)->isVisible());
  const f64 width = graph.shown().ZoomMaxX - graph.shown().ZoomMinX;
  bar(Qt::Horizontal)->setValue(bar(Qt::Horizontal)->maximum());
  EXPECT_NEAR(graph.shown().ZoomMaxX, 30, 1e-6);
  EXPECT_NEAR(graph.shown().ZoomMaxX - graph.shown().ZoomMinX, width, 1e-6);
  bar(Qt::Vertical)->setValue(0);
  EXPECT_NEAR(graph.shown().layers[0].ZoomMaxY, 10, 1e-6);
  EXPECT_LE(widget->layout_on_show().width, widget->width() - bar(Qt::Vertical)->width());
  QTest::keyClick(widget.get(), Qt::Key_Backspace);
  EXPECT_EQ(kind(events.back().kind), kind(GraphEventKind::ZoomUndo));
  EXPECT_FALSE(bar(Qt::Horizontal)->isVisible());
}

TEST_F(GraphWidgetTest, TheWheelMovesTheScrollBars) {
  graph.pending.AllowZooming = kZoomHorizontal;
  graph.pending.ScrollingHorzZoom = true;
  press(at(5, 8));
  move(at(15, 2));
  release(at(15, 2));
  const f64 start = graph.shown().ZoomMinX;
  QWheelEvent wheel(at(10, 5), widget->mapToGlobal(at(10, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(widget.get(), &wheel);
  EXPECT_GT(graph.shown().ZoomMinX, start);
}

TEST_F(GraphWidgetTest, OtherKeysStayWithTheWindow) {
  QKeyEvent key(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier);
  QApplication::sendEvent(widget.get(), &key);
  EXPECT_FALSE(key.isAccepted());
  EXPECT_TRUE(events.empty());
}

}  // namespace
}  // namespace trendaro
