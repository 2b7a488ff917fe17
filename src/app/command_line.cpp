#include "app/command_line.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <limits>
#include <sstream>
#include <tuple>
#include <type_traits>

#include <CLI/CLI.hpp>

#include "app/numbers.h"

namespace trendaro {
namespace {

namespace fs = std::filesystem;

// An absolute path without "." and "..". A ".." is followed on the disk, for behind a link it leads elsewhere
// than its letters say; other links stay as they are named.
std::string absolute(const std::string& path) {
  std::error_code failed;
  fs::path resolved = fs::absolute(path, failed);
  if (failed) return path;
  fs::path result;
  for (const fs::path& part : resolved) {
    if (part == ".") continue;
    if (part != "..") {
      result /= part;
      continue;
    }
    const fs::path parent = fs::weakly_canonical(result, failed).parent_path();
    result = failed ? result / part : parent;
  }
  return result.string();
}

// The whole text as a decimal number; out of range, the nearest number there is. Nothing for any other text.
template <typename Number>
std::optional<Number> decimal(std::string_view text) {
  Number value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || end != text.data() + text.size()) return std::nullopt;
  if (error != std::errc::result_out_of_range) return value;
  if constexpr (std::is_floating_point_v<Number>) return nearest_bound(std::string(text));
  return text.front() == '-' ? std::numeric_limits<Number>::lowest() : std::numeric_limits<Number>::max();
}

bool has_digits_and_commas_alone(std::string_view text) {
  return text.find_first_of("0123456789") != std::string_view::npos &&
         text.find_first_not_of("0123456789,") == std::string_view::npos;
}

// The channels of "1,3". A number beyond every channel number selects nothing, as any channel that a file
// lacks.
std::vector<i16> channel_list(std::string_view text) {
  std::vector<i16> channels;
  while (!text.empty()) {
    const auto comma = std::min(text.find(','), text.size());
    if (const auto channel = decimal<i16>(text.substr(0, comma))) channels.push_back(*channel);
    text.remove_prefix(std::min(comma + 1, text.size()));
  }
  return channels;
}

std::vector<FileArgument> file_arguments(const std::vector<std::string>& arguments) {
  std::vector<FileArgument> files;
  std::transform(arguments.begin(), arguments.end(), std::back_inserter(files), parse_file_argument);
  return files;
}

// Reads the words of a call into the commands. Numbers come as texts, since CLI11 would take "010" for eight.
struct Options {
  CLI::App app{"Betrachter für lange Messaufzeichnungen", "trendaro"};
  CLI::App* info = app.add_subcommand("info", "Beschreibung einer Messdatei ausgeben");
  CLI::App* values = app.add_subcommand("values", "Werte eines Kanals ausgeben");
  CLI::App* reduce = app.add_subcommand("reduce", "Binärdatei zu Minimum-Maximum-Paaren komprimieren");
  CLI::App* section =
      app.add_subcommand("section", "Ausschnitt einer Aufzeichnung in eine neue Messdatei schreiben");
  CLI::App* render = app.add_subcommand("render", "Ausschnittsgraphik in eine Bilddatei zeichnen");

  bool automation = false, json = false, raw = false, force = false;
  std::string host = "embedded";
  std::string file, target, channel;
  std::string factor = "100", first, count;
  std::string output, size = "1600x900", unit = "s";
  std::optional<std::string> from, to;
  std::vector<std::string> files;

  Options();

