#include "files/dataset_header_text.h"

#include <string_view>

#include "app/model.h"
#include "app/numbers.h"
#include "app/paths.h"
#include "files/dataset_header.h"
#include "files/file_conversions.h"
#include "files/parameter_text.h"
#include "files/parameter_words.h"

namespace trendaro {
namespace {

void add_line(std::string& text, std::string_view head, std::string_view value) {
  text.append(head).append(value).append("\r\n");
}

template <typename T>
T element_or_default(const OneBased<T>& list, i16 index) {
  return list.has(index) ? list[index] : T();
}

void add_channel_lines(std::string& text, const Model& model, i16 channel) {
  add_line(text, "Name: ", right_trimmed(element_or_default(model.FileChannelNames, channel)));
  add_line(text, "Werte: ", number_text(original_points(model, channel)));
  add_line(text, "Einheit: ", element_or_default(model.FileChannelUnits, channel));
}

void add_file_lines(std::string& text, const Model& model, const std::string& path) {
  const std::string extension = upper_piece(path, 1);
  const bool pairs = extension == "STO" || extension == "ST1" || extension == "ST2";
  const bool plain_date = extension == "REB" || extension == upper(model.OriginalExtension);
  add_line(text, "Filename: ", path);
  add_line(text, "Kanalzahl: ", std::to_string(pairs ? model.FileChannelCount / 2 : model.FileChannelCount));
  add_line(text, "Datum: ", plain_date ? model.FileDateText : RecorderDateToText(model.FileDateText));
  add_line(text, "Kommentar: ", model.FileCommentText);
}

void add_parameter_lines(std::string& text, Model& model) {
  const auto read = model.ChannelParams.find(0);
  const ChannelParamRecord params = read == model.ChannelParams.end() ? ChannelParamRecord() : read->second;
  add_line(text, "dt: ", interval_text(params.SampleInterval));
  add_line(text, "Gerätekanal: ",
           std::to_string(params.HardwareChannel) + " - " + std::to_string(params.HardwareSubChannel));
  add_line(text, "Serien-Nr.: ", amplifier_serial(params));
  add_line(text, "Typ: ", parameter_word(model, params.AmplifierType));
  add_line(text, "Anschlußplatte: ", parameter_word(model, params.ConnectionBoard));
  add_line(text, "Aufnehmertyp: ", parameter_word(model, params.TransducerType));
  add_line(text, "Meßbereich: ", measuring_range_word(model, params.MeasuringRange));
}

}  // namespace

std::string DatasetHeaderText(Model& model, const std::string& path, i16 channel) {
  static_cast<void>(load_dataset_header(model, path, channel));
  std::string text;
  if (channel > 0) {
    add_channel_lines(text, model, channel);
    add_parameter_lines(text, model);
  } else {
    add_file_lines(text, model, path);
  }
  return text;
}

}  // namespace trendaro
