#include "files/block_reader.h"

#include "app/model.h"
#include "app/run_time_error.h"
#include "files/fixed_blocks.h"
#include "files/variable_blocks.h"

namespace trendaro {
namespace {

// Gives the database channel record, texts and date of the file's channel; block files give no comment.
void describe_database_channel(Model& model, const KeptTexts& kept, i32 database_channel) {
  model.ChannelParams[database_channel] = model.ChannelParams[0];
  DatabaseKernel& kernel = *model.Kernel;
  model.LastDatabaseStatus = kernel.KSD_SetDatabaseChanText(database_channel, kChanName, kept.name);
  model.LastDatabaseStatus = kernel.KSD_SetDatabaseChanText(database_channel, kChanUnit, kept.unit);
  model.LastDatabaseStatus = kernel.KSD_SetDatabaseChanModified(database_channel, kept.channel_date);
}

bool has_channel(const LoaderResult& result, i16 channel) {
  return channel >= 1 && channel <= result.FileChannelCount;
}

void load_into_memory(Model& model, ByteCursor& cursor, const BlockHeader& header, i16 channel) {
  if (!header.fixed_blocks) return load_variable_blocks(model, cursor, header, channel);
  if (has_channel(model, channel)) load_fixed_blocks(model, cursor, header, channel);
}

void load_into_database(Model& model, ByteCursor& cursor, const BlockHeader& header, i16 channel,
                        i32 database_channel) {
  SampleArray().swap(model.FileChannelValues);
  if (!has_channel(model, channel)) {
    // The other channels are counted all the same.
    if (!header.fixed_blocks) pass_on_variable_blocks(model, cursor, header, channel, [](auto) {});
    return;
  }
  if (model.Kernel == nullptr) throw RunTimeError{kHostMemberMissing};
  const BlockSink append = [&](std::span<const f64> values) {
    model.LastDatabaseStatus = model.Kernel->KSD_WriteToDatabaseEx(1, database_channel, values, -1);
  };
  if (header.fixed_blocks)
    pass_on_fixed_blocks(model, cursor, header, channel, append);
  else
    pass_on_variable_blocks(model, cursor, header, channel, append);
  // A channel with part of its values must not look like a whole one.
  if (cursor.device_failed()) return;
  describe_database_channel(model, header.kept, database_channel);
}

}  // namespace

LoadStatus load_block_values(Model& model, ByteCursor& cursor, const BlockHeader& header, i16 mode,
                             i16 channel, i32 database_channel) {
  if (mode == 2)
    load_into_database(model, cursor, header, channel, database_channel);
  else
    load_into_memory(model, cursor, header, channel);
  if (cursor.device_failed()) throw RunTimeError{kDeviceError};
  return LoadStatus::Done;
}

LoadStatus pass_block_values(LoaderResult& result, ByteCursor& cursor, const BlockHeader& header, i16 channel,
                             const TakeValues& take) {
  const BlockSink sink = [&](std::span<const f64> values) {
    if (!values.empty()) take(values);
  };
  if (!header.fixed_blocks)
    pass_variable_blocks(result, cursor, header, channel, sink);
  else if (has_channel(result, channel))
    pass_fixed_blocks(result, cursor, header, channel, sink);
  if (cursor.device_failed()) throw RunTimeError{kDeviceError};
  return LoadStatus::Done;
}

LoadStatus load_block_range(const LoaderResult& result, ByteCursor& cursor, const BlockHeader& header,
                            i16 channel, i64 first, i64 count, SampleArray& destination) {
  destination.clear();
  if (!has_channel(result, channel) || first < 0 || count <= 0) return LoadStatus::Done;
  if (header.fixed_blocks)
    read_fixed_range(result, cursor, header, channel, first, count, destination);
  else
    read_variable_range(result, cursor, header, channel, first, count, destination);
  if (cursor.device_failed()) throw RunTimeError{kDeviceError};
  return LoadStatus::Done;
}

}  // namespace trendaro