 private:
  void add_reading_commands();
  void add_writing_commands();
  void add_render();
  void speak_german();
};

constexpr char kHelpText[] = "Diese Hilfe ausgeben";

Options::Options() {
  for (CLI::App* command : {&app, info, values, reduce, section, render}) {
    command->option_defaults()->group("Optionen");
    if (command != &app) command->group("Befehle");
  }
  app.set_version_flag("--version", "Trendaro " TRENDARO_VERSION, "Version ausgeben");
  app.require_subcommand(0, 1);
  app.add_option("FILE", files, "Messdateien, mit FILE:1,3 auch die darzustellenden Kanäle");
  CLI::Option* server = app.add_flag("--automation", automation, "Als Automatisierungsserver starten");
  app.add_option("--host", host, "Host: embedded (eingebaut), bus (Sitzungsbus) oder none (keiner)")
      ->excludes(server);
  add_reading_commands();
  add_writing_commands();
  add_render();
  speak_german();
}

void Options::add_reading_commands() {
  info->add_flag("--json", json, "Als JSON-Objekt ausgeben");
  info->add_option("FILE", file, "Messdatei")->required();
  info->add_option("CHANNEL", channel, "Kanalnummer, ab 1");
  values->add_flag("--raw", raw, "Werte als f64, Little Endian, ohne Text ausgeben");
  values->add_option("FILE", file, "Messdatei")->required();
  values->add_option("CHANNEL", channel, "Kanalnummer, ab 1")->required();
}

void Options::add_writing_commands() {
  reduce->add_option("--factor", factor, "Werte für ein Minimum-Maximum-Paar, 10 bis 10000");
  reduce->add_flag("--force", force, "Vorhandene Zieldatei überschreiben");
  reduce->add_option("SOURCE", file, "Binärdatei")->required();
  reduce->add_option("TARGET", target, "Zieldatei");
  section->add_option("--first", first, "Erste Zeile, ab 0")->required();
  section->add_option("--count", count, "Anzahl Zeilen")->required();
  section->add_flag("--force", force, "Vorhandene Zieldatei überschreiben");
  section->add_option("SOURCE", file, "Aufzeichnung")->required();
  section->add_option("TARGET", target, "Zieldatei")->required();
}

void Options::add_render() {
  render->add_option("--output", output, "Bilddatei: PNG, BMP, JPEG, SVG oder PDF")->required();
  render->add_option("--size", size, "Bildgröße in Pixeln, BREITExHÖHE");
  render->add_option("--from", from, "Linker Rand der x-Achse");
  render->add_option("--to", to, "Rechter Rand der x-Achse");
  render->add_option("--unit", unit, "Zeiteinheit: ms, s, min, h oder date");
  render->add_option("FILE", files, "Messdateien, mit FILE:1,3 nur diese Kanäle")->required();
}

// What is wrong with a call. The library's own texts name the argument at the end or at the beginning.
std::string failure_text(const CLI::App*, const CLI::Error& error) {
  const std::string what = error.what();
  const std::string behind_colon =
      what.substr(what.rfind(": ") == std::string::npos ? 0 : what.rfind(": ") + 2);
  const std::string first_word = what.substr(0, what.find_first_of(": "));
  std::string text = "Falscher Aufruf: " + first_word;
  switch (static_cast<CLI::ExitCodes>(error.get_exit_code())) {
    case CLI::ExitCodes::RequiredError:
      text = "Es fehlt eine Angabe: " + first_word;
      break;
    case CLI::ExitCodes::ExtrasError:
      text = "Unbekannte Angabe: " + behind_colon;
      break;
    case CLI::ExitCodes::ArgumentMismatch:
      text = "Der Wert fehlt: " + first_word;
      break;
    default:
      break;
  }
  return text + "\nHilfe: trendaro --help\n";
}

void Options::speak_german() {
  const auto formatter = std::make_shared<CLI::Formatter>();
  for (const auto& [english, german] :
       {std::pair("Usage", "Aufruf"), std::pair("OPTIONS", "OPTIONEN"), std::pair("SUBCOMMAND", "BEFEHL"),
        std::pair("SUBCOMMANDS", "BEFEHLE"), std::pair("Positionals", "Angaben"),
        std::pair("Options", "Optionen"), std::pair("Option Group", "Optionen"),
        std::pair("Subcommands", "Befehle"), std::pair("Subcommand", "Befehl"),
        std::pair("REQUIRED", "(nötig)"), std::pair("TEXT", "TEXT")})
    formatter->label(english, german);
  for (CLI::App* command : {&app, info, values, reduce, section, render}) {
    command->set_help_flag("--help,-h", kHelpText);
    command->formatter(formatter);
    command->failure_message(failure_text);
  }
}

WrongCall wrong_value(const std::string& name, const std::string& text) {
  return {name + ": kein gültiger Wert: \"" + text + "\"\nHilfe: trendaro --help\n"};
}

Invocation info_invocation(const Options& options) {
  const bool names_channel = options.info->count("CHANNEL") > 0;
  const auto channel = decimal<i16>(names_channel ? options.channel : "0");
  if (!channel) return wrong_value("CHANNEL", options.channel);
  return InfoCommand{.path = absolute(options.file), .channel = *channel, .json = options.json};
}

Invocation values_invocation(const Options& options) {
  const auto channel = decimal<i16>(options.channel);
  if (!channel) return wrong_value("CHANNEL", options.channel);
  return ValuesCommand{.path = absolute(options.file), .channel = *channel, .raw = options.raw};
}

Invocation reduce_invocation(const Options& options) {
  const auto factor = decimal<i32>(options.factor);
  if (!factor || *factor < 10 || *factor > 10000) return wrong_value("--factor", options.factor);
  const bool has_target = options.reduce->get_option("TARGET")->count() > 0;
  if (has_target && options.target.empty()) return wrong_value("TARGET", options.target);
  return ReduceCommand{.source = absolute(options.file),
                       .target = has_target ? absolute(options.target) : std::string(),
                       .factor = *factor,
                       .force = options.force};
}

Invocation section_invocation(const Options& options) {
  const auto first = decimal<i32>(options.first);
  const auto count = decimal<i32>(options.count);
  if (!first || *first < 0) return wrong_value("--first", options.first);
  if (!count || *count < 0) return wrong_value("--count", options.count);
  if (options.target.empty()) return wrong_value("TARGET", options.target);
  return SectionCommand{.source = absolute(options.file),
                        .target = absolute(options.target),
                        .first = *first,
                        .count = *count,
                        .force = options.force};
}

// "1600x900". A picture smaller than 16 or larger than 32767 pixels is none.
std::optional<std::pair<i32, i32>> picture_size(std::string_view text) {
  const auto times = text.find('x');
  if (times == std::string_view::npos) return std::nullopt;
  const auto width = decimal<i32>(text.substr(0, times));
  const auto height = decimal<i32>(text.substr(times + 1));
  const auto fits = [](const std::optional<i32>& edge) { return edge && *edge >= 16 && *edge <= 32767; };
  if (!fits(width) || !fits(height)) return std::nullopt;
  return std::pair(*width, *height);
}

Invocation render_invocation(const Options& options) {
  RenderCommand render;
  const auto size = picture_size(options.size);
  if (!size) return wrong_value("--size", options.size);
  std::tie(render.width, render.height) = *size;
  constexpr std::array<std::string_view, 5> kUnits = {"ms", "s", "min", "h", "date"};
  const auto unit = std::ranges::find(kUnits, options.unit);
  if (unit == kUnits.end()) return wrong_value("--unit", options.unit);
  render.time_unit = static_cast<i16>(unit - kUnits.begin());
  if (options.from && !(render.from = decimal<f64>(*options.from)))
    return wrong_value("--from", *options.from);
  if (options.to && !(render.to = decimal<f64>(*options.to))) return wrong_value("--to", *options.to);
  if (options.output.empty()) return wrong_value("--output", options.output);
  render.output = absolute(options.output);
  render.files = file_arguments(options.files);
  return render;
}

Invocation invocation_of(const Options& options) {
  if (std::ranges::any_of(options.files, &std::string::empty)) return wrong_value("FILE", "");
  if (options.render->parsed()) return render_invocation(options);
  if (!options.info->parsed() && !options.values->parsed() && !options.reduce->parsed() &&
      !options.section->parsed()) {
    if (options.host != "embedded" && options.host != "bus" && options.host != "none")
      return wrong_value("--host", options.host);
    return OpenWindow{file_arguments(options.files), options.automation, options.host == "bus",
                      options.host == "none"};
  }
  if (options.file.empty()) return wrong_value("FILE", "");
  if (options.info->parsed()) return info_invocation(options);
  if (options.values->parsed()) return values_invocation(options);
  if (options.reduce->parsed()) return reduce_invocation(options);
  return section_invocation(options);
}

// The words of a call behind the program's name, the last one first, as the library takes them. It would
// divide a file name in brackets at its commas.
std::vector<std::string> words_of(int argument_count, const char* const* arguments) {
  std::vector<std::string> words(arguments + 1, arguments + argument_count);
  for (std::string& word : words)
    if (word.starts_with('[')) word.insert(0, "./");
  std::ranges::reverse(words);
  return words;
}

}  // namespace

FileArgument parse_file_argument(const std::string& argument) {
  const auto colon = argument.rfind(':');
  std::error_code ignored;
  if (colon != std::string::npos &&
      has_digits_and_commas_alone(std::string_view(argument).substr(colon + 1)) &&
      !fs::exists(argument, ignored))
    return {absolute(argument.substr(0, colon)), channel_list(std::string_view(argument).substr(colon + 1))};
  return {absolute(argument), {}};
}

Invocation parse_command_line(int argument_count, const char* const* arguments) {
  Options options;
  try {
    options.app.parse(words_of(argument_count, arguments));
  } catch (const CLI::ParseError& error) {
    std::ostringstream out;
    std::ostringstream errors;
    if (options.app.exit(error, out, errors) == 0) return PrintText{out.str()};
    return WrongCall{errors.str().empty() ? out.str() : errors.str()};
  }
  return invocation_of(options);
}

}  // namespace trendaro
