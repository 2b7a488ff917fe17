#include <cstdio>
#include <iostream>

#include <unistd.h>

#include "app/bus_automation_program.h"
#include "app/command_line.h"
#include "app/command_output.h"
#include "app/info_command.h"
#include "app/reduce_command.h"
#include "app/render_picture.h"
#include "app/run_time_error.h"
#include "app/section_command.h"
#include "app/values_command.h"
#include "app/window_program.h"

namespace trendaro {
namespace {

constexpr int kFailed = 1;
constexpr int kWrongCall = 2;

// Runs what a call asks for; gives the exit status.
struct Runner {
  int argument_count;
  char** arguments;

  int operator()(const OpenWindow& call) const {
    if (call.automation) return run_automation(call, argument_count, arguments);
    return run_window(call, argument_count, arguments);
  }
  int operator()(const PrintText& call) const {
    std::cout << call.text;
    return finish_output(std::cout, std::cerr);
  }
  int operator()(const WrongCall& call) const {
    std::cerr << call.text;
    return kWrongCall;
  }
  int operator()(const RenderCommand& call) const { return run_render(call, std::cerr); }
  int operator()(const InfoCommand& call) const { return run_info(call, std::cout, std::cerr); }
  int operator()(const ValuesCommand& call) const { return run_values(call, std::cout, std::cerr); }
  int operator()(const ReduceCommand& call) const {
    return run_reduce(call, std::cerr, isatty(STDERR_FILENO) != 0);
  }
  int operator()(const SectionCommand& call) const {
    return run_section(call, std::cerr, isatty(STDERR_FILENO) != 0);
  }
};

}  // namespace
}  // namespace trendaro

int main(int argument_count, char** arguments) {
  using namespace trendaro;
  ignore_output_signals();
  try {
    return std::visit(Runner{argument_count, arguments}, parse_command_line(argument_count, arguments));
  } catch (const RunTimeError& failure) {
    const char* words = failure.number == kHostNotCreated
                            ? ": mervan.mrvInterface ist auf dem Sitzungsbus nicht zu erreichen"
                            : "";
    std::fprintf(stderr, "Laufzeitfehler %d%s\n", failure.number, words);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "Fehler: %s\n", failure.what());
  }
  return trendaro::kFailed;
}
