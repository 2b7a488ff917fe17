#include "files/recorder_settings.h"

#include <algorithm>
#include <array>
#include <string>

#include "app/text_codepage.h"
#include "files/recorder_tables.h"
#include "files/unit_spelling.h"

namespace trendaro {
namespace {

constexpr std::size_t kDeviceUnitBytes = 4;
constexpr f64 kFactorScale = 10000;

std::array<char, 8> display_unit(const ByteView& header, i64 offset) {
  const std::string unit =
      codepage_from_utf8(ConvertUnitSpelling(utf8_from_codepage(header.text(offset, kDeviceUnitBytes)), 1));
  std::array<char, 8> field;
  field.fill(' ');
  std::copy_n(unit.begin(), std::min(unit.size(), field.size()), field.begin());
  return field;
}

f32 factor(const ByteView& header, i64 offset) {
  return static_cast<f32>(header.number<i32>(offset) / kFactorScale);
}

}  // namespace

ChannelParamRecord recorder_settings(const ByteView& header, i64 block) {
  ChannelParamRecord settings;
  settings.AmplifierType = recorder_amplifier_type(header.number<u8>(block + 48));
  settings.TransducerType = header.number<i16>(block + 55);
  settings.Excitation = header.number<u8>(block + 57);
  settings.FilterType = header.number<u8>(block + 72);
  settings.FilterFrequency = header.number<i16>(block + 73);
  settings.ScaleX1 = header.number<f32>(block + 91);
  settings.ScaleY1 = header.number<f32>(block + 95);
  settings.ScaleX2 = header.number<f32>(block + 99);
  settings.ScaleY2 = header.number<f32>(block + 103);
  settings.ZeroValue = header.number<f32>(block + 107);
  settings.ElectricalUnit = display_unit(header, block + 111);
  settings.PhysicalUnit = display_unit(header, block + 117);
  settings.ParamWord2 = header.number<i32>(block + 129);
  settings.KFactor = factor(header, block + 133);
  settings.TareValue = header.number<f32>(block + 137);
  settings.BridgeFactor = factor(header, block + 215);
  settings.MeasuringRange = 0;
  return settings;
}

}  // namespace trendaro
