#pragma once

#include <QString>

#include "app/shell.h"

class QWidget;

namespace trendaro {

// The program's dialogs, with German buttons whatever the desktop's language is. Each returns when the user
// has answered; `parent` may be null.

// The box "MsgBox" with "OK".
void show_message_box(QWidget* parent, const QString& text, const QString& title, MessageIcon icon);

// The box "MsgBox" with "Ja" and "Nein"; true for "Ja". Closing it is "Nein".
bool ask_yes_no_box(QWidget* parent, const QString& text, const QString& title);

// The box "InputBox" with "OK" and "Abbrechen"; empty when cancelled.
QString ask_text_box(QWidget* parent, const QString& prompt, const QString& title, const QString& preset);

// The dialog "FileDialog" for an existing file, or for a file to write; starts in `folder`. Empty when
// cancelled.
QString ask_open_file_box(QWidget* parent, const FileDialog& dialog, const QString& folder);
QString ask_save_file_box(QWidget* parent, const FileDialog& dialog, const QString& folder);

}  // namespace trendaro
