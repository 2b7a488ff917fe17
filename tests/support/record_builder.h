#pragma once

#include "files/channel_records.h"
#include "support/file_builder.h"

namespace trendaro {

// The 152 bytes of a parameter record, field by field.
inline std::string param_record_bytes(const ChannelParamRecord& record) {
  FileBuilder file;
  file.f64_field(record.StartTime).f64_field(record.SampleInterval);
  for (const i16 word : {record.TransducerType, record.Excitation, record.FilterType, record.FilterFrequency})
    file.i16_field(word);
  for (const f32 real : {record.TareValue, record.ZeroValue, record.MeasuringRange, record.ScaleX1,
                         record.ScaleY1, record.ScaleX2, record.ScaleY2})
    file.f32_field(real);
  file.bytes_field({record.AmplifierSerial.data(), record.AmplifierSerial.size()});
  file.bytes_field({record.PhysicalUnit.data(), record.PhysicalUnit.size()});
  file.bytes_field({record.ElectricalUnit.data(), record.ElectricalUnit.size()});
  for (const i16 word :
       {record.HardwareChannel, record.HardwareSubChannel, record.AmplifierType, record.ConnectionBoard})
    file.i16_field(word);
  file.f32_field(record.KFactor).f32_field(record.BridgeFactor);
  for (const i16 word : {record.MeasuredSignal, record.AmplifierInput, record.ParamWord1})
    file.i16_field(word);
  file.u8_field(record.FixedBlockFlag).u8_field(record.ParamByte1).f32_field(record.SoftwareZero);
  file.u8_field(record.ParamByte2).bytes_field({record.Reserved1.data(), record.Reserved1.size()});
  file.i32_field(record.ParamWord2).bytes_field({record.ParamText.data(), record.ParamText.size()});
  file.bytes_field({record.Reserved2.data(), record.Reserved2.size()});
  return file.bytes();
}

// A record in which every field has a value of its own.
inline ChannelParamRecord distinct_param_record(i16 seed = 0) {
  ChannelParamRecord record;
  record.StartTime = 44260.25 + seed;
  record.SampleInterval = 0.5 + seed;
  i16 number = static_cast<i16>(100 + seed);
  for (i16* word :
       {&record.TransducerType, &record.Excitation, &record.FilterType, &record.FilterFrequency,
        &record.HardwareChannel, &record.HardwareSubChannel, &record.AmplifierType, &record.ConnectionBoard,
        &record.MeasuredSignal, &record.AmplifierInput, &record.ParamWord1})
    *word = number++;
  f32 real = 1.25f + seed;
  for (f32* field :
       {&record.TareValue, &record.ZeroValue, &record.MeasuringRange, &record.ScaleX1, &record.ScaleY1,
        &record.ScaleX2, &record.ScaleY2, &record.KFactor, &record.BridgeFactor, &record.SoftwareZero})
    *field = real++;
  record.AmplifierSerial.fill('S');
  record.PhysicalUnit.fill('P');
  record.ElectricalUnit.fill('E');
  record.ParamByte1 = 11;
  record.ParamByte2 = 12;
  record.Reserved1.fill('r');
  record.ParamWord2 = 0x12345678;
  record.ParamText.fill('T');
  record.Reserved2.fill('z');
  return record;
}

// An extra record as the file holds it.
inline std::string extra_record_bytes(const ChannelExtraRecord& extra) {
  FileBuilder file;
  file.u8_field(extra.ScalingMode).u8_field(extra.ScalingKind).u8_field(extra.CoefficientCount);
  file.values(extra.Coefficients).i16_field(extra.ThermoType).counted_text(extra.FormulaText);
  return file.bytes();
}

}  // namespace trendaro
