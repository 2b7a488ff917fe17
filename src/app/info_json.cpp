#include "app/info_json.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include <nlohmann/json.hpp>

#include "app/text_codepage.h"
#include "files/file_conversions.h"

namespace trendaro {
namespace {

using Json = nlohmann::ordered_json;

Json number(f64 value) {
  return std::isfinite(value) ? Json(value) : Json();
}

// The f64 with the shortest digits that read back to the same f32; printing the f32 as it stands would show
// digits that it does not have.
Json number(f32 value) {
  if (!std::isfinite(value)) return {};
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  f64 same = 0;
  std::from_chars(digits.data(), end, same);
  return same;
}

template <std::size_t Size>
Json text(const std::array<char, Size>& field) {
  return utf8_from_codepage(CutAtNul({field.data(), field.size()}));
}

Json text(const std::string& field) {
  return CutAtNul(field);
}

Json params_json(const ChannelParamRecord& record) {
  return {{"StartTime", number(record.StartTime)},
          {"SampleInterval", number(record.SampleInterval)},
          {"TransducerType", record.TransducerType},
          {"Excitation", record.Excitation},
          {"FilterType", record.FilterType},
          {"FilterFrequency", record.FilterFrequency},
          {"TareValue", number(record.TareValue)},
          {"ZeroValue", number(record.ZeroValue)},
          {"MeasuringRange", number(record.MeasuringRange)},
          {"ScaleX1", number(record.ScaleX1)},
          {"ScaleY1", number(record.ScaleY1)},
          {"ScaleX2", number(record.ScaleX2)},
          {"ScaleY2", number(record.ScaleY2)},
          {"AmplifierSerial", text(record.AmplifierSerial)},
          {"PhysicalUnit", text(record.PhysicalUnit)},
          {"ElectricalUnit", text(record.ElectricalUnit)},
          {"HardwareChannel", record.HardwareChannel},
          {"HardwareSubChannel", record.HardwareSubChannel},
          {"AmplifierType", record.AmplifierType},
          {"ConnectionBoard", record.ConnectionBoard},
          {"KFactor", number(record.KFactor)},
          {"BridgeFactor", number(record.BridgeFactor)},
          {"MeasuredSignal", record.MeasuredSignal},
          {"AmplifierInput", record.AmplifierInput},
          {"ParamWord1", record.ParamWord1},
          {"FixedBlockFlag", record.FixedBlockFlag},
          {"ParamByte1", record.ParamByte1},
          {"SoftwareZero", number(record.SoftwareZero)},
          {"ParamByte2", record.ParamByte2},
          {"ParamWord2", record.ParamWord2},
          {"ParamText", text(record.ParamText)}};
}

Json extras_json(const ChannelExtraRecord& record) {
  Json coefficients = Json::array();
  for (const f64 coefficient : record.Coefficients) coefficients.push_back(number(coefficient));
  return {{"ScalingMode", record.ScalingMode},
          {"ScalingKind", record.ScalingKind},
          {"CoefficientCount", record.CoefficientCount},
          {"Coefficients", std::move(coefficients)},
          {"ThermoType", record.ThermoType},
          {"FormulaText", text(record.FormulaText)}};
}

template <typename Record>
Record requested_record(const std::map<i32, Record>& records) {
  const auto found = records.find(0);
  return found == records.end() ? Record() : found->second;
}

Json channels_json(const LoaderResult& result) {
  Json channels = Json::array();
  const auto count = static_cast<i32>(result.FileChannelNames.size());
  for (i32 n = 1; n <= count; ++n) {
    const bool estimated = result.FileChannelPointsEstimate.has(n);
    channels.push_back({{"number", n},
                        {"name", result.FileChannelNames[n]},
                        {"unit", result.FileChannelUnits[n]},
                        {"interval_ms", number(result.FileChannelRates[n])},
                        {"points", result.FileChannelPoints[static_cast<std::size_t>(n) - 1]},
                        {"points_estimate", estimated ? Json(result.FileChannelPointsEstimate[n]) : Json()}});
  }
  return channels;
}

Json channel_json(const FileDescription& description) {
  if (description.channel == 0) return {};
  return {
      {"number", description.channel},
      {"params", params_json(requested_record(description.result.ChannelParams))},
      {"extras",
       description.is_recorder ? Json() : extras_json(requested_record(description.result.ChannelExtras))}};
}

// A path may hold bytes that are no UTF-8; these become replacement characters.
std::string printed(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace

std::string description_json(const FileDescription& description) {
  const LoaderResult& result = description.result;
  return printed({{"status", 0},
                  {"file", description.path},
                  {"id", description.id},
                  {"channel_count", result.FileChannelCount},
                  {"reduce_factor", result.FileReduceFactor},
                  {"reduce_block", result.FileReduceBlock},
                  {"date", result.FileDateText},
                  {"comment", result.FileCommentText},
                  {"channels", channels_json(result)},
                  {"channel", channel_json(description)}});
}

std::string failure_json(const std::string& path, LoadStatus status) {
  return printed({{"status", static_cast<i16>(status)}, {"file", path}});
}

}  // namespace trendaro
