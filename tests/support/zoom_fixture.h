#pragma once

#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/memory_host.h"
#include "app/model.h"
#include "app/startup.h"
#include "app/toolbar.h"
#include "datasource/file_list.h"
#include "datasource/grid_handlers.h"
#include "graph/data_zoom.h"
#include "graph/rubber_band.h"
#include "graph/zoom_end.h"
#include "support/file_builder.h"
#include "support/recording_shell.h"
#include "support/zoom_recording.h"

namespace trendaro {

// The program as it starts, on the embedded host, with recordings of known samples.
class ZoomFixture : public testing::Test {
 protected:
  static constexpr f64 kStep = 0.01;  // seconds a sample

  ZoomFixture() {
    model.Host = &host;
    model.Kernel = &host;
    model.TemplateFolder = folder.path();
    load_main_window(model);
  }

  // Writes the pair and opens the envelope; rows 2 and following of the list are its channels.
  void open(const ZoomRecording& recording, const std::string& name = "lauf") {
    write_file(folder.file(name + ".ME1"), recording.original().bytes());
    open_envelope(recording, name);
  }
  void open_envelope(const ZoomRecording& recording, const std::string& name = "lauf") {
    write_file(folder.file(name + ".ST1"), recording.envelope().bytes());
    AddFileToGrid(model, folder.file(name + ".ST1"), false);
  }
  void mark(i32 row, i16 layer = 1, i16 side = 1) {
    model.CurrentLayer = layer;
    model.CurrentSide = side;
    click_check_cell(model, row, 1);
  }
  void unmark(i32 row) { click_check_cell(model, row, 0); }
  // The row of the only signal of a plain file of so many samples.
  i32 add_plain(i32 samples, const std::string& extension = ".ME1") {
    const std::string path = folder.file("klar" + std::to_string(samples) + extension);
    write_file(path, ZoomRecording{.rows = samples, .channels = 1}.original().bytes());
    AddFileToGrid(model, path, false);
    return model.Grid.MaxRows();
  }
  // As a rubber band in the main graph leaves its limits.
  void set_limits(f64 low, f64 high) {
    model.PESG.pending.ZoomMinX = low;
    model.PESG.pending.ZoomMaxX = high;
    model.PESG.pending.ZoomActive = true;
  }
  // As the rubber band of a pressed rectangle leaves it.
  void rectangle(f64 low, f64 high) {
    click_tool(model, "TB_ZOOMRECT");
    LayerProperties& layer = model.PESG.pending.layers[0];
    layer.ZoomMinY = layer.ZoomMinRY = 10;
    layer.ZoomMaxY = layer.ZoomMaxRY = 20;
    set_limits(low, high);
    end_main_zoom(model);
  }
  // As the key of the graph does.
  bool undo() {
    if (!undo_zoom(model.PESG)) return false;
    undo_main_zoom(model);
    return true;
  }
  void zoom(f64 low, f64 high) {
    set_limits(low, high);
    DataZoom(model);
  }

  [[nodiscard]] std::vector<f64> channel_samples(i16 channel) {
    HostDatabase& database = model.Host->DB();
    std::vector<f64> values(static_cast<std::size_t>(database.GetChannelLength(channel)));
    database.ReadData64(channel, values);
    return values;
  }
  // The database channel holds the samples `first` to `first + count - 1` of the recording's channel.
  void expect_samples(i16 database_channel, i16 channel, i64 first, i64 count) {
    const auto values = channel_samples(database_channel);
    ASSERT_EQ(static_cast<i64>(values.size()), count);
    for (i64 i = 0; i < count; ++i)
      ASSERT_NEAR(values[static_cast<std::size_t>(i)], ZoomRecording::known_sample(channel, first + i), 0.01)
          << "sample " << first + i;
  }
  // Slot `curve` (from 0) of the main graph shows those samples at their times, and nothing behind them.
  void expect_drawn(std::size_t curve, i16 channel, i64 first, i64 count) {
    const GraphProperties& graph = model.PESG.shown();
    const auto points = static_cast<std::size_t>(graph.PointCount);
    ASSERT_GE(static_cast<i64>(points), count);
    ASSERT_LE((curve + 1) * points, graph.YData->size());
    for (std::size_t i = 0; i < points; ++i) {
      const f64 y = f64{(*graph.YData)[curve * points + i]};
      if (static_cast<i64>(i) >= count) {
        ASSERT_EQ(y, graph.NullDataValue);
        continue;
      }
      const i64 sample = first + static_cast<i64>(i);
      ASSERT_NEAR(y, ZoomRecording::known_sample(channel, sample), 0.01) << "sample " << sample;
      ASSERT_NEAR(f64{(*graph.XData)[curve * points + i]}, static_cast<f64>(sample) * kStep,
                  1e-6 * (1 + static_cast<f64>(sample) * kStep));
    }
  }
  std::string& box(const char* name) { return model.controls[name].text; }

  TemporaryFolder folder;
  RecordingShell shell;
  MemoryHost host{shell, 96, 100000};
  Model model{shell};
};

}  // namespace trendaro
