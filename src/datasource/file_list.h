#pragma once

#include <string>

namespace trendaro {

struct Model;

// Asks for a file and adds it: mnuOpenFile.
void mnuOpenFile(Model& model);

// The one road for a file into the channel list, from the dialog, a drop or the command line. A reduced
// recording brings the members of its family along, in the order STO, ST1, ST2. `path` is absolute; an empty
// one does nothing.
void open_file(Model& model, const std::string& path);

// Reads a file's header and appends its rows. With `noListEntry` the file is not entered into FileList. A
// file that is refused changes nothing and shows its message.
void AddFileToGrid(Model& model, const std::string& path, bool noListEntry);

// Removes the file of the active row with its signals, and the plots that hang on them. Nothing when the
// active row is no file row.
void RemoveFileFromGrid(Model& model);

void mnuRemoveFile(Model& model);
void mnuPRemoveFile(Model& model);
// The menu mnuFile opens: enables mnuRemoveFile where it applies.
void mnuFile(Model& model);
// Asks for the extension of the originals behind reduced block files.
void mnuFileExtension(Model& model);

}  // namespace trendaro
