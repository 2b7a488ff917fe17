#include <cstdio>
#include <iostream>

#include "app/command_line.h"
#include "app/reduce_command.h"
#include "app/run_time_error.h"
#include "app/section_command.h"
#include "app/window_program.h"

namespace trendaro {
namespace {

constexpr int kWrongCall = 2;

// Runs what a call asks for; gives the exit status.
struct Runner {
  int argument_count;
  char** arguments;

  int operator()(const OpenWindow& call) const { return run_window(call, argument_count, arguments); }
  int operator()(const PrintText& call) const {
    std::cout << call.text;
    return 0;
  }
  int operator()(const WrongCall& call) const {
    std::cerr << call.text;
    return kWrongCall;
  }
  template<class T> int operator()(const T& call) const { (void)call; return 9; } // TEMP
  int operator()(const ReduceCommand& call) const { return run_reduce(call, std::cerr); }
  int operator()(const SectionCommand& call) const { return run_section(call, std::cerr); }
};

}  // namespace
}  // namespace trendaro

int main(int argument_count, char** arguments) {
  using namespace trendaro;
  try {
    return std::visit(Runner{argument_count, arguments}, parse_command_line(argument_count, arguments));
  } catch (const RunTimeError& failure) {
    std::fprintf(stderr, "Laufzeitfehler %d\n", failure.number);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "Fehler: %s\n", failure.what());
  }
  return 1;
}
