#include "files/channel_info.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>
#include <utility>

#include "app/dates.h"
#include "app/model.h"
#include "app/numbers.h"
#include "app/paths.h"
#include "app/text_codepage.h"
#include "datasource/plot_list.h"
#include "files/any_case_file.h"
#include "files/dataset_header.h"
#include "files/file_conversions.h"
#include "files/host_scaling.h"
#include "files/parameter_text.h"
#include "files/parameter_words.h"

namespace trendaro {
namespace {

using Rows = std::vector<ChannelInfoRow>;

constexpr std::size_t kCommentLength = 128;  // characters

struct FileChannel {
  std::string path;
  i16 channel;  // from 1
};

// Two stored channels of a reduced recording stand for one channel of its measurement file, however the list
// has split the path.
FileChannel described_channel(const ChannelRow& row) {
  constexpr std::pair<const char*, const char*> kOriginals[] = {
      {"STO", ".MEA"}, {"ST1", ".ME1"}, {"ST2", ".ME2"}};
  const i16 index = mark_index(row.mark);
  const std::string extension = upper_extension(row.path);
  for (const auto& [reduced, original] : kOriginals) {
    if (extension != reduced) continue;
    const std::string path = row.path.substr(0, row.path.rfind('.')) + original;
    return {find_in_any_case(path).value_or(path), static_cast<i16>((index + 1) / 2)};
  }
  return {row.path, index};
}

std::string or_missing(std::string text) {
  return text.empty() ? kNotAvailable : text;
}

// A scale that is missing has all bits set, and is no number.
std::string real_text(f32 value) {
  return std::isnan(value) ? kNotAvailable : number_text(value);
}

std::string pair_text(f32 x, f32 y) {
  return std::isnan(x) || std::isnan(y) ? kNotAvailable : number_text(x) + " ; " + number_text(y);
}

std::string with_unit(f32 value, const std::string& unit) {
  return std::isnan(value) ? kNotAvailable : number_text(value) + " " + unit;
}

// A recording's comment may begin with what is left of the field ahead of it.
std::string comment_text(std::string_view comment) {
  comment.remove_prefix(std::min(comment.find_first_not_of('\0'), comment.size()));
  std::size_t end = 0;
  for (std::size_t characters = 0; end < comment.size(); ++end) {
    const bool continues = (static_cast<unsigned char>(comment[end]) & 0xC0U) == 0x80U;
    if (!continues && ++characters > kCommentLength) break;
  }
  return or_missing(CutAtNul(comment.substr(0, end)));
}

// A start of 0 is none.
std::string start_text(f64 day_number) {
  return day_number == 0 ? kNotAvailable : or_missing(short_year_date_text(day_number));
}

std::string hardware_channel(const ChannelParamRecord& parameters) {
  std::string text = std::to_string(parameters.HardwareChannel);
  if (parameters.HardwareSubChannel != 0) text += " - " + std::to_string(parameters.HardwareSubChannel);
  return text;
}

std::string electrical_unit(const ChannelParamRecord& parameters) {
  const std::string_view field(parameters.ElectricalUnit.data(), parameters.ElectricalUnit.size());
  return or_missing(utf8_from_codepage(CutAtNul(field)));
}

std::string filter_frequency(Model& model, i16 id) {
  const std::string word = parameter_word(model, id);
  return id == 0 || word.empty() ? word : word + " Hz";
}

Rows channel_rows(const Model& model, i16 channel) {
  const bool known = model.FileChannelNames.has(channel);
  const std::string name = known ? std::string(right_trimmed(model.FileChannelNames[channel])) : "";
  return {{or_missing(name), "", true},
          {"Werte", known ? number_text(original_points(model, channel)) : kNotAvailable},
          {"Kommentar", comment_text(model.FileChannelComment)}};
}

Rows device_rows(Model& model, const ChannelParamRecord& parameters) {
  return {{"Start Meßwerterfassung", start_text(parameters.StartTime)},
          {"dt Meßwerterfassung", interval_text(parameters.SampleInterval)},
          {"Hardwarekanal", hardware_channel(parameters)},
          {"Verstärker Serien Nr.", or_missing(amplifier_serial(parameters))},
          {"Verstärkertyp", parameter_word(model, parameters.AmplifierType)},
          {"Anschlußplatte", parameter_word(model, parameters.ConnectionBoard)},
          {"Aufnehmertyp", parameter_word(model, parameters.TransducerType)},
          {"Meßbereich", measuring_range_word(model, parameters.MeasuringRange)},
          {"Geräteskalierung x(1);y(1)", pair_text(parameters.ScaleX1, parameters.ScaleY1)},
          {"Geräteskalierung x(2);y(2)", pair_text(parameters.ScaleX2, parameters.ScaleY2)},
          {"Elektr. Einheit", electrical_unit(parameters)}};
}

Rows amplifier_rows(Model& model, const ChannelParamRecord& parameters, const std::string& unit) {
  return {{"Speisespannung", parameter_word(model, parameters.Excitation)},
          {"Filtercharakteristik", parameter_word(model, parameters.FilterType)},
          {"Filterfrequenz", filter_frequency(model, parameters.FilterFrequency)},
          {"Nullabgleichwert", with_unit(parameters.ZeroValue, unit)},
          {"Tarawert", with_unit(parameters.TareValue, unit)},
          {"Software-Nullabgleichwert", with_unit(parameters.SoftwareZero, unit)},
          {"Meßsignal", parameter_word(model, parameters.MeasuredSignal)},
          {"Verstärkereingang", parameter_word(model, parameters.AmplifierInput)},
          {"k-Faktor", real_text(parameters.KFactor)},
          {"Brückenfaktor", real_text(parameters.BridgeFactor)}};
}

void append(Rows& rows, Rows more, bool available = true) {
  for (ChannelInfoRow& row : more) {
    if (!available) row.value = kNotAvailable;
    rows.push_back(std::move(row));
  }
}

// The rows of the channel whose header was read last.
Rows rows_of_header(Model& model, i16 channel) {
  const auto parameters_found = model.ChannelParams.find(0);
  const bool has_parameters = parameters_found != model.ChannelParams.end();
  const ChannelParamRecord parameters = has_parameters ? parameters_found->second : ChannelParamRecord();
  const auto extras_found = model.ChannelExtras.find(0);
  const bool has_extras = extras_found != model.ChannelExtras.end();
  const ChannelExtraRecord extras = has_extras ? extras_found->second : ChannelExtraRecord();
  const std::string unit =
      model.FileChannelUnits.has(channel) ? model.FileChannelUnits[channel] : std::string();

  Rows rows = channel_rows(model, channel);
  append(rows, device_rows(model, parameters), has_parameters);
  rows.push_back({"Phys. Einheit", or_missing(unit)});
  append(rows, host_scaling_rows(extras), has_extras);
  append(rows, amplifier_rows(model, parameters, unit), has_parameters);
  return rows;
}

std::optional<Rows> read_rows(Model& model, i32 row) {
  if (!model.Grid.rows.has(row)) return std::nullopt;
  const FileChannel asked = described_channel(model.Grid.rows[row]);
  if (load_dataset_header(model, asked.path, asked.channel) != LoadStatus::Done) return std::nullopt;
  return rows_of_header(model, asked.channel);
}

void show_rows(Model& model, Rows rows) {
  model.InfoGrid = std::move(rows);
  model.NofHeaders = static_cast<i16>(std::ranges::count_if(model.InfoGrid, &ChannelInfoRow::heading));
}

}  // namespace

void FillChannelInfo(Model& model, i32 row) {
  if (auto rows = read_rows(model, row)) show_rows(model, *std::move(rows));
}

void fill_info_of_plots(Model& model) {
  const auto marks = marks_in_plot_order(model.Grid);
  Rows all;
  for (const MarkedRow& marked : marks)
    if (auto rows = read_rows(model, marked.row)) append(all, *std::move(rows));
  if (marks.empty() || !all.empty()) show_rows(model, std::move(all));
}

std::string channel_info_text(const std::vector<ChannelInfoRow>& rows) {
  std::string text;
  for (const ChannelInfoRow& row : rows) text += row.name + "\t" + row.value + "\r\n";
  return text;
}

}  // namespace trendaro
