#include "files/block_header.h"

#include <limits>

#include "app/numbers.h"
#include "app/run_time_error.h"

namespace trendaro {
namespace {

i16 checked_channel_count(i32 count) {
  if (count > std::numeric_limits<i16>::max()) throw RunTimeError{kOverflow};
  if (count < 0) throw RunTimeError{kIndexOutOfRange};
  return static_cast<i16>(count);
}

void size_result(LoaderResult& result, std::size_t channels) {
  result.FileChannelNames.assign(channels, {});
  result.FileChannelUnits.assign(channels, {});
  result.FileChannelRates.assign(channels, 0);
  result.FileChannelPoints.assign(channels + 1, 0);
  result.FileChannelPointsEstimate.assign(channels, 0);
}

void read_file_header(ByteCursor& cursor, BlockHeader& header, LoaderResult& result) {
  cursor.read_i16();  // BlockWord
  result.FileChannelCount = checked_channel_count(cursor.read_i32());
  size_result(result, static_cast<std::size_t>(result.FileChannelCount));
  if (header.id != kNewestBlockId) return;
  header.data_offset = cursor.read_i32();
  cursor.read_optional_text();  // FileComment
}

KeptTexts read_channel_texts(ByteCursor& cursor, i16 id) {
  KeptTexts texts;
  texts.found = true;
  texts.name = cursor.read_counted_text();
  texts.unit = cursor.read_counted_text();
  if (id == kNewestBlockId) {
    texts.comment = cursor.read_counted_text();
    texts.channel_date = cursor.read_f64();
    texts.has_date = true;
  } else {
    texts.date = cursor.read_counted_text();
    texts.time = cursor.read_counted_text();
  }
  return texts;
}

// One channel header; returns its ParamLength.
i32 read_channel_header(ByteCursor& cursor, i16 number, bool requested, ChannelParamRecord& record,
                        BlockHeader& header, LoaderResult& result) {
  cursor.read_i16();  // ChannelNumber
  KeptTexts texts = read_channel_texts(cursor, header.id);
  result.FileChannelNames[number] = texts.name;
  result.FileChannelUnits[number] = texts.unit;
  const i32 param_length = read_param_record(cursor, record);
  result.FileChannelRates[number] = static_cast<f32>(record.SampleInterval);
  result.FileChannelPoints[static_cast<std::size_t>(number) - 1] = -1;
  if (requested) {
    result.ChannelParams[0] = record;
    result.FileDateText = texts.has_date ? number_text(texts.channel_date) : texts.date;
    result.FileChannelComment = texts.comment;
    header.kept = std::move(texts);
  }
  return param_length;
}

// The header counts as no larger than the last parameter record, so the estimate may lie on either side of
// the true count. Without channels it is no number.
i32 estimated_points(f64 file_size, i32 param_length, i16 channels) {
  return round_to_i32((file_size - param_length) / (channels * 8.0) - 1);
}

}  // namespace

BlockHeader read_block_header(ByteCursor& cursor, i16 id, i16 channel, LoaderResult& result) {
  BlockHeader header;
  header.id = id;
  read_file_header(cursor, header, result);
  ChannelParamRecord record;
  i32 param_length = 0;
  for (i32 number = 1; number <= result.FileChannelCount; ++number)
    param_length =
        read_channel_header(cursor, static_cast<i16>(number), number == channel, record, header, result);
  header.header_end = cursor.position();
  header.fixed_blocks = record.FixedBlockFlag != 0;
  const i32 estimate =
      estimated_points(static_cast<f64>(cursor.size()), param_length, result.FileChannelCount);
  result.FileChannelPointsEstimate.assign(result.FileChannelPointsEstimate.size(), estimate);
  return header;
}

}  // namespace trendaro
