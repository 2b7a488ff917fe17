#include "files/reduce_handlers.h"

#include <cmath>
#include <filesystem>
#include <optional>

#include "app/model.h"
#include "app/numbers.h"
#include "app/paths.h"
#include "files/reducer.h"

namespace trendaro {
namespace {

constexpr i32 kDefaultBlock = 100;
constexpr f64 kSmallestBlock = 10;
constexpr f64 kLargestBlock = 10000;

constexpr char kPrompt[] =
    "Trendaro kann binäre Mervan-Dateien bearbeiten. "
    "Aus der Originaldatei wird eine komprimierte Datei erzeugt, die analog zu TLQplus-Dateien angezeigt "
    "werden "
    "kann. "
    "Geben Sie die Anzahl der Werte an, für die ein Minimum-Maximum-Paar gebildet werden soll. Wertebereich: "
    "10 bis 10000. "
    "Die Werte werden in der Reihenfolge des Auftretens in der Datei abgelegt. Die Komprimierung kann einige "
    "Zeit dauern.";

// The block size that the user wants, kept in FileReduceBlock; nothing when the user wants none.
std::optional<i32> ask_block(Model& model) {
  if (model.FileReduceBlock == 0) model.FileReduceBlock = kDefaultBlock;
  const std::string answer =
      model.shell.ask_text(kPrompt, "Mervan-Datei im binären Standardformat komprimieren",
                           number_text(i64{model.FileReduceBlock}));
  const f64 wanted = std::nearbyint(ParseNumber(answer));
  if (wanted == 0) return std::nullopt;
  if (wanted >= kSmallestBlock && wanted <= kLargestBlock) {
    model.FileReduceBlock = static_cast<i32>(wanted);
  } else {
    model.FileReduceBlock = kDefaultBlock;
    model.shell.show_message(
        "Der angegebene Komprimierungsfaktor liegt außerhalb des erlaubten Wertebereiches"
        " und wird auf den Defaultwert 100 zurückgestellt.",
        kProgramTitle, MessageIcon::None);
  }
  return model.FileReduceBlock;
}

std::string ask_source(Model& model) {
  return model.shell.ask_open_file({.title = "Binärfile zur Komprimierung auswählen",
                                    .filters = {{"*.BIN", "*.BIN"}, {"*.DAT", "*.DAT"}, {"*.*", "*.*"}}});
}

bool may_write(Model& model, const std::string& target) {
  std::error_code ignored;
  return !std::filesystem::exists(target, ignored) ||
         model.shell.ask_yes_no("Zieldatei existiert bereits. Fortfahren?", kProgramTitle);
}

ReduceStatus reduce_with_progress(Model& model, const std::string& source, const std::string& target,
                                  i32 block) {
  const WaitPointer wait(model.shell);
  model.shell.show_status(1, "Binäre Mervan-Datei wird reduziert!");
  const ReduceStatus status =
      ReduceStandardFile(source, target, block, [&](f64 fraction) { model.shell.show_progress(fraction); });
  model.shell.show_progress(-1);
  return status;
}

void tell_outcome(Model& model, ReduceStatus status) {
  if (status == ReduceStatus::Done) {
    model.shell.show_status(1, "Reduzierung abgeschlossen.");
    return;
  }
  model.shell.show_status(1, "Fehler bei Reduzierung aufgetreten.");
  model.shell.show_message(reduce_status_text(status), kProgramTitle, MessageIcon::None);
}

}  // namespace

std::string reduced_file_name(const std::string& source) {
  std::string folder;
  std::string name;
  SplitFileName(source, folder, name);
  const std::string up_to_name = source.substr(0, source.size() - name.size());
  return up_to_name + name.substr(0, name.find('.')) + ".REB";
}

void mnuReduceBin(Model& model) {
  const std::optional<i32> block = ask_block(model);
  if (!block) return;
  const std::string source = ask_source(model);
  if (source.empty()) return;
  const std::string target = reduced_file_name(source);
  if (!may_write(model, target)) return;
  const ReduceStatus status = reduce_with_progress(model, source, target, *block);
  model.LastDatabaseStatus = static_cast<i32>(status);
  tell_outcome(model, status);
}

}  // namespace trendaro
