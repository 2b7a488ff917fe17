#pragma once

#include <QAction>
#include <QApplication>
#include <QTest>
#include <QWidget>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "app/main_window.h"
#include "app/model.h"
#include "app/startup.h"
#include "app/window_shell.h"
#include "datasource/channel_grid.h"
#include "datasource/file_list.h"
#include "support/fake_host.h"
#include "support/recording_shell.h"
#include "support/reducible_files.h"

namespace trendaro {

// The main window over a fake host, with a user who answers from lists. Widgets are found by their names.
class WindowTest : public ::testing::Test {
 protected:
  WindowTest() {
    host.set_all_capacities(10000);
    model.Host = &host;
    model.TemplateFolder = folder.path();
  }

  void open_window() {
    load_main_window(model);
    window = std::make_unique<Kelmira>(model, window_shell);
    window->show();
    QApplication::processEvents();
  }

  // Writes a standard file with so many channels and adds it to the list.
  std::string add_file(const std::string& name, int channels) {
    StandardFile file;
    for (int channel = 1; channel <= channels; ++channel)
      file.channels.push_back(
          {.name = "Kanal " + std::to_string(channel), .samples = {1.0 * channel, 2.0 * channel, 0}});
    const std::string path = folder.file(name);
    write_file(path, file.build().bytes());
    window->run([&] { open_file(model, path); });
    return path;
  }

  template <typename Widget = QWidget>
  Widget* find(const char* name) {
    auto* found = window->findChild<Widget*>(QString::fromUtf8(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
  }

  ChannelGrid* grid() { return find<ChannelGrid>("Grid"); }

  // The middle of a cell, position from 0 and column from 1, in pixels of the list.
  QPoint cell(int position, int column) {
    return grid()->visualRect(grid()->model()->index(position, column - 1)).center();
  }
  void click_cell(int position, int column) {
    QTest::mouseClick(grid()->viewport(), Qt::LeftButton, Qt::NoModifier, cell(position, column));
  }
  void click_button(const char* key) { QTest::mouseClick(find<QWidget>(key), Qt::LeftButton); }

  std::string name_at(int position) {
    return grid()->model()->index(position, 2).data().toString().toStdString();
  }

  TemporaryFolder folder;
  RecordingShell user;
  WindowShell window_shell;
  FakeHost host;
  Model model{user};
  std::unique_ptr<Kelmira> window;
};

}  // namespace trendaro
