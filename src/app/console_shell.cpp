#include "app/console_shell.h"

#include <ostream>

namespace trendaro {

void ConsoleShell::show_message(const std::string& text, const std::string&, MessageIcon) {
  errors_ << text << '\n';
}

}  // namespace trendaro
