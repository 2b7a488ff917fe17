#include "files/standard_values.h"

#include <algorithm>
#include <optional>

#include "app/dates.h"
#include "app/model.h"
#include "app/run_time_error.h"
#include "files/sample_reading.h"

namespace trendaro {
namespace {

constexpr i16 kNumericSamples = 0;
constexpr i16 kTextSamples = 1;

// Runs through the data part channel by channel.
class DataPart {
 public:
  DataPart(const LoaderResult& result, ByteCursor& cursor, const StandardHeader& header)
      : result_(result), cursor_(cursor), padded_length_(header.padded_length), texts_left_(cursor.size()) {
    cursor_.seek(header.values_begin);
  }

  // Brings the cursor to the values of a numeric channel.
  void enter(std::size_t slot) {
    // The distance counts bytes although both numbers count samples; files rely on it as it is.
    if (padded_length_ > 0 && slot > 0) cursor_.skip(i64{padded_length_} - result_.FileHeaderPoints[slot]);
  }

  // Passes the data of a channel. Samples of an unknown kind take no room.
  void pass(std::size_t slot) {
    if (result_.FileChannelKinds[slot] == kNumericSamples)
      cursor_.skip(i64{padded_length_ != 0 ? padded_length_ : result_.FileHeaderPoints[slot]} * kSampleBytes);
    else if (result_.FileChannelKinds[slot] == kTextSamples)
      pass_texts(result_.FileHeaderPoints[slot]);
  }

 private:
  void pass_texts(i32 count) {
    for (i32 text = 0; text < count && cursor_.left() > 0; ++text) {
      // Negative counts may lead back in the file; without a limit the same texts could be passed for hours.
      if (--texts_left_ < 0) throw RunTimeError{kInvalidArgument};
      cursor_.skip_counted_text();
    }
  }

  const LoaderResult& result_;
  ByteCursor& cursor_;
  i32 padded_length_;
  i64 texts_left_;
};

bool is_numeric_channel(const LoaderResult& result, i16 channel) {
  return channel >= 1 && channel <= result.FileChannelCount &&
         result.FileChannelKinds[static_cast<std::size_t>(channel) - 1] == kNumericSamples;
}

LoadStatus failed_read(Model& model) {
  model.shell.show_message("Fehler beim Lesen der Daten aufgetreten!", kProgramTitle, MessageIcon::Stop);
  return LoadStatus::ReadFailed;
}

// Reads the values of the requested channel and, in mode 2, hands them to the database.
LoadStatus read_requested(Model& model, ByteCursor& cursor, i32 points, i16 mode, i32 database_channel) {
  if (points <= 0) return LoadStatus::Done;
  if (!read_samples(cursor, points, model.FileChannelValues)) return failed_read(model);
  if (mode != 2) return LoadStatus::Done;
  if (model.Kernel == nullptr) throw RunTimeError{kHostMemberMissing};
  model.LastDatabaseStatus =
      model.Kernel->KSD_WriteToDatabaseEx(1, database_channel, model.FileChannelValues, 0);
  return model.LastDatabaseStatus == 0 ? failed_read(model) : LoadStatus::Done;
}

f64 required_day_number(const std::string& text) {
  const auto number = day_number_from_text(text);
  if (!number) throw RunTimeError{kTypeMismatch};
  return *number;
}

// Whole days of one text and time of day of the other. Dates that the file holds as a number take the same
// road through texts, which leaves out the seconds.
f64 date_stamp(const KeptTexts& kept) {
  const std::string date = kept.has_date ? date_text(kept.channel_date) : kept.date;
  const std::string time = kept.has_date ? time_text(kept.channel_date) : kept.time;
  return whole_days(required_day_number(date)) + time_of_day(required_day_number(time));
}

// Gives the database channel the records, texts and date of the file's channel.
void describe_database_channel(Model& model, const KeptTexts& kept, i32 database_channel) {
  if (model.Kernel == nullptr) throw RunTimeError{kHostMemberMissing};
  model.ChannelParams[database_channel] = model.ChannelParams[0];
  model.ChannelExtras[database_channel] = model.ChannelExtras[0];
  DatabaseKernel& kernel = *model.Kernel;
  model.LastDatabaseStatus = kernel.KSD_SetDatabaseChanText(database_channel, kChanName, kept.name);
  model.LastDatabaseStatus = kernel.KSD_SetDatabaseChanText(database_channel, kChanUnit, kept.unit);
  model.LastDatabaseStatus = kernel.KSD_SetDatabaseChanText(database_channel, kChanComment, kept.comment);
  model.LastDatabaseStatus = kernel.KSD_SetDatabaseChanModified(database_channel, date_stamp(kept));
}

// Goes through the data part channel by channel; `read(points)` reads the values of the requested one. The
// channels behind it are passed all the same, as an error of the device there fails the load too.
template <typename Read>
LoadStatus walk_channels(Model& model, ByteCursor& cursor, const StandardHeader& header, i16 channel,
                         Read read) {
  DataPart data(model, cursor, header);
  for (i32 number = 1; number <= model.FileChannelCount; ++number) {
    const auto slot = static_cast<std::size_t>(number) - 1;
    if (number != channel || !is_numeric_channel(model, channel)) {
      data.pass(slot);
      continue;
    }
    data.enter(slot);
    const LoadStatus status = read(model.FileHeaderPoints[slot]);
    if (status != LoadStatus::Done) return status;
  }
  if (!cursor.device_failed()) return LoadStatus::Done;
  if (!is_numeric_channel(model, channel)) model.FileChannelValues.clear();
  return failed_read(model);
}

}  // namespace

LoadStatus load_standard_values(Model& model, ByteCursor& cursor, const StandardHeader& header, i16 mode,
                                i16 channel, i32 database_channel) {
  const LoadStatus status = walk_channels(model, cursor, header, channel, [&](i32 points) {
    return read_requested(model, cursor, points, mode, database_channel);
  });
  if (status != LoadStatus::Done || mode != 2) return status;
  SampleArray().swap(model.FileChannelValues);
  if (header.kept.found) describe_database_channel(model, header.kept, database_channel);
  return LoadStatus::Done;
}

LoadStatus pass_standard_values(Model& model, ByteCursor& cursor, const StandardHeader& header, i16 channel,
                                const TakeValues& take) {
  return walk_channels(model, cursor, header, channel, [&](i32 points) {
    return pass_samples(cursor, points, take) ? LoadStatus::Done : failed_read(model);
  });
}

LoadStatus load_standard_range(const LoaderResult& result, ByteCursor& cursor, const StandardHeader& header,
                               i16 channel, i64 first, i64 count, SampleArray& destination) {
  destination.clear();
  if (!is_numeric_channel(result, channel)) return LoadStatus::Done;
  const auto wanted_slot = static_cast<std::size_t>(channel) - 1;
  const i64 points = result.FileHeaderPoints[wanted_slot];
  if (first < 0 || first >= points || count <= 0) return LoadStatus::Done;
  DataPart data(result, cursor, header);
  for (std::size_t slot = 0; slot < wanted_slot; ++slot) data.pass(slot);
  if (cursor.device_failed()) return LoadStatus::ReadFailed;
  data.enter(wanted_slot);
  cursor.skip(first * kSampleBytes);
  const i64 there = std::min({count, points - first, cursor.left() / kSampleBytes});
  return read_samples(cursor, there, destination) ? LoadStatus::Done : LoadStatus::ReadFailed;
}

}  // namespace trendaro
