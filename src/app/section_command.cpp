#include "app/section_command.h"

#include "app/target_refusal.h"
#include "app/terminal_progress.h"
#include "files/section_writer.h"

namespace trendaro {
namespace {

SectionStatus write(const SectionCommand& command, const Progress& progress) {
  return WriteSectionFile(command.source, command.target, command.first, command.count, progress);
}

SectionStatus write_section(const SectionCommand& command, std::ostream& errors, bool errors_is_terminal) {
  if (!errors_is_terminal) return write(command, untold);
  TerminalProgress progress(errors, "Meßwertausschnittsdatei wird erzeugt!");
  return write(command, [&](f64 fraction) { progress.show(fraction); });
}

}  // namespace

int run_section(const SectionCommand& command, std::ostream& errors, bool errors_is_terminal) {
  const std::string reason = target_refusal(command.source, command.target, command.force);
  if (!reason.empty()) {
    errors << reason << '\n';
    return 1;
  }
  const SectionStatus status = write_section(command, errors, errors_is_terminal);
  if (status == SectionStatus::Done) return 0;
  errors << section_failure_text(status) << '\n';
  return 1;
}

}  // namespace trendaro
