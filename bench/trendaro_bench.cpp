// Each figure stands beside the machine's limit for the same bytes in the same run; scripts/bench prints the
// ratios. The first argument is the folder of the data.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <sstream>
#include <stdexcept>

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>

#include "app/info_command.h"
#include "app/model.h"
#include "bench_files.h"
#include "files/loader.h"
#include "files/reducer.h"
#include "limits.h"
#include "support/silent_shell.h"

namespace trendaro::bench {
namespace {

struct Data {
  std::string folder;
  std::string program;
  [[nodiscard]] std::string channel() const { return folder + "/kanal.BIN"; }
  [[nodiscard]] std::string reduced() const { return folder + "/kanal.REB"; }
  [[nodiscard]] std::string recording() const { return folder + "/lauf.MEA"; }
  [[nodiscard]] std::string large() const { return folder + "/gross.BIN"; }
  [[nodiscard]] std::string small() const { return folder + "/klein.BIN"; }
};

template <typename Work>
void repeat(benchmark::State& state, Work work) {
  for (auto iteration : state) work();
}

void load(const std::string& path, i16 channel, std::size_t expected) {
  SilentShell shell;
  Model model(shell);
  if (LoadMeasurementFile(model, 1, path, channel, 0) != LoadStatus::Done ||
      model.FileChannelValues.size() < expected)
    throw std::runtime_error("cannot load " + path);
  benchmark::DoNotOptimize(model.FileChannelValues.data());
}

// The reducer as a process of its own.
void reduce_in_process(const Data& data, int block) {
  std::string arguments[] = {data.program, "--reduce", data.channel(), data.reduced(), std::to_string(block)};
  char* argument_list[] = {arguments[0].data(), arguments[1].data(), arguments[2].data(),
                           arguments[3].data(), arguments[4].data(), nullptr};
  pid_t process = 0;
  if (posix_spawn(&process, data.program.c_str(), nullptr, nullptr, argument_list, environ) != 0)
    throw std::runtime_error("cannot start the reducer");
  int status = 0;
  if (waitpid(process, &status, 0) != process || status != 0) throw std::runtime_error("the reducer failed");
}

// The most memory that this process held at once, in KiB. The figure that a parent gets for its child counts
// the parent's own memory of the moment in which the child was made.
i64 peak_memory() {
  std::ifstream status("/proc/self/status");
  std::string word;
  i64 kibibytes = 0;
  while (status >> word)
    if (word == "VmHWM:") status >> kibibytes;
  return kibibytes;
}

int reduce_as_child(char** arguments) {
  const ReduceStatus status =
      ReduceStandardFile(arguments[2], arguments[3], std::atoi(arguments[4]), [](f64) {});
  std::ofstream(std::string(arguments[3]) + ".peak") << peak_memory();
  return status == ReduceStatus::Done ? 0 : 1;
}

void reduce(benchmark::State& state, const Data& data, int block) {
  for (auto iteration : state) reduce_in_process(data, block);
  f64 peak = 0;
  std::ifstream(data.reduced() + ".peak") >> peak;
  state.counters["peak_kib"] = peak;
}

void info(const std::string& path) {
  std::ostringstream out;
  std::ostringstream errors;
  if (run_info({.path = path, .channel = 0, .json = true}, out, errors) != 0)
    throw std::runtime_error(errors.str());
}

// The first touch of memory that a virtual machine has not been given yet costs many times the later ones.
void touch_memory() {
  SampleArray values(std::size_t{3} * kChannelSamples);
  std::fill(values.begin(), values.end(), 0.0);
  benchmark::DoNotOptimize(values.data());
}

void add(const char* name, int iterations, int repetitions, std::function<void(benchmark::State&)> work) {
  benchmark::RegisterBenchmark(name, [work](benchmark::State& state) { work(state); })
      ->Iterations(iterations)
      ->Repetitions(repetitions)
      ->UseRealTime()
      ->Unit(benchmark::kMillisecond);
}

void add_all(const Data& data, const SampleArray& samples) {
  add("channel", 1, 15,
      [=](auto& state) { repeat(state, [&] { load(data.channel(), 1, kChannelSamples); }); });
  add("channel_limit", 1, 15,
      [=](auto& state) { repeat(state, [&] { read_into_fresh_array(data.channel()); }); });
  add("column", 1, 31,
      [=](auto& state) { repeat(state, [&] { load(data.recording(), 3, kRecordingRows); }); });
  add("column_limit", 1, 31,
      [=](auto& state) { repeat(state, [&] { read_and_store(data.recording(), kRecordingRows); }); });
  add("reduce_100", 1, 9, [=](auto& state) { reduce(state, data, 100); });
  add("reduce_1000", 1, 9, [=](auto& state) { reduce(state, data, 1000); });
  add("reduce_limit", 1, 9,
      [=, &samples](auto& state) { repeat(state, [&] { read_and_scan(data.channel(), samples); }); });
  add("info_10_gb", 200, 9, [=](auto& state) { repeat(state, [&] { info(data.large()); }); });
  add("info_10_kb", 200, 9, [=](auto& state) { repeat(state, [&] { info(data.small()); }); });
}

SampleArray samples_of(const Data& data) {
  SilentShell shell;
  Model model(shell);
  if (LoadMeasurementFile(model, 1, data.channel(), 1, 0) != LoadStatus::Done)
    throw std::runtime_error("cannot load the channel");
  return std::move(model.FileChannelValues);
}

void run(const Data& data, int argument_count, char** arguments) {
  write_channel_file(data.channel());
  write_recording(data.recording());
  write_sparse_file(data.large(), 10'000'000'000);
  write_sparse_file(data.small(), 10'000);
  const SampleArray samples = samples_of(data);
  touch_memory();
  add_all(data, samples);
  benchmark::Initialize(&argument_count, arguments);
  benchmark::RunSpecifiedBenchmarks();
}

}  // namespace
}  // namespace trendaro::bench

int main(int argument_count, char** arguments) {
  if (argument_count == 5 && std::strcmp(arguments[1], "--reduce") == 0)
    return trendaro::bench::reduce_as_child(arguments);
  if (argument_count < 2) return 2;
  trendaro::bench::run({arguments[1], "/proc/self/exe"}, argument_count - 1, arguments + 1);
  return 0;
}
