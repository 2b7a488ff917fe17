#include "app/command_output.h"

#include <csignal>
#include <ostream>

namespace trendaro {

void ignore_output_signals() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

int finish_output(std::ostream& output, std::ostream& errors) {
  if (output.flush()) return 0;
  errors << "Fehler beim Schreiben der Ausgabe.\n";
  return 1;
}

std::string load_failure_text(LoadStatus status) {
  if (status == LoadStatus::NotOpened) return "Fehler bei Öffnen der Datei!";
  if (status == LoadStatus::NotMeasurement) return "Diese Datei enthält kein gültiges Format";
  if (status == LoadStatus::Done || status == LoadStatus::ReadFailed) return {};
  return "Fehler beim Laden der Datei aufgetreten.";
}

}  // namespace trendaro
