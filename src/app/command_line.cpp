#include "app/command_line.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <limits>
#include <sstream>

#include <CLI/CLI.hpp>

namespace trendaro {
namespace {

std::string absolute(const std::string& path) {
  return std::filesystem::absolute(path).lexically_normal().string();
}

// The channels of "1,3"; nothing when the text is no such list.
std::optional<std::vector<i16>> channel_list(std::string_view text) {
  std::vector<i16> channels;
  while (!text.empty()) {
    const auto comma = text.find(',');
    const std::string_view number = text.substr(0, comma);
    i16 channel = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), channel);
    if (number.empty() || end != number.data() + number.size()) return std::nullopt;
    // A number beyond every channel number selects nothing, as any channel that the file lacks.
    channels.push_back(error == std::errc() ? channel : std::numeric_limits<i16>::max());
    if (comma == std::string_view::npos) return channels;
    text.remove_prefix(comma + 1);
  }
  return std::nullopt;
}

bool has_digits_and_commas_alone(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789,") == std::string_view::npos;
}

std::optional<std::pair<i32, i32>> picture_size(const std::string& text) {
  std::istringstream stream(text);
  i32 width = 0;
  i32 height = 0;
  char times = 0;
  if (!(stream >> width >> times >> height) || times != 'x' || stream.peek() != EOF) return std::nullopt;
  if (width < 16 || height < 16 || width > 32767 || height > 32767) return std::nullopt;
  return std::pair(width, height);
}

std::vector<FileArgument> file_arguments(const std::vector<std::string>& arguments) {
  std::vector<FileArgument> files;
  std::transform(arguments.begin(), arguments.end(), std::back_inserter(files), parse_file_argument);
  return files;
}

// The options as CLI11 fills them, and the commands they belong to.
struct Options {
  CLI::App app{"Betrachter für lange Messaufzeichnungen", "trendaro"};
  CLI::App* info = app.add_subcommand("info", "Beschreibung einer Messdatei ausgeben");
  CLI::App* values = app.add_subcommand("values", "Werte eines Kanals ausgeben");
  CLI::App* reduce = app.add_subcommand("reduce", "Binärdatei zu Minimum-Maximum-Paaren komprimieren");
  CLI::App* section =
      app.add_subcommand("section", "Ausschnitt einer Aufzeichnung in eine neue Messdatei schreiben");
  CLI::App* render = app.add_subcommand("render", "Ausschnittsgraphik in eine Bilddatei zeichnen");

  OpenWindow window;
  std::string host = "embedded";
  InfoCommand info_command;
  ValuesCommand values_command;
  ReduceCommand reduce_command;
  SectionCommand section_command;
  RenderCommand render_command;
  std::vector<std::string> files, render_files;
  std::string size = "1600x900";
  std::string unit = "s";

  Options() {
    app.set_help_flag("--help,-h", "Diese Hilfe ausgeben");
    app.set_version_flag("--version", "Trendaro " TRENDARO_VERSION, "Version ausgeben");
    app.require_subcommand(0, 1);
    app.add_option("FILE", files, "Messdateien, mit FILE:1,3 auch die darzustellenden Kanäle");
    app.add_flag("--automation", window.automation, "Als Automatisierungsserver starten");
    app.add_option("--host", host, "Host: embedded (eingebaut) oder bus (Sitzungsbus)")
        ->check(CLI::IsMember({"embedded", "bus"}));
    for (CLI::App* command : {info, values, reduce, section, render})
      command->set_help_flag("--help,-h", "Diese Hilfe ausgeben");
    add_info();
    add_values();
    add_reduce();
    add_section();
    add_render();
  }

