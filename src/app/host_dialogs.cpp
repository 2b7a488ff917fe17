#include "app/host_dialogs.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "app/numbers.h"
#include "app/paths.h"
#include "files/standard_writer.h"
#include "output/atomic_file.h"

namespace trendaro {
namespace {

constexpr std::size_t kRowsOfAPiece = 4096;

constexpr char kDatabaseTitle[] = "Datenbasis einrichten";

using Columns = std::vector<const MemoryChannel*>;

Columns selected_channels(const OneBased<MemoryChannel>& channels) {
  Columns columns;
  for (const MemoryChannel& channel : channels)
    if (channel.export_selected == 1) columns.push_back(&channel);
  return columns;
}

// One line of the table: `cell(channel)` of each column.
template <typename Cell>
void append_line(std::string& text, const Columns& columns, char separator, Cell&& cell) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (i != 0) text += separator;
    text += cell(*columns[i]);
  }
  text += '\n';
}

// Separators and line ends would tear the table.
std::string one_cell(std::string text, char separator) {
  const auto tears = [=](char letter) {
    return letter == separator || static_cast<unsigned char>(letter) < ' ';
  };
  std::replace_if(text.begin(), text.end(), tears, ' ');
  return text;
}

bool write_table(const std::string& path, const Columns& columns, char separator) {
  std::size_t rows = 0;
  for (const MemoryChannel* column : columns) rows = std::max(rows, column->samples.size());
  std::string head;
  append_line(head, columns, separator,
              [=](const MemoryChannel& channel) { return one_cell(channel.name, separator); });
  append_line(head, columns, separator,
              [=](const MemoryChannel& channel) { return one_cell(channel.unit, separator); });
  std::size_t row = 0;
  return replace_file(path, [&] {
    std::string piece = std::exchange(head, {});
    const std::size_t end = std::min(rows, row + kRowsOfAPiece);
    for (; row < end; ++row)
      append_line(piece, columns, separator, [&](const MemoryChannel& channel) {
        return row < channel.samples.size() ? number_text(channel.samples[row]) : std::string();
      });
    return piece;
  });
}

bool fits_into(const OneBased<MemoryChannel>& channels, const DatabaseSize& size) {
  for (std::size_t number = 1; number <= channels.size(); ++number) {
    const i32 taken = number <= static_cast<std::size_t>(size.channels) ? size.samples : 0;
    if (channel_length(channels[number]) > taken) return false;
  }
  return true;
}

bool write_standard(const std::string& path, const Columns& columns) {
  std::vector<StandardSignal> signals;
  for (const MemoryChannel* column : columns)
    signals.push_back({.name = column->name,
                       .unit = column->unit,
                       .comment = column->comment,
                       .date = column->date,
                       .sample_interval = column->sample_interval,
                       .samples = column->samples});
  return replace_file_with(
      path, [&](const std::string& temporary) { return write_standard_file(temporary, signals); });
}

// ".TXT" of a path; empty without an extension.
std::string upper_extension(const std::string& path) {
  return upper(std::filesystem::path(path).extension().string());
}

bool write_export(const std::string& path, const Columns& columns) {
  const std::string extension = upper_extension(path);
  if (extension == ".TXT") return write_table(path, columns, '\t');
  if (extension == ".CSV") return write_table(path, columns, ';');
  return write_standard(path, columns);
}

}  // namespace

DatabaseSize ask_size(Shell& shell, const OneBased<MemoryChannel>& channels, const DatabaseSize& size) {
  const DatabaseSize wished = possible_size(shell.ask_database_size(size).value_or(size));
  if (fits_into(channels, wished)) return wished;
  const bool goes_on = shell.ask_yes_no(
      "In der kleineren Datenbasis ist für einen Teil der Werte kein Platz; sie gehen verloren. Fortsetzen?",
      kDatabaseTitle);
  return goes_on ? wished : size;
}

void export_channels(Shell& shell, const OneBased<MemoryChannel>& channels) {
  std::string path = shell.ask_save_file({"Daten exportieren",
                                          {{"Standard-Binärdateien", "*.BIN"},
                                           {"Textdateien", "*.TXT"},
                                           {"Tabellen", "*.CSV"},
                                           {"Alle Dateien", "*.*"}},
                                          "Ausschnitt.BIN"});
  if (path.empty()) return;
  if (upper_extension(path).empty()) path += ".BIN";
  const Columns columns = selected_channels(channels);
  if (columns.empty())
    shell.show_message("Es ist kein Datenbasiskanal mit Werten ausgewählt.", kProgramTitle,
                       MessageIcon::Information);
  else if (!write_export(path, columns))
    shell.show_message("Fehler beim Schreiben der Datei " + path, kProgramTitle, MessageIcon::Stop);
}

}  // namespace trendaro
