#pragma once

#include <iosfwd>

#include "app/quiet_shell.h"

namespace trendaro {

// The user of the command line: messages become lines of text, questions are cancelled.
class ConsoleShell : public QuietShell {
 public:
  // `errors` must outlive the shell.
  explicit ConsoleShell(std::ostream& errors) : errors_(errors) {}

  void show_message(const std::string& text, const std::string& title, MessageIcon icon) override;

 private:
  std::ostream& errors_;
};

}  // namespace trendaro
