#include "app/reduce_command.h"

#include "app/target_refusal.h"
#include "app/terminal_progress.h"
#include "files/reduce_handlers.h"
#include "files/reducer.h"

namespace trendaro {
namespace {

ReduceStatus reduce(const ReduceCommand& command, const std::string& target, std::ostream& errors,
                    bool errors_is_terminal) {
  if (!errors_is_terminal) return ReduceStandardFile(command.source, target, command.factor, untold);
  TerminalProgress progress(errors, "Binäre Mervan-Datei wird reduziert!");
  return ReduceStandardFile(command.source, target, command.factor,
                            [&](f64 fraction) { progress.show(fraction); });
}

}  // namespace

int run_reduce(const ReduceCommand& command, std::ostream& errors, bool errors_is_terminal) {
  const std::string target = command.target.empty() ? reduced_file_name(command.source) : command.target;
  if (const std::string reason = target_refusal(command.source, target, command.force); !reason.empty()) {
    errors << reason << '\n';
    return 1;
  }
  const ReduceStatus status = reduce(command, target, errors, errors_is_terminal);
  if (status == ReduceStatus::Done) return 0;
  errors << reduce_status_text(status) << '\n';
  return 1;
}

}  // namespace trendaro
