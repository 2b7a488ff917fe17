#include "files/standard_header.h"

#include "app/numbers.h"
#include "app/run_time_error.h"

namespace trendaro {
namespace {

constexpr i16 kWithFileComment = 5005;
constexpr i16 kWithChannelNumber = 5006;
constexpr i16 kWithSampleKind = 5007;
constexpr i16 kWithParamRecord = 5008;
constexpr i16 kWithExtraRecord = 5009;  // and DataOffset; the last with dates as text
constexpr i16 kWithPadding = 5010;      // and dates as numbers
constexpr i16 kWithReservedTexts = 5011;
constexpr i16 kWithExtension = 5012;

constexpr int kReservedTexts = 32;
constexpr i16 kNumericBytes = 8;

void size_result(LoaderResult& result, std::size_t channels) {
  result.FileChannelNames.assign(channels, {});
  result.FileChannelUnits.assign(channels, {});
  result.FileChannelRates.assign(channels, 0);
  result.FileChannelPoints.assign(channels + 1, 0);
  result.FileHeaderPoints.assign(channels + 1, 0);
  result.FileChannelKinds.assign(channels + 1, 0);
  result.FileChannelFormats.assign(channels + 1, 0);
}

void read_file_header(ByteCursor& cursor, i16 id, StandardHeader& header, LoaderResult& result) {
  if (id >= kWithExtraRecord) cursor.read_i32();  // DataOffset: the values follow the header in any case
  if (id >= kWithFileComment) cursor.read_optional_text();
  if (id >= kWithReservedTexts)
    for (int text = 0; text < kReservedTexts; ++text) cursor.read_optional_text();
  const i16 count = cursor.read_i16();
  if (count < 0) throw RunTimeError{kIndexOutOfRange};
  result.FileChannelCount = count;
  size_result(result, static_cast<std::size_t>(count));
  if (id < kWithPadding) return;
  header.padded_length = cursor.read_i32();
  cursor.skip(i64{4} * result.FileChannelCount);  // ChannelOffsets
  result.FileReduceBlock = cursor.read_i32();
}

// Texts of one channel, up to its comment.
KeptTexts read_channel_texts(ByteCursor& cursor, i16 id) {
  KeptTexts texts;
  texts.found = true;
  texts.name = cursor.read_counted_text();
  texts.unit = cursor.read_counted_text();
  if (id < kWithPadding) {
    texts.date = cursor.read_counted_text();
    texts.time = cursor.read_counted_text();
  }
  texts.comment = cursor.read_counted_text();
  return texts;
}

// One channel header. `record` keeps what a short parameter record of a later channel does not replace.
void read_channel_header(ByteCursor& cursor, i16 id, i16 number, bool requested, ChannelParamRecord& record,
                         StandardHeader& header, LoaderResult& result) {
  const auto slot = static_cast<std::size_t>(number) - 1;
  if (id >= kWithChannelNumber) cursor.read_i16();
  result.FileHeaderPoints[slot] = result.FileChannelPoints[slot] = cursor.read_i32();
  KeptTexts texts = read_channel_texts(cursor, id);
  result.FileChannelNames[number] = texts.name;
  result.FileChannelUnits[number] = texts.unit;
  result.FileChannelFormats[slot] = kNumericBytes;
  if (id >= kWithSampleKind) {
    result.FileChannelKinds[slot] = cursor.read_i16();
    result.FileChannelFormats[slot] = cursor.read_i16();
  }
  if (id >= kWithPadding) {
    texts.channel_date = cursor.read_f64();
    texts.has_date = true;
    if (requested) result.FileDateText = number_text(texts.channel_date);
  }
  if (requested) {
    result.FileChannelComment = texts.comment;
    header.kept = std::move(texts);
  }
  if (id >= kWithParamRecord) {
    read_param_record(cursor, record);
    result.FileChannelRates[number] = static_cast<f32>(record.SampleInterval);
    if (requested) result.ChannelParams[0] = record;
  }
  if (id >= kWithExtraRecord) {
    ChannelExtraRecord extra = read_extra_record(cursor);
    if (requested) result.ChannelExtras[0] = std::move(extra);
  }
  if (id >= kWithExtension) cursor.skip(cursor.read_i32());
}

}  // namespace

StandardHeader read_standard_header(ByteCursor& cursor, i16 id, i16 channel, LoaderResult& result) {
  StandardHeader header;
  read_file_header(cursor, id, header, result);
  ChannelParamRecord record;
  for (i32 number = 1; number <= result.FileChannelCount; ++number)
    read_channel_header(cursor, id, static_cast<i16>(number), number == channel, record, header, result);
  header.values_begin = cursor.position();
  return header;
}

}  // namespace trendaro
