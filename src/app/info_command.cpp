#include "app/info_command.h"

#include <ostream>

#include "app/command_output.h"
#include "app/console_shell.h"
#include "app/info_json.h"
#include "app/info_table.h"
#include "app/model.h"
#include "files/file_group.h"
#include "files/input_file.h"
#include "files/loader.h"

namespace trendaro {
namespace {

FileDescription describe(const Model& model, const InfoCommand& command) {
  FileDescription description{.path = command.path, .result = model};
  // The loader keeps no id of recorder files.
  const InputFile file(command.path);
  if (file.is_open()) static_cast<void>(file.read_at(0, &description.id, sizeof description.id));
  description.is_recorder = file_group(description.id) == FileGroup::Recorder;
  if (model.FileChannelNames.has(command.channel)) description.channel = command.channel;
  return description;
}

}  // namespace

int run_info(const InfoCommand& command, std::ostream& output, std::ostream& errors) {
  ConsoleShell shell(errors);
  Model model(shell);
  const LoadStatus status = LoadMeasurementFile(model, 0, command.path, command.channel, 0);
  if (status != LoadStatus::Done) {
    if (command.json) output << failure_json(command.path, status) << '\n';
    finish_output(output, errors);
    errors << load_failure_text(status) << '\n';
    return 1;
  }
  const FileDescription description = describe(model, command);
  if (command.json)
    output << description_json(description) << '\n';
  else
    print_info_table(description, output);
  return finish_output(output, errors);
}

}  // namespace trendaro
