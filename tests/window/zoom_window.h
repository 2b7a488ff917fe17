#pragma once

#include <QLineEdit>
#include <string>

#include "app/memory_host.h"
#include "graph/graph_widget.h"
#include "support/zoom_recording.h"
#include "window/graph_pointer.h"
#include "window/window_fixture.h"

namespace trendaro {

// The window with a recording of 200 s, 100 samples a second, driven by mouse and keys.
class ZoomWindowTest : public WindowTest {
 protected:
  ZoomWindowTest() {
    model.Host = &memory;
    model.Kernel = &memory;
  }

  void show_envelope() {
    write_file(folder.file("lauf.ME1"), ZoomRecording{}.original().bytes());
    write_file(folder.file("lauf.ST1"), ZoomRecording{}.envelope().bytes());
    show_first_signal("lauf.ST1");
    model.controls["PointsBox"].text = "10000";
  }
  void show_plain() {
    write_file(folder.file("lauf.ME1"), ZoomRecording{.rows = 2000}.original().bytes());
    show_first_signal("lauf.ME1");
  }
  void show_first_signal(const std::string& name) {
    open_window();
    window->run([&] { open_file(model, folder.file(name)); });
    click_cell(1, 1);
    ASSERT_EQ(model.NofPlots, 1);
  }

  GraphWidget* graph() { return find<GraphWidget>("PESG"); }
  GraphWidget* survey() { return find<GraphWidget>("PESGSurvey"); }

  static void press(GraphWidget* widget, QPoint place) {
    QTest::mousePress(widget, Qt::LeftButton, Qt::NoModifier, place);
  }
  static void release(GraphWidget* widget, QPoint place) {
    QTest::mouseRelease(widget, Qt::LeftButton, Qt::NoModifier, place);
  }
  static void drag(GraphWidget* widget, f64 from, f64 to) {
    const QPoint end = place_at(widget, to);
    press(widget, place_at(widget, from));
    move_pointer(widget, (place_at(widget, from) + end) / 2);
    move_pointer(widget, end);
    release(widget, end);
  }
  QString readout() { return find<QLineEdit>("ZoomPointsBox")->text(); }

  MemoryHost memory{user, 96, 100000};
};

}  // namespace trendaro
