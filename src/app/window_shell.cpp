#include "app/window_shell.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>
#include <QWidget>

#include "app/database_dialog.h"
#include "app/message_boxes.h"
#include "app/status_bar.h"
#include "app/window_text.h"
#include "files/channel_info_dialog.h"
#include "files/channel_info_print.h"
#include "output/about_window.h"

namespace trendaro {
namespace {

// The time of a dialog: the wait pointer is away, and afterwards the keyboard is the window's again, also
// where no window manager gives it back.
class DialogTime {
 public:
  explicit DialogTime(QWidget* window) : window_(window) {
    while (QApplication::overrideCursor() != nullptr) {
      QApplication::restoreOverrideCursor();
      ++taken_;
    }
  }
  ~DialogTime() {
    for (; taken_ > 0; --taken_) QApplication::setOverrideCursor(Qt::WaitCursor);
    if (window_ != nullptr && window_->isVisible()) window_->activateWindow();
  }
  DialogTime(const DialogTime&) = delete;
  DialogTime& operator=(const DialogTime&) = delete;

 private:
  QWidget* window_;
  int taken_ = 0;
};

}  // namespace

WindowShell::WindowShell() : folder_(QDir::currentPath()) {}

void WindowShell::attach(QWidget* window, StatusBar* status_bar) {
  window_ = window;
  status_bar_ = status_bar;
}

void WindowShell::show_message(const std::string& text, const std::string& title, MessageIcon icon) {
  const DialogTime time(window_);
  show_message_box(window_, qt_text(text), qt_text(title), icon);
}

bool WindowShell::ask_yes_no(const std::string& text, const std::string& title) {
  const DialogTime time(window_);
  return ask_yes_no_box(window_, qt_text(text), qt_text(title));
}

std::string WindowShell::ask_text(const std::string& prompt, const std::string& title,
                                  const std::string& preset) {
  const DialogTime time(window_);
  return utf8_text(ask_text_box(window_, qt_text(prompt), qt_text(title), qt_text(preset)));
}

std::string WindowShell::ask_open_file(const FileDialog& dialog) {
  const DialogTime time(window_);
  return remember(ask_open_file_box(window_, dialog, folder_));
}

std::string WindowShell::ask_save_file(const FileDialog& dialog) {
  const DialogTime time(window_);
  return remember(ask_save_file_box(window_, dialog, folder_));
}

std::optional<DatabaseSize> WindowShell::ask_database_size(const DatabaseSize& size) {
  const DialogTime time(window_);
  DatabaseDialog dialog(size, window_);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.size_chosen();
}

std::string WindowShell::remember(const QString& file) {
  if (!file.isEmpty()) folder_ = QFileInfo(file).absolutePath();
  return utf8_text(file);
}

void WindowShell::show_status(int panel, const std::string& text) {
  if (status_bar_ != nullptr) status_bar_->set_panel(panel, qt_text(text));
}

void WindowShell::show_progress(f64 fraction) {
  if (status_bar_ != nullptr) status_bar_->set_progress(fraction);
}

void WindowShell::show_wait_pointer(bool on) {
  if (on)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

void WindowShell::show_channel_info(const ChannelInfoForm& form) {
  const DialogTime time(window_);
  ChannelInfoDialog(form, window_).exec();
}

void WindowShell::copy_text(const std::string& text) {
  QGuiApplication::clipboard()->setText(qt_text(text));
}

void WindowShell::print_channel_info(const std::string& headline, const std::vector<ChannelInfoRow>& rows) {
  QWidget* front = QApplication::activeWindow();
  const DialogTime time(front);
  ask_and_print(front, qt_text(headline), rows);
}

void WindowShell::close_window() {
  if (window_ != nullptr) window_->close();
}

bool WindowShell::open_document(const std::string& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(qt_text(path)));
}

void WindowShell::show_about() {
  const DialogTime time(window_);
  AboutWindow(AboutWindow::Use::Dialog, window_).exec();
}

}  // namespace trendaro
