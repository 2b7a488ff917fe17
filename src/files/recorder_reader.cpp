#include "files/recorder_reader.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <optional>
#include <span>
#include <vector>

#include "app/model.h"
#include "app/numbers.h"
#include "app/run_time_error.h"
#include "files/recorder_header.h"
#include "files/recorder_settings.h"
#include "files/recorder_tables.h"
#include "files/recorder_values.h"

namespace trendaro {
namespace {

constexpr i64 kBlockRows = 500;
constexpr i64 kBlocksAtOnce = 256;

void describe_columns(LoaderResult& result, const RecorderHeader& header) {
  // The table decides how many channels there are; the count may be another one.
  const std::size_t slots = header.columns.size();
  result.FileChannelNames.assign(slots, {});
  result.FileChannelUnits.assign(slots, {});
  result.FileChannelRates.assign(slots, 0);
  result.FileChannelPoints.assign(slots + 1, 0);
  for (std::size_t index = 0; index < header.columns.size(); ++index) {
    const std::size_t channel = index + 1;
    result.FileChannelNames[channel] = header.columns[index].name.name;
    result.FileChannelUnits[channel] = header.columns[index].unit;
    result.FileChannelRates[channel] = static_cast<f32>(header.interval());
    result.FileChannelPoints[index] = header.row_count;
  }
}

// The parameters of the requested channel. The measured signal is that of the file's last hardware column,
// whichever channel is asked for.
void describe_parameters(LoaderResult& result, const RecorderHeader& header,
                         const RecorderColumn* requested) {
  ChannelParamRecord& parameters = result.ChannelParams[0];
  parameters = {};
  if (requested != nullptr) {
    if (requested->has_settings())
      parameters = recorder_settings(ByteView{header.bytes}, requested->settings_block);
    parameters.HardwareChannel = round_to_i16(requested->entry_channel);
    parameters.HardwareSubChannel = static_cast<i16>(requested->sub_channel);
    parameters.SampleInterval = header.interval();
  }
  for (const RecorderColumn& column : header.columns)
    if (column.has_settings()) parameters.MeasuredSignal = kRecorderSignals[column.signal].parameter;
}

void describe(LoaderResult& result, const RecorderHeader& header, const RecorderColumn* requested) {
  result.FileChannelCount = header.channel_count;
  result.FileReduceFactor = header.reduce_factor;
  result.FileDateText = header.date_text;
  result.FileCommentText = header.comment_text;
  if (requested != nullptr)
    result.FileChannelComment =
        requested->name.comment.empty() ? header.comment_text : requested->name.comment;
  describe_columns(result, header);
  describe_parameters(result, header, requested);
}

const RecorderColumn* find_column(const RecorderHeader& header, i16 channel) {
  if (channel < 1 || static_cast<std::size_t>(channel) > header.columns.size()) return nullptr;
  return &header.columns[static_cast<std::size_t>(channel) - 1];
}

// Adds the carry of a time channel of doubles. In the rows behind the last whole block the place added to
// runs ahead of the values, so that all but the first of them end the load.
void add_time_carry(const InputFile& file, const RecorderHeader& header, i32 carry_channel,
                    SampleArray& values) {
  const i64 rows = static_cast<i64>(values.size());
  const i64 blocks = rows / kBlockRows;
  std::vector<f64> carry(static_cast<std::size_t>(std::min(rows, kBlockRows * kBlocksAtOnce)));
  for (i64 row = 0; row < rows;) {
    const i64 count = std::min(rows - row, static_cast<i64>(carry.size()));
    read_double_column(file, header, carry_channel, row, {carry.data(), static_cast<std::size_t>(count)});
    for (i64 j = 0; j < count; ++j) {
      const i64 rest = row + j - blocks * kBlockRows;
      const i64 target = rest < 0 ? row + j : (blocks + rest) * kBlockRows;
      if (target >= rows) throw RunTimeError{kIndexOutOfRange};
      values[static_cast<std::size_t>(target)] += carry[static_cast<std::size_t>(j)];
    }
    row += count;
  }
}

void read_whole_column(const InputFile& file, const RecorderHeader& header, i16 channel,
                       SampleArray& values) {
  const i64 rows = row_count_to_hold(file, header);
  values.clear();
  values.resize(static_cast<std::size_t>(rows));
  if (header.of_doubles()) {
    read_double_column(file, header, channel, 0, values);
    if (find_column(header, channel)->entry_channel == kTimeChannel)
      add_time_carry(file, header, channel + 1, values);
  } else {
    read_recorder_values(file, header, channel, 0, values);
  }
}

// Hands `rows` rows to a database channel, 500 at a time. `read(first, block)` fills a stretch of them.
template <typename Read>
void append_rows(Model& model, i32 database_channel, i16 first_append, i64 rows, Read read) {
  std::vector<f64> buffer(static_cast<std::size_t>(std::min(rows, kBlockRows * kBlocksAtOnce)));
  i16 append = first_append;
  for (i64 row = 0; row < rows;) {
    const std::size_t count = std::min(buffer.size(), static_cast<std::size_t>(rows - row));
    const std::span<f64> stretch(buffer.data(), count);
    read(row, stretch);
    for (std::size_t done = 0; done < count; done += kBlockRows) {
      const std::size_t length = std::min<std::size_t>(kBlockRows, count - done);
      model.LastDatabaseStatus =
          model.Kernel->KSD_WriteToDatabaseEx(1, database_channel, stretch.subspan(done, length), append);
      append = -1;
    }
    row += static_cast<i64>(count);
  }
}

// A time channel of doubles is summed by the kernel, through the scratch channel.
void write_double_channel(Model& model, const InputFile& file, const RecorderHeader& header, i16 channel,
                          i64 rows, i32 database_channel) {
  const auto append_column = [&](i32 column, i32 target, i16 first_append) {
    append_rows(model, target, first_append, rows, [&](i64 first, std::span<f64> stretch) {
      read_double_column(file, header, column, first, stretch);
    });
  };
  append_column(channel, database_channel, -1);
  // Without rows the scratch channel keeps what it held, and that must not be added.
  if (rows == 0 || find_column(header, channel)->entry_channel != kTimeChannel) return;
  const i32 scratch = model.XScratchChannel;
  append_column(channel + 1, scratch, 0);
  model.LastDatabaseStatus = model.Kernel->DB_QuickMath(database_channel, scratch);
  model.LastDatabaseStatus = model.Kernel->KSD_SetDatabaseChanCurrLen(scratch, 0);
}

void write_to_database(Model& model, const InputFile& file, const RecorderHeader& header, i16 channel,
                       i32 database_channel) {
  if (model.Kernel == nullptr) throw RunTimeError{kHostMemberMissing};
  const RecorderColumn& column = *find_column(header, channel);
  const i64 rows = header.row_count < 0 ? 0 : row_count_to_hold(file, header);
  if (header.of_doubles())
    write_double_channel(model, file, header, channel, rows, database_channel);
  else
    append_rows(model, database_channel, -1, rows, [&](i64 first, std::span<f64> stretch) {
      read_recorder_values(file, header, channel, first, stretch);
    });

  const ChannelParamRecord parameters = model.ChannelParams[0];
  model.ChannelParams[database_channel] = parameters;
  const auto set_text = [&](i16 which, const std::string& text) {
    model.LastDatabaseStatus = model.Kernel->KSD_SetDatabaseChanText(database_channel, which, text);
  };
  set_text(kChanName, column.name.name);
  set_text(kChanUnit, column.unit);
  set_text(kChanComment, column.name_field);
}

// The one catch of this file: a failure inside becomes its number.
template <typename Step>
LoadStatus caught(Step step) {
  try {
    return step();
  } catch (const RunTimeError& error) {
    return static_cast<LoadStatus>(error.number);
  } catch (const std::exception&) {
    return static_cast<LoadStatus>(kOutOfMemory);
  }
}

// Opens the file and describes it; then `read_data(file, header)` runs for a channel that the file has.
template <typename ReadData>
LoadStatus read_recorder(Model& model, const std::string& path, i16 channel, ReadData read_data) {
  return caught([&] {
    model.FileReduceFactor = 0;
    model.FileReduceBlock = 0;
    const InputFile file(path);
    if (!file.is_open()) return LoadStatus::NotOpened;
    forget_description(model);
    const auto header = read_recorder_header(file);
    if (!header) return LoadStatus::NotMeasurement;
    const RecorderColumn* requested = find_column(*header, channel);
    describe(model, *header, requested);
    if (requested != nullptr) read_data(file, *header);
    return LoadStatus::Done;
  });
}

}  // namespace

LoadStatus LoadRecorderFile(Model& model, i16 mode, const std::string& path, i16 channel,
                            i32 databaseChannel) {
  return read_recorder(model, path, channel, [&](const InputFile& file, const RecorderHeader& header) {
    if (mode == 1) read_whole_column(file, header, channel, model.FileChannelValues);
    if (mode == 2) write_to_database(model, file, header, channel, databaseChannel);
  });
}

LoadStatus PassRecorderValues(Model& model, const std::string& path, i16 channel, const TakeValues& take) {
  return read_recorder(model, path, channel, [&](const InputFile& file, const RecorderHeader& header) {
    if (header.of_doubles()) return read_whole_column(file, header, channel, model.FileChannelValues);
    pass_raw_columns(file, header, {&channel, 1},
                     [&](std::size_t, i64, std::span<const f64> run) { take(run); });
  });
}

LoadStatus PassRecorderColumns(const std::string& path, std::span<const i16> channels,
                               const TakeColumn& take) {
  return caught([&] {
    const InputFile file(path);
    if (!file.is_open()) return LoadStatus::NotOpened;
    const auto header = read_recorder_header(file);
    const auto has_channel = [&](i16 channel) { return find_column(*header, channel) != nullptr; };
    if (!header || header->of_doubles() || channels.empty() || !std::ranges::all_of(channels, has_channel))
      return LoadStatus::NotMeasurement;
    pass_raw_columns(file, *header, channels, take);
    return LoadStatus::Done;
  });
}

LoadStatus LoadRecorderRange(Model& model, const std::string& path, i16 channel, i64 first, i64 count,
                             SampleArray& destination) {
  destination.clear();
  return read_recorder(model, path, channel, [&](const InputFile& file, const RecorderHeader& header) {
    if (header.row_count < 0) throw RunTimeError{kIndexOutOfRange};
    const i64 rows = header.row_count;
    if (first < 0 || count <= 0 || first >= rows) return;
    destination.resize(static_cast<std::size_t>(std::min(count, rows - first)));
    read_recorder_values(file, header, channel, first, destination);
  });
}

}  // namespace trendaro
