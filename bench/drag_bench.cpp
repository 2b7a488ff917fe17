// What a step of the pointer over a graph costs, against a copy of the widget's picture in the same run: a
// drag of a limit line, of a rubber band, and the cursor. Drawn off screen.
#include <QApplication>
#include <QMouseEvent>
#include <QPixmap>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <vector>

#include "graph/graph_cursor.h"
#include "graph/graph_widget.h"
#include "graph/rubber_band.h"
#include "timing.h"

namespace trendaro::bench {
namespace {

constexpr i32 kCurves = 4;
constexpr std::size_t kPoints = 1'000'000;
constexpr int kRuns = 201;
constexpr f64 kMost = 3;

// The least that a widget can do for a frame.
class CopyWidget : public QWidget {
 public:
  explicit CopyWidget(QPixmap picture) : picture_(std::move(picture)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    resize(picture_.size());
  }

 protected:
  void paintEvent(QPaintEvent*) override { QPainter(this).drawPixmap(0, 0, picture_); }

 private:
  QPixmap picture_;
};

void give_curves(GraphSurface& graph) {
  FlatArray x(kPoints * kCurves);
  FlatArray y(x.size());
  for (std::size_t i = 0; i < x.size(); ++i) {
    x[i] = static_cast<f32>(i % kPoints);
    y[i] = static_cast<f32>(std::sin(static_cast<f64>(i) * 1e-4) * 100);
  }
  graph.pending.SubsetCount = kCurves;
  graph.pending.PointCount = static_cast<i32>(kPoints);
  PEvset(graph, kXData, std::move(x));
  PEvset(graph, kYData, std::move(y));
  graph.pending.ShowAnnotations = true;
  graph.pending.VertLineAnnotation = {kPoints * 0.25, kPoints * 0.75};
  graph.pending.VertLineAnnotationType = {6, 6};
  PEactions(graph, kTakeOverAndRedraw);
}

void send(QWidget& widget, QEvent::Type type, QPointF place, Qt::MouseButtons held) {
  const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent event(type, place, widget.mapToGlobal(place), button, held, Qt::NoModifier);
  QApplication::sendEvent(&widget, &event);
}

// Moves the pointer from the place to the right and back; the copy takes turns, so that a busy machine slows
// both.
void measure(const char* words, GraphWidget& widget, QPointF from, Qt::MouseButtons held) {
  CopyWidget copy(widget.grab());
  copy.show();
  QApplication::processEvents();
  if (held != Qt::NoButton) send(widget, QEvent::MouseButtonPress, from, held);
  const u64 painted = widget.pictures_painted();
  std::vector<f64> steps, copies;
  for (int run = 0; run < kRuns; ++run) {
    const QPointF place = from + QPointF(run % 100 + 1, run % 50);
    steps.push_back(milliseconds([&] {
      send(widget, QEvent::MouseMove, place, held);
      widget.repaint();
    }));
    copies.push_back(milliseconds([&] { copy.repaint(); }));
  }
  if (held != Qt::NoButton) send(widget, QEvent::MouseButtonRelease, from, Qt::NoButton);
  std::printf("%-40s%10.3f%10.3f%8.2f%9.2f%s\n", words, median(steps), median(copies),
              median(steps) / median(copies), kMost,
              widget.pictures_painted() == painted ? "" : "  curves painted again");
}

void run_at(QSize size) {
  GraphSurface graph(1);
  give_curves(graph);
  GraphWidget survey(graph, GraphRole::Survey);
  QObject::connect(&survey, &GraphWidget::happened, [&](const GraphEvent& event) {
    if (event.kind != GraphEventKind::PointerMove) return;
    graph.pending.VertLineAnnotation[static_cast<std::size_t>(event.target.index)] = event.x;
    write_show_annotations(graph, true);
  });
  GraphWidget detail(graph, GraphRole::Detail);
  for (GraphWidget* widget : {&survey, &detail}) {
    widget->resize(size);
    widget->show();
  }
  QApplication::processEvents();
  std::printf("%d x %d\n", size.width(), size.height());
  const f64 line = pixel_of(survey.layout_on_show().x_axis.scale, graph.shown().VertLineAnnotation[0]);
  measure("drag of a limit line", survey, {line, size.height() / 2.0}, Qt::LeftButton);
  graph.pending.CursorMode = kCursorCross;
  graph.pending.CursorPromptTracking = true;
  measure("step of the cursor", detail, {size.width() / 3.0, size.height() / 2.0}, Qt::NoButton);
  graph.pending.CursorMode = kCursorOff;
  graph.pending.AllowZooming = kZoomRectangle;
  measure("drag of a rubber band", detail, {size.width() / 3.0, size.height() / 3.0}, Qt::LeftButton);
}

}  // namespace
}  // namespace trendaro::bench

int main(int argument_count, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argument_count, arguments);
  std::printf("%-40s%10s%10s%8s%9s\n", "one step, painted / a copy", "ms", "copy ms", "ratio", "at most");
  for (const QSize size : {QSize(1280, 800), QSize(2560, 1440)}) trendaro::bench::run_at(size);
  return 0;
}
