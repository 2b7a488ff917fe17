#pragma once

#include <QString>

#include "app/shell.h"

class QFileDialog;

namespace trendaro {

// Sets up the dialog "FileDialog" for an existing file, or for a file to write: German words, sizes and
// dates, columns that show their texts, and a size that the screen has room for.
void prepare_open_dialog(QFileDialog& box, const FileDialog& dialog, const QString& folder);
void prepare_save_dialog(QFileDialog& box, const FileDialog& dialog, const QString& folder);

}  // namespace trendaro