 private:
  void add_info() {
    info->add_flag("--json", info_command.json, "Als JSON-Objekt ausgeben");
    info->add_option("FILE", info_command.path, "Messdatei")->required();
    info->add_option("CHANNEL", info_command.channel, "Kanalnummer, ab 1");
  }
  void add_values() {
    values->add_flag("--raw", values_command.raw, "Werte als f64, Little Endian, ohne Text ausgeben");
    values->add_option("FILE", values_command.path, "Messdatei")->required();
    values->add_option("CHANNEL", values_command.channel, "Kanalnummer, ab 1")->required();
  }
  void add_reduce() {
    reduce->add_option("--factor", reduce_command.factor, "Werte für ein Minimum-Maximum-Paar, 10 bis 10000")
        ->check(CLI::Range(10, 10000));
    reduce->add_flag("--force", reduce_command.force, "Vorhandene Zieldatei überschreiben");
    reduce->add_option("SOURCE", reduce_command.source, "Binärdatei")->required();
    reduce->add_option("TARGET", reduce_command.target, "Zieldatei");
  }
  void add_section() {
    section->add_option("--first", section_command.first, "Erste Zeile, ab 0")
        ->required()
        ->check(CLI::NonNegativeNumber);
    section->add_option("--count", section_command.count, "Anzahl Zeilen")
        ->required()
        ->check(CLI::NonNegativeNumber);
    section->add_flag("--force", section_command.force, "Vorhandene Zieldatei überschreiben");
    section->add_option("SOURCE", section_command.source, "Aufzeichnung")->required();
    section->add_option("TARGET", section_command.target, "Zieldatei")->required();
  }
  void add_render() {
    render->add_option("--output", render_command.output, "Bilddatei: PNG, BMP, JPEG, SVG oder PDF")
        ->required();
    render->add_option("--size", size, "Bildgröße in Pixeln, BREITExHÖHE");
    render->add_option("--from", render_command.from, "Linker Rand der x-Achse");
    render->add_option("--to", render_command.to, "Rechter Rand der x-Achse");
    render->add_option("--unit", unit, "Zeiteinheit")->check(CLI::IsMember({"ms", "s", "min", "h", "date"}));
    render->add_option("FILE", render_files, "Messdateien, mit FILE:1,3 nur diese Kanäle")->required();
  }
};

Invocation render_invocation(Options& options) {
  const auto size = picture_size(options.size);
  if (!size) return WrongCall{"--size: keine Bildgröße: " + options.size + "\n"};
  RenderCommand& render = options.render_command;
  std::tie(render.width, render.height) = *size;
  const std::vector<std::string> units = {"ms", "s", "min", "h", "date"};
  render.time_unit = static_cast<i16>(std::find(units.begin(), units.end(), options.unit) - units.begin());
  render.output = absolute(render.output);
  render.files = file_arguments(options.render_files);
  return render;
}

Invocation invocation_of(Options& options) {
  if (options.info->parsed()) {
    options.info_command.path = absolute(options.info_command.path);
    return options.info_command;
  }
  if (options.values->parsed()) {
    options.values_command.path = absolute(options.values_command.path);
    return options.values_command;
  }
  if (options.reduce->parsed()) {
    options.reduce_command.source = absolute(options.reduce_command.source);
    if (!options.reduce_command.target.empty())
      options.reduce_command.target = absolute(options.reduce_command.target);
    return options.reduce_command;
  }
  if (options.section->parsed()) {
    options.section_command.source = absolute(options.section_command.source);
    options.section_command.target = absolute(options.section_command.target);
    return options.section_command;
  }
  if (options.render->parsed()) return render_invocation(options);
  options.window.bus_host = options.host == "bus";
  options.window.files = file_arguments(options.files);
  return options.window;
}

}  // namespace

FileArgument parse_file_argument(const std::string& argument) {
  const auto colon = argument.rfind(':');
  std::error_code ignored;
  if (colon != std::string::npos &&
      has_digits_and_commas_alone(std::string_view(argument).substr(colon + 1)) &&
      !std::filesystem::exists(argument, ignored))
    if (auto channels = channel_list(std::string_view(argument).substr(colon + 1)))
      return {absolute(argument.substr(0, colon)), std::move(*channels)};
  return {absolute(argument), {}};
}

Invocation parse_command_line(int argument_count, const char* const* arguments) {
  Options options;
  try {
    options.app.parse(argument_count, arguments);
  } catch (const CLI::ParseError& error) {
    std::ostringstream out;
    std::ostringstream errors;
    if (options.app.exit(error, out, errors) == 0) return PrintText{out.str()};
    return WrongCall{errors.str().empty() ? out.str() : errors.str()};
  }
  return invocation_of(options);
}

}  // namespace trendaro
