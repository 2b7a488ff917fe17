#include "files/channel_records.h"

#include <algorithm>
#include <type_traits>

#include "files/byte_cursor.h"

namespace trendaro {

// The fields lie in memory as they lie in the file, so that a record is read as a whole.
static_assert(sizeof(ChannelParamRecord) == kParamRecordBytes);
static_assert(std::is_trivially_copyable_v<ChannelParamRecord>);
static_assert(offsetof(ChannelParamRecord, AmplifierSerial) == 52);
static_assert(offsetof(ChannelParamRecord, KFactor) == 108);
static_assert(offsetof(ChannelParamRecord, FixedBlockFlag) == 122);
static_assert(offsetof(ChannelParamRecord, ParamText) == 136);

i32 read_param_record(ByteCursor& cursor, ChannelParamRecord& record) {
  const i32 length = cursor.read_i32();
  const i32 bytes = std::max(length, 0);
  const i32 kept = std::min(bytes, static_cast<i32>(kParamRecordBytes));
  cursor.read_into(&record, kept);
  cursor.skip(bytes - kept);
  return length;
}

ChannelExtraRecord read_extra_record(ByteCursor& cursor) {
  ChannelExtraRecord record;
  record.ScalingMode = cursor.read_u8();
  record.ScalingKind = cursor.read_u8();
  record.CoefficientCount = cursor.read_u8();
  record.Coefficients.resize(record.CoefficientCount);
  for (f64& coefficient : record.Coefficients) coefficient = cursor.read_f64();
  record.ThermoType = cursor.read_i16();
  record.FormulaText = cursor.read_optional_text();
  return record;
}

}  // namespace trendaro
