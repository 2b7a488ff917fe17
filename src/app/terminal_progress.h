#pragma once

#include <ostream>
#include <string_view>

#include "app/types.h"

namespace trendaro {

// Writes the percentage of a work over itself on one line of a terminal, which ends with the object.
class TerminalProgress {
 public:
  TerminalProgress(std::ostream& terminal, std::string_view words) : terminal_(terminal), words_(words) {}
  ~TerminalProgress() {
    if (shown_) terminal_ << '\n' << std::flush;
  }
  TerminalProgress(const TerminalProgress&) = delete;
  TerminalProgress& operator=(const TerminalProgress&) = delete;

  void show(f64 fraction) {
    shown_ = true;
    terminal_ << '\r' << words_ << ' ' << static_cast<int>(fraction * 100) << " %" << std::flush;
  }

 private:
  std::ostream& terminal_;
  std::string_view words_;
  bool shown_ = false;
};

}  // namespace trendaro
