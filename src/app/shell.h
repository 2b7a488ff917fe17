#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/database_size.h"
#include "app/types.h"
#include "files/channel_info_rows.h"

namespace trendaro {

enum class MessageIcon { None, Information, Question, Stop };

struct FileFilter {
  std::string caption;
  std::string pattern;  // "*.REB"
};

// One row of the program's table of file dialogs.
struct FileDialog {
  std::string title;
  std::vector<FileFilter> filters;
  std::string default_name = {};    // stands in the box at first
  std::string default_ending = {};  // "REB": appended to a name that is typed without any
};

// The form with channel information, frmChanInfo.
struct ChannelInfoForm {
  std::string caption;
  const std::vector<ChannelInfoRow>& rows;
  std::function<void()> copy;   // for its button that copies the rows
  std::function<void()> print;  // for its button that prints them
};

// What handlers ask of the user and tell the user. The window shows dialogs, the command line writes to
// standard error, tests record. All texts are UTF-8; modal calls return when the user has answered.
class Shell {
 public:
  virtual ~Shell() = default;

  virtual void show_message(const std::string& text, const std::string& title, MessageIcon icon) = 0;
  // True for "Ja". Closing the box counts as "Nein".
  virtual bool ask_yes_no(const std::string& text, const std::string& title) = 0;
  // The typed text; empty when the user cancelled or typed nothing.
  virtual std::string ask_text(const std::string& prompt, const std::string& title,
                               const std::string& preset) = 0;
  // Absolute path of an existing file; empty when the user cancelled.
  virtual std::string ask_open_file(const FileDialog& dialog) = 0;
  // Absolute path to write to; empty when the user cancelled. Overwriting was asked for.
  virtual std::string ask_save_file(const FileDialog& dialog) = 0;
  // The size that the database is to have; nothing when the user cancelled.
  virtual std::optional<DatabaseSize> ask_database_size(const DatabaseSize&) { return std::nullopt; }
  // Writes a panel of the status bar, from 1, at once on screen.
  virtual void show_status(int panel, const std::string& text) = 0;
  // Progress of long work, 0 to 1, drawn at once; a negative value takes the display away.
  virtual void show_progress(f64 fraction) = 0;
  // The hourglass pointer on or off.
  virtual void show_wait_pointer(bool on) = 0;
  // Shows the form until the user closes it.
  virtual void show_channel_info(const ChannelInfoForm& form) = 0;
  // Puts a text on the clipboard.
  virtual void copy_text(const std::string& text) = 0;
  // Prints the rows below a centred bold line, on the printer that the user chooses.
  virtual void print_channel_info(const std::string& headline, const std::vector<ChannelInfoRow>& rows) = 0;
  // Closes the main window as if the user had; the close question comes with it.
  virtual void close_window() = 0;
  // Opens a file in the program that the desktop has for it. False where there is none.
  virtual bool open_document(const std::string&) { return false; }
  // Name and version of the program, modal; nothing where there is no window.
  virtual void show_about() {}
};

// The title of nearly every message box.
inline constexpr char kProgramTitle[] = "Trendaro";

// Shows the wait pointer for the lifetime of the object.
class WaitPointer {
 public:
  explicit WaitPointer(Shell& shell) : shell_(shell) { shell_.show_wait_pointer(true); }
  ~WaitPointer() { shell_.show_wait_pointer(false); }
  WaitPointer(const WaitPointer&) = delete;
  WaitPointer& operator=(const WaitPointer&) = delete;

 private:
  Shell& shell_;
};

}  // namespace trendaro
