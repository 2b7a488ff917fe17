#pragma once

#include <QApplication>
#include <memory>

#include "app/command_line.h"
#include "app/main_window.h"
#include "app/model.h"
#include "app/window_shell.h"

namespace trendaro {

// Name, style, icon and German texts of the application.
void prepare_application(QApplication& application);

// The model with its user and its main window. The model stands from the beginning; the window is loaded by
// `load`, which throws what the load of the main window throws.
struct ProgramWindow {
  WindowShell shell;
  Model model{shell};
  std::unique_ptr<Kelmira> window;

  void load();
  // Adds files to the list and marks their channels.
  void open(const std::vector<FileArgument>& files);
};

}  // namespace trendaro
