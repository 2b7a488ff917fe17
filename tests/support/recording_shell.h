#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app/shell.h"

namespace trendaro {

// A user who answers from lists and remembers what was shown. Unanswered questions are cancelled.
class RecordingShell : public Shell {
 public:
  // What was shown, one line a call: "message: title: text", "status 1: text", "question: title: text", ...
  std::vector<std::string> calls;
  std::deque<bool> yes_no;
  std::deque<std::string> texts;
  std::deque<std::string> files;
  std::deque<std::optional<DatabaseSize>> sizes;
  // The icons of the messages shown, in order.
  std::vector<MessageIcon> icons;
  // The file dialogs shown, in order.
  std::vector<FileDialog> dialogs;
  // What the panels of the status bar show, from 1.
  std::map<int, std::string> panels;
  // Runs while a message is on screen.
  std::function<void()> during_message = [] {};
  // Runs when a text has been put into a panel of the status bar.
  std::function<void(const std::string& text)> during_status = [](const std::string&) {};
  // The rows of the last form with channel information, and what the user does there.
  std::vector<ChannelInfoRow> info_rows;
  std::vector<std::function<void(const ChannelInfoForm&)>> info_presses;
  int window_closings = 0;
  int wait_pointers = 0;  // switched on less switched off
  // The fractions of work that were shown, negative where the display was taken away.
  std::vector<f64> progress;

  void show_message(const std::string& text, const std::string& title, MessageIcon icon) override {
    calls.push_back("message: " + title + ": " + text);
    icons.push_back(icon);
    during_message();
  }
  bool ask_yes_no(const std::string& text, const std::string& title) override {
    calls.push_back("question: " + title + ": " + text);
    return take(yes_no);
  }
  std::string ask_text(const std::string& prompt, const std::string& title,
                       const std::string& preset) override {
    calls.push_back("text: " + title + ": " + prompt + " [" + preset + "]");
    return take(texts);
  }
  std::string ask_open_file(const FileDialog& dialog) override {
    calls.push_back("open: " + dialog.title);
    dialogs.push_back(dialog);
    return take(files);
  }
  std::string ask_save_file(const FileDialog& dialog) override {
    calls.push_back("save: " + dialog.title);
    dialogs.push_back(dialog);
    return take(files);
  }
  std::optional<DatabaseSize> ask_database_size(const DatabaseSize& size) override {
    calls.push_back("database: " + std::to_string(size.channels) + " x " + std::to_string(size.samples));
    return take(sizes);
  }
  void show_status(int panel, const std::string& text) override {
    calls.push_back("status " + std::to_string(panel) + ": " + text);
    panels[panel] = text;
    during_status(text);
  }
  void show_progress(f64 fraction) override { progress.push_back(fraction); }
  void show_wait_pointer(bool on) override { wait_pointers += on ? 1 : -1; }
  void show_channel_info(const ChannelInfoForm& form) override {
    calls.push_back("channel info: " + form.caption);
    info_rows = form.rows;
    for (const auto& press : info_presses) press(form);
  }
  void copy_text(const std::string& text) override { calls.push_back("copy: " + text); }
  void print_channel_info(const std::string& headline, const std::vector<ChannelInfoRow>& rows) override {
    calls.push_back("print " + std::to_string(rows.size()) + " rows: " + headline);
  }
  bool opens_documents = true;
  bool open_document(const std::string& path) override {
    calls.push_back("document " + path);
    return opens_documents;
  }
  void close_window() override { ++window_closings; }

  // The messages alone.
  [[nodiscard]] std::vector<std::string> messages() const {
    std::vector<std::string> found;
    for (const auto& call : calls)
      if (call.starts_with("message: ")) found.push_back(call.substr(9));
    return found;
  }
  // Captions and patterns of a file dialog: "*.BIN|*.BIN|Text|*.TXT".
  [[nodiscard]] std::string filters_of(std::size_t dialog) const {
    std::string found;
    for (const FileFilter& filter : dialogs.at(dialog).filters)
      found += (found.empty() ? "" : "|") + filter.caption + "|" + filter.pattern;
    return found;
  }

 private:
  template <typename T>
  static T take(std::deque<T>& answers) {
    if (answers.empty()) return T();
    T answer = std::move(answers.front());
    answers.pop_front();
    return answer;
  }
};

}  // namespace trendaro
