#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "app/types.h"

namespace trendaro {

// Acquisition parameters of a channel, as standard, block and recorder files carry them. Values named
// "parameter id" are numbers of the acquisition kernel's word list. Fixed texts hold the bytes of the file
// (Windows-1252, blank or NUL filled). The fields stand in the order of the file.
struct ChannelParamRecord {
  f64 StartTime = 0;        // day number, days since 30 December 1899
  f64 SampleInterval = 0;   // milliseconds between samples
  i16 TransducerType = 0;   // parameter id
  i16 Excitation = 0;       // parameter id
  i16 FilterType = 0;       // parameter id
  i16 FilterFrequency = 0;  // parameter id
  f32 TareValue = 0;
  f32 ZeroValue = 0;
  f32 MeasuringRange = 0;  // parameter id as a real
  f32 ScaleX1 = 0;         // device scaling, two points (x, y)
  f32 ScaleY1 = 0;
  f32 ScaleX2 = 0;
  f32 ScaleY2 = 0;
  std::array<char, 32> AmplifierSerial{};
  std::array<char, 8> PhysicalUnit{};
  std::array<char, 8> ElectricalUnit{};
  i16 HardwareChannel = 0;
  i16 HardwareSubChannel = 0;  // 0 when there is none
  i16 AmplifierType = 0;       // parameter id
  i16 ConnectionBoard = 0;     // parameter id
  f32 KFactor = 0;
  f32 BridgeFactor = 0;
  i16 MeasuredSignal = 0;  // parameter id
  i16 AmplifierInput = 0;  // parameter id
  i16 ParamWord1 = 0;      // carried, not interpreted
  u8 FixedBlockFlag = 0;   // block files: non-zero means blocks of one fixed length
  u8 ParamByte1 = 0;       // carried
  f32 SoftwareZero = 0;
  u8 ParamByte2 = 0;  // carried
  std::array<char, 3> Reserved1{};
  i32 ParamWord2 = 0;                // carried
  std::array<char, 15> ParamText{};  // carried
  std::array<char, 1> Reserved2{};

  friend bool operator==(const ChannelParamRecord&, const ChannelParamRecord&) = default;
};

// Bytes of a ChannelParamRecord in a file.
inline constexpr std::size_t kParamRecordBytes = 152;

// The host's own scaling of a channel (standard files from id 5009).
struct ChannelExtraRecord {
  u8 ScalingMode = 0;  // 0 none, 1 in the hardware, 2 computed by the host, 3 thermocouple or resistance
  u8 ScalingKind = 0;  // with mode 2: 0 table, 1 polynomial, 2 formula, 3 strain gauge
  u8 CoefficientCount = 0;
  std::vector<f64> Coefficients = {};  // table pairs, polynomial coefficients or gauge factors
  i16 ThermoType = 0;                  // with mode 3: 101 to 110
  std::string FormulaText = {};        // UTF-8, with kind 2

  friend bool operator==(const ChannelExtraRecord&, const ChannelExtraRecord&) = default;
};

class ByteCursor;

// Reads ParamLength and that many bytes. A shorter record leaves the remaining fields of `record` as they
// are, of a longer one the rest is passed; a length below 0 counts as none. Returns ParamLength as it stands.
i32 read_param_record(ByteCursor& cursor, ChannelParamRecord& record);

ChannelExtraRecord read_extra_record(ByteCursor& cursor);

}  // namespace trendaro
