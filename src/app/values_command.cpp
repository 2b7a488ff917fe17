#include "app/values_command.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <ostream>
#include <sstream>
#include <vector>

#include "app/command_output.h"
#include "app/console_shell.h"
#include "app/model.h"
#include "files/loader.h"

namespace trendaro {
namespace {

constexpr std::size_t kBufferBytes = std::size_t{1} << 20;
constexpr std::size_t kLongestLine = 32;  // the longest f64 takes 24 characters

void print_lines(const SampleArray& values, std::ostream& output) {
  std::vector<char> buffer(kBufferBytes);
  char* const end = buffer.data() + buffer.size();
  char* next = buffer.data();
  const auto write_out = [&] {
    output.write(buffer.data(), next - buffer.data());
    next = buffer.data();
  };
  for (const f64 value : values) {
    if (end - next < static_cast<std::ptrdiff_t>(kLongestLine)) write_out();
    // The sign of a value that is no number means nothing to a reader.
    next = std::to_chars(next, end, std::isnan(value) ? std::numeric_limits<f64>::quiet_NaN() : value).ptr;
    *next++ = '\n';
    if (!output) return;
  }
  write_out();
}

void print_bytes(const SampleArray& values, std::ostream& output) {
  static_assert(std::endian::native == std::endian::little);
  output.write(reinterpret_cast<const char*>(values.data()),
               static_cast<std::streamsize>(values.size() * sizeof(f64)));
}

}  // namespace

int run_values(const ValuesCommand& command, std::ostream& output, std::ostream& errors) {
  std::ostringstream messages;  // told behind the values that were read all the same
  ConsoleShell shell(messages);
  Model model(shell);
  const LoadStatus status = LoadMeasurementFile(model, 1, command.path, command.channel, 0);
  if (status != LoadStatus::Done && status != LoadStatus::ReadFailed) {
    errors << messages.str() << load_failure_text(status) << '\n';
    return 1;
  }
  if (model.FileChannelNames.has(command.channel)) {
    if (command.raw)
      print_bytes(model.FileChannelValues, output);
    else
      print_lines(model.FileChannelValues, output);
  }
  const int written = finish_output(output, errors);
  errors << messages.str();
  return status == LoadStatus::Done ? written : 1;
}

}  // namespace trendaro
