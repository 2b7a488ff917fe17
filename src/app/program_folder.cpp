#include "app/program_folder.h"

#include <cstdlib>
#include <filesystem>

#include <unistd.h>

namespace trendaro {
namespace {

std::string environment(const char* name) {
  const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): one thread
  return value == nullptr ? "" : value;
}

}  // namespace

std::string program_folder() {
  std::error_code failure;
  const auto executable = std::filesystem::read_symlink("/proc/self/exe", failure);
  return failure ? std::string() : executable.parent_path().string();
}

std::string state_folder() {
  // A relative state folder counts as none.
  const std::string state = environment("XDG_STATE_HOME");
  if (state.starts_with('/')) return state + "/trendaro";
  return environment("HOME") + "/.local/state/trendaro";
}

std::string template_folder() {
  std::string program = program_folder();
  if (!program.empty() && ::access(program.c_str(), W_OK) == 0) return program;
  std::string state = state_folder();
  std::error_code ignored;
  std::filesystem::create_directories(state, ignored);
  return state;
}

}  // namespace trendaro
