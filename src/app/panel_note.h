#pragma once

#include <string>

#include "app/shell.h"

namespace trendaro {

// Shows a text in the first panel of the status bar for the lifetime of the object, which leaves it empty.
class PanelNote {
 public:
  PanelNote(Shell& shell, const std::string& text) : shell_(shell) { shell_.show_status(1, text); }
  ~PanelNote() { shell_.show_status(1, ""); }
  PanelNote(const PanelNote&) = delete;
  PanelNote& operator=(const PanelNote&) = delete;

 private:
  Shell& shell_;
};

}  // namespace trendaro
