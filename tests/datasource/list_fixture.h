#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/model.h"
#include "datasource/file_list.h"
#include "datasource/grid_handlers.h"
#include "datasource/plot_list.h"
#include "support/fake_host.h"
#include "support/file_builder.h"
#include "support/recording_shell.h"

namespace trendaro {

struct StoredChannel {
  std::string name;
  std::vector<f64> samples;
  std::string unit = "V";
  f64 interval = 2;  // milliseconds
  i16 hardware_channel = 0;
};

// A measurement file of the standard kind. The name of the file decides nothing about it.
inline std::string recording_bytes(const std::vector<StoredChannel>& channels, i32 reduce_block = 0) {
  FileBuilder file;
  file.i16_field(5010).i32_field(0).counted_text("").i16_field(static_cast<i16>(channels.size()));
  file.i32_field(0);
  for (std::size_t i = 0; i < channels.size(); ++i) file.i32_field(0);
  file.i32_field(reduce_block);
  i16 number = 0;
  for (const StoredChannel& channel : channels) {
    file.i16_field(++number).i32_field(static_cast<i32>(channel.samples.size()));
    file.counted_text(channel.name).counted_text(channel.unit).counted_text("");
    file.i16_field(0).i16_field(8).f64_field(0).i32_field(152);
    file.f64_field(0).f64_field(channel.interval).zeros(84);
    file.i16_field(channel.hardware_channel).zeros(50);
    file.u8_field(0).u8_field(0).u8_field(0).i16_field(0).counted_text("");
  }
  for (const StoredChannel& channel : channels) file.values(channel.samples);
  return file.bytes();
}

// A list with files of its own, on a host of 96 free channels.
class ListFixture : public testing::Test {
 protected:
  ListFixture() {
    host.set_all_capacities(100000);
    model.Host = &host;
    model.MaxDatabaseChannels = host.channels;
    model.controls["mnuShowSurvGraph"].ticked = true;
  }

  // A file of `channels` channels "name 1", "name 2", ... with four samples each.
  std::string make_file(const std::string& name, int channels, i32 reduce_block = 0) {
    std::vector<StoredChannel> stored;
    for (int i = 1; i <= channels; ++i)
      stored.push_back({name + " " + std::to_string(i), {1, 2, 3, 4}, "V", 2.0 * i, static_cast<i16>(i)});
    write_file(folder.file(name), recording_bytes(stored, reduce_block));
    return folder.file(name);
  }
  std::string add_file(const std::string& name, int channels, i32 reduce_block = 0) {
    const std::string path = make_file(name, channels, reduce_block);
    AddFileToGrid(model, path, false);
    return path;
  }

  void mark(i32 row, i16 layer = 1, i16 side = 1) {
    model.CurrentLayer = layer;
    model.CurrentSide = side;
    click_check_cell(model, row, 1);
  }
  void unmark(i32 row) { click_check_cell(model, row, 0); }
  // Writes a mark without a rebuild.
  void write_mark(i32 row, i16 layer = 1, i16 side = 1) {
    set_mark(model.Grid, row, {mark_index(model.Grid.rows[row].mark), layer, side});
  }

  std::vector<std::string> row_names() const {
    std::vector<std::string> found;
    for (const ChannelRow& row : model.Grid.rows) found.push_back(row.name);
    return found;
  }
  std::vector<std::string> signals() const {
    std::vector<std::string> found;
    for (const PlotRecord& plot : model.Plots) found.push_back(plot_signal(plot));
    return found;
  }
  int redraws(const std::string& status) const {
    int count = 0;
    for (const auto& call : shell.calls) count += call == "status 1: " + status ? 1 : 0;
    return count;
  }
  int main_redraws() const { return redraws("Hauptgraphik wird aktualisiert..."); }
  int survey_redraws() const { return redraws("Übersichtsgraphik wird aktualisiert..."); }

  TemporaryFolder folder;
  RecordingShell shell;
  FakeHost host;
  Model model{shell};
};

}  // namespace trendaro
