#include "app/section_command.h"

#include <filesystem>
#include <system_error>

#include "files/section_writer.h"

namespace trendaro {

int run_section(const SectionCommand& command, std::ostream& err) {
  std::error_code ignored;
  if (std::filesystem::equivalent(command.source, command.target, ignored)) {
    err << "Quelldatei und Zieldatei sind dieselbe Datei: " << command.target << "\n";
    return 1;
  }
  if (!command.force && std::filesystem::exists(std::filesystem::symlink_status(command.target, ignored))) {
    err << "Zieldatei existiert bereits: " << command.target << "\n";
    return 1;
  }
  const SectionStatus status = WriteSectionFile(command.source, command.target, command.first, command.count);
  if (status == SectionStatus::Done) return 0;
  err << section_failure_text(status) << "\n";
  return 1;
}

}  // namespace trendaro
