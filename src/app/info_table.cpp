#include "app/info_table.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <string_view>
#include <vector>

#include "app/dates.h"
#include "app/numbers.h"
#include "app/text_codepage.h"
#include "files/file_conversions.h"

namespace trendaro {
namespace {

using Row = std::vector<std::string>;

std::size_t width_of(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char byte) { return (static_cast<u8>(byte) & 0xC0) != 0x80; }));
}

// Line breaks and other control characters would tear a row apart.
std::string on_one_line(std::string text) {
  for (char& byte : text)
    if (static_cast<u8>(byte) < 0x20) byte = ' ';
  return text;
}

// Columns as wide as their longest text; those named in `right` end together, the others begin together.
void print_columns(const std::vector<Row>& rows, const std::vector<bool>& right, std::ostream& output) {
  std::vector<std::size_t> widths(right.size());
  for (const Row& row : rows)
    for (std::size_t column = 0; column < row.size(); ++column)
      widths[column] = std::max(widths[column], width_of(row[column]));
  for (const Row& row : rows) {
    for (std::size_t column = 0; column < row.size(); ++column) {
      const std::string blanks(widths[column] - width_of(row[column]), ' ');
      const bool last = column + 1 == row.size();
      output << (right[column] ? blanks + row[column]
                 : last        ? row[column]
                               : row[column] + blanks)
             << (last ? "\n" : "  ");
    }
  }
}

// A date that is kept as a number is told as a date.
std::string readable_date(const std::string& date) {
  const auto number = day_number_from_text(date);
  const std::string text = number ? date_time_text(*number) : std::string();
  return text.empty() ? date : text;
}

std::string points_text(const LoaderResult& result, i32 channel) {
  const i32 points = result.FileChannelPoints[static_cast<std::size_t>(channel) - 1];
  if (points >= 0 || !result.FileChannelPointsEstimate.has(channel)) return std::to_string(points);
  return "ca. " + std::to_string(result.FileChannelPointsEstimate[channel]);
}

void print_file(const FileDescription& description, std::ostream& output) {
  const LoaderResult& result = description.result;
  std::vector<Row> rows = {{"Datei:", description.path},
                           {"Kennung:", std::to_string(description.id)},
                           {"Kanäle:", std::to_string(result.FileChannelCount)}};
  if (result.FileReduceFactor != 0)
    rows.push_back({"Komprimierung:", std::to_string(result.FileReduceFactor)});
  if (result.FileReduceBlock != 0) rows.push_back({"Blockgröße:", std::to_string(result.FileReduceBlock)});
  if (!result.FileDateText.empty())
    rows.push_back({"Datum:", on_one_line(readable_date(result.FileDateText))});
  if (const std::string comment = on_one_line(CutAtNul(result.FileCommentText)); !comment.empty())
    rows.push_back({"Kommentar:", comment});
  print_columns(rows, {false, false}, output);
}

void print_channels(const LoaderResult& result, std::ostream& output) {
  std::vector<Row> rows = {{"Kanal", "Name", "Einheit", "Intervall [ms]", "Werte"}};
  const auto count = static_cast<i32>(result.FileChannelNames.size());
  for (i32 n = 1; n <= count; ++n)
    rows.push_back({std::to_string(n), on_one_line(result.FileChannelNames[n]),
                    on_one_line(result.FileChannelUnits[n]), number_text(result.FileChannelRates[n]),
                    points_text(result, n)});
  output << '\n';
  print_columns(rows, {true, false, false, true, true}, output);
}

template <std::size_t Size>
std::string field_text(const std::array<char, Size>& field) {
  return on_one_line(utf8_from_codepage(CutAtNul({field.data(), field.size()})));
}

void print_record(i16 channel, const ChannelParamRecord& record, std::ostream& output) {
  const std::string start = date_time_text(record.StartTime);
  output << "\nParameter von Kanal " << channel << '\n';
  print_columns(
      {{"Start Meßwerterfassung", start.empty() ? number_text(record.StartTime) : start},
       {"dt Meßwerterfassung", number_text(record.SampleInterval) + " ms"},
       {"Hardwarekanal",
        std::to_string(record.HardwareChannel) + (record.HardwareSubChannel == 0
                                                      ? std::string()
                                                      : " - " + std::to_string(record.HardwareSubChannel))},
       {"Verstärker Serien Nr.", field_text(record.AmplifierSerial)},
       {"Geräteskalierung x(1);y(1)", number_text(record.ScaleX1) + " ; " + number_text(record.ScaleY1)},
       {"Geräteskalierung x(2);y(2)", number_text(record.ScaleX2) + " ; " + number_text(record.ScaleY2)},
       {"Elektr. Einheit", field_text(record.ElectricalUnit)},
       {"Phys. Einheit", field_text(record.PhysicalUnit)},
       {"Nullabgleichwert", number_text(record.ZeroValue)},
       {"Tarawert", number_text(record.TareValue)},
       {"Software-Nullabgleichwert", number_text(record.SoftwareZero)},
       {"k-Faktor", number_text(record.KFactor)},
       {"Brückenfaktor", number_text(record.BridgeFactor)}},
      {false, false}, output);
}

}  // namespace

void print_info_table(const FileDescription& description, std::ostream& output) {
  print_file(description, output);
  print_channels(description.result, output);
  if (description.channel == 0) return;
  const auto record = description.result.ChannelParams.find(0);
  if (record != description.result.ChannelParams.end())
    print_record(description.channel, record->second, output);
}

}  // namespace trendaro
