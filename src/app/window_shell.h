#pragma once

#include <QString>

#include "app/shell.h"

class QWidget;

namespace trendaro {

class StatusBar;

// The user behind the main window. Before a window is attached dialogs stand alone, and status and progress
// show nowhere.
class WindowShell : public Shell {
 public:
  // File dialogs start in the folder that the program was started in.
  WindowShell();

  // Both must outlive their use here; null takes the window away again.
  void attach(QWidget* window, StatusBar* status_bar);

  void show_message(const std::string& text, const std::string& title, MessageIcon icon) override;
  bool ask_yes_no(const std::string& text, const std::string& title) override;
  std::string ask_text(const std::string& prompt, const std::string& title,
                       const std::string& preset) override;
  std::string ask_open_file(const FileDialog& dialog) override;
  std::string ask_save_file(const FileDialog& dialog) override;
  std::optional<DatabaseSize> ask_database_size(const DatabaseSize& size) override;
  void show_status(int panel, const std::string& text) override;
  void show_progress(f64 fraction) override;
  void show_wait_pointer(bool on) override;
  void show_channel_info(const ChannelInfoForm& form) override;
  void copy_text(const std::string& text) override;
  void print_channel_info(const std::string& headline, const std::vector<ChannelInfoRow>& rows) override;
  void close_window() override;
  bool open_document(const std::string& path) override;
  void show_about() override;

 private:
  // Keeps the folder of a chosen file for the next dialog.
  std::string remember(const QString& file);

  QWidget* window_ = nullptr;
  StatusBar* status_bar_ = nullptr;
  QString folder_;  // where the next file dialog starts
};

}  // namespace trendaro
