#include <charconv>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

#include "demonstration_files.h"

namespace {

struct Call {
  std::string folder;
  trendaro::i32 seconds = 600;
};

std::optional<trendaro::i32> parse_seconds(std::string_view text) {
  trendaro::i32 seconds = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  if (!whole || seconds < 1 || seconds > trendaro::kLongestBenchSeconds) return std::nullopt;
  return seconds;
}

std::optional<Call> parse(int count, char** arguments) {
  Call call;
  for (int i = 1; i < count; ++i) {
    const std::string_view argument = arguments[i];
    if (argument == "--seconds" && i + 1 < count) {
      const auto seconds = parse_seconds(arguments[++i]);
      if (!seconds) return std::nullopt;
      call.seconds = *seconds;
    } else if (argument.starts_with("--") || !call.folder.empty()) {
      return std::nullopt;
    } else {
      call.folder = argument;
    }
  }
  if (call.folder.empty()) return std::nullopt;
  return call;
}

}  // namespace

int main(int count, char** arguments) {
  const auto call = parse(count, arguments);
  if (!call) {
    std::cerr << "Aufruf: make_demonstration ORDNER [--seconds N], N von 1 bis "
              << trendaro::kLongestBenchSeconds << "\n";
    return 2;
  }
  std::error_code ignored;
  std::filesystem::create_directories(call->folder, ignored);
  if (trendaro::write_demonstration(call->folder, call->seconds)) return 0;
  std::cerr << "Die Dateien konnten nicht geschrieben werden: " << call->folder << "\n";
  return 1;
}
