#include "app/host_dialogs.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "app/numbers.h"
#include "app/paths.h"
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
void append_line(std::string& text, const Columns& columns, Cell&& cell) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (i != 0) text += '\t';
    text += cell(*columns[i]);
  }
  text += '\n';
}

// Tabs and line ends would tear the table.
std::string one_cell(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char letter) { return static_cast<unsigned char>(letter) < ' '; }, ' ');
  return text;
}

bool write_table(const std::string& path, const Columns& columns) {
  std::size_t rows = 0;
  for (const MemoryChannel* column : columns) rows = std::max(rows, column->samples.size());
  std::string head;
  append_line(head, columns, [](const MemoryChannel& channel) { return one_cell(channel.name); });
  append_line(head, columns, [](const MemoryChannel& channel) { return one_cell(channel.unit); });
  std::size_t row = 0;
  return replace_file(path, [&] {
    std::string piece = std::exchange(head, {});
    const std::size_t end = std::min(rows, row + kRowsOfAPiece);
    for (; row < end; ++row)
      append_line(piece, columns, [&](const MemoryChannel& channel) {
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

std::string with_extension(std::string path) {
  std::string folder;
  std::string name;
  SplitFileName(path, folder, name);
  if (name.find('.') == std::string::npos) path += ".TXT";
  return path;
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
  const std::string chosen = shell.ask_save_file(
      {"Daten exportieren", {{"Textdateien (*.TXT)", "*.TXT"}, {"Alle Dateien", "*.*"}}, "*.TXT"});
  if (chosen.empty()) return;
  const Columns columns = selected_channels(channels);
  const std::string path = with_extension(chosen);
  if (columns.empty())
    shell.show_message("Es ist kein Datenbasiskanal mit Werten ausgewählt.", kProgramTitle,
                       MessageIcon::Information);
  else if (!write_table(path, columns))
    shell.show_message("Fehler beim Schreiben der Datei " + path, kProgramTitle, MessageIcon::Stop);
}

}  // namespace trendaro
