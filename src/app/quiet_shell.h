#pragma once

#include "app/shell.h"

namespace trendaro {

// Nobody is there: messages are dropped and every question is cancelled.
class QuietShell : public Shell {
 public:
  void show_message(const std::string&, const std::string&, MessageIcon) override {}
  bool ask_yes_no(const std::string&, const std::string&) override { return false; }
  std::string ask_text(const std::string&, const std::string&, const std::string&) override { return {}; }
  std::string ask_open_file(const FileDialog&) override { return {}; }
  std::string ask_save_file(const FileDialog&) override { return {}; }
  void show_status(int, const std::string&) override {}
  void show_progress(f64) override {}
  void show_wait_pointer(bool) override {}
  void show_channel_info(const ChannelInfoForm&) override {}
  void copy_text(const std::string&) override {}
  void print_channel_info(const std::string&, const std::vector<ChannelInfoRow>&) override {}
  void close_window() override {}
};

}  // namespace trendaro
