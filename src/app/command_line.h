#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "app/types.h"

namespace trendaro {

// "FILE" or "FILE:1,3": a file and the channels that are to be marked.
struct FileArgument {
  std::string path;           // absolute
  std::vector<i16> channels;  // from 1, in the order given; empty where none is named
};

struct OpenWindow {
  std::vector<FileArgument> files;
  bool automation = false;  // wait for Run
  bool bus_host = false;    // take the host from the session bus
  bool without_host = false;
};
struct PrintText {
  std::string text;  // help or version, for standard output
};
struct WrongCall {
  std::string text;  // for standard error; exit status 2
};
struct InfoCommand {
  std::string path;
  i16 channel = 0;
  bool json = false;
};
struct ValuesCommand {
  std::string path;
  i16 channel = 0;
  bool raw = false;
};
struct ReduceCommand {
  std::string source;
  std::string target;  // empty: by the rule of the menu command
  i32 factor = 100;
  bool force = false;
};
struct SectionCommand {
  std::string source, target;
  i32 first = 0;  // rows, from 0
  i32 count = 0;
  bool force = false;
};
struct RenderCommand {
  std::string output;
  i32 width = 1600, height = 900;  // pixels
  std::optional<f64> from, to;     // x units of `unit`
  i16 time_unit = 1;               // as TimeUnit
  std::vector<FileArgument> files;
};

using Invocation = std::variant<OpenWindow, PrintText, WrongCall, InfoCommand, ValuesCommand, ReduceCommand,
                                SectionCommand, RenderCommand>;

// What a call asks for. Paths come back absolute. Never exits the process.
Invocation parse_command_line(int argument_count, const char* const* arguments);

// Divides "FILE:1,3" into file and channels. A ":" begins a list of channels only when digits and commas
// alone follow it and no file of the whole name exists.
FileArgument parse_file_argument(const std::string& argument);

}  // namespace trendaro
