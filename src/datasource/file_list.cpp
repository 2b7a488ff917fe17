#include "datasource/file_list.h"

#include <limits>

#include "app/attempt.h"
#include "app/commands.h"
#include "app/model.h"
#include "app/raised.h"
#include "app/run_time_error.h"
#include "datasource/file_family.h"
#include "datasource/file_rows.h"
#include "files/loader.h"

namespace trendaro {
namespace {

const FileDialog kOpenDialog = {
    "Datensätze aus Datei einfügen",
    {{"*.ST*", "*.ST*"}, {"*.REB", "*.REB"}, {"*.ME*", "*.ME*"}, {"*.BIN*", "*.BIN*"}, {"*.*", "*.*"}}};

bool file_row_is_active(const ChannelRows& list) {
  return list.rows.has(list.active_row) && list.rows[list.active_row].kind == RowKind::File;
}

// Appends the rows of the file under the lock; a failure leaves some of them and is told.
bool append_block(Model& model, LoadStatus status, const std::string& path, bool noListEntry) {
  const Raised lock(model.ButtonLock);
  const i32 old_rows = model.Grid.MaxRows();
  const bool added = attempt([&] {
    if (status != LoadStatus::Done) throw RunTimeError{static_cast<i16>(status)};
    append_file_rows(model, path);
    if (!noListEntry && model.NofFiles == std::numeric_limits<i16>::max()) throw RunTimeError{kOverflow};
  });
  if (added)
    model.Grid.top_row = old_rows + 1;
  else
    model.shell.show_message("Fehler beim Laden der Datei aufgetreten.", kProgramTitle, MessageIcon::Stop);
  return added;
}

// All rows of the file, or none.
bool add_block(Model& model, LoadStatus status, const std::string& path, bool noListEntry) {
  const PausedList paused(model.Grid);
  const i32 old_rows = model.Grid.MaxRows();
  if (append_block(model, status, path, noListEntry)) return true;
  if (model.Grid.MaxRows() > old_rows) erase_rows(model.Grid, old_rows + 1, model.Grid.MaxRows() - old_rows);
  return false;
}

}  // namespace

void mnuOpenFile(Model& model) {
  open_file(model, model.shell.ask_open_file(kOpenDialog));
}

void open_file(Model& model, const std::string& path) {
  if (path.empty()) return;
  for (const std::string& member : files_to_add(path)) AddFileToGrid(model, member, false);
}

void AddFileToGrid(Model& model, const std::string& path, bool noListEntry) {
  const LoadStatus status = LoadMeasurementFile(model, 0, path, 0, 0);
  if (static_cast<i16>(status) < 0) {
    model.shell.show_message("Diese Datei enthält kein gültiges Format", kProgramTitle, MessageIcon::None);
    return;
  }
  if (!add_block(model, status, path, noListEntry) || noListEntry) return;
  ++model.NofFiles;
  model.FileList.resize(static_cast<std::size_t>(model.NofFiles));
  model.FileList[model.NofFiles] = path;
}

void mnuRemoveFile(Model& model) {
  RemoveFileFromGrid(model);
}

void mnuPRemoveFile(Model& model) {
  RemoveFileFromGrid(model);
}

void mnuFile(Model& model) {
  enable_control(model, "mnuRemoveFile", file_row_is_active(model.Grid) && !model.OriginalDataMode);
}

void mnuFileExtension(Model& model) {
  const std::string answer = model.shell.ask_text(
      "Um aus der komprimierten Mervan-Datei in die Originaldatei zu kommen, müssen Sie Trendaro die "
      "Dateierweiterung der Originaldatei (z.B. *.BIN) angeben.",
      "Dateierweiterung der originalen Mervan-Dateien",
      model.OriginalExtension.empty() ? "DAT" : model.OriginalExtension);
  if (!answer.empty()) model.OriginalExtension = answer;
}

}  // namespace trendaro
