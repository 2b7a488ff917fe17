#include "files/loader.h"

#include <exception>
#include <new>
#include <utility>

#include "app/model.h"
#include "app/run_time_error.h"
#include "files/block_header.h"
#include "files/block_reader.h"
#include "files/file_group.h"
#include "files/recorder_reader.h"
#include "files/standard_header.h"
#include "files/standard_values.h"

namespace trendaro {
namespace {

constexpr i64 kIdBytes = 2;

// The one catch of the readers: a failure inside becomes its number.
template <typename Step>
LoadStatus caught(Step&& step) {
  try {
    return step();
  } catch (const RunTimeError& error) {
    return static_cast<LoadStatus>(error.number);
  } catch (const std::bad_alloc&) {
    return static_cast<LoadStatus>(kOutOfMemory);
  } catch (const std::exception&) {
    return static_cast<LoadStatus>(kInvalidArgument);
  }
}

// Drops the reader's working copies of the header when the values of a standard file have been asked for.
class WorkingCopies {
 public:
  WorkingCopies(LoaderResult& result, i16 mode) : result_(result), erased_(mode != 0) {}
  ~WorkingCopies() {
    if (erased_) forget_working_copies(result_);
  }
  WorkingCopies(const WorkingCopies&) = delete;
  WorkingCopies& operator=(const WorkingCopies&) = delete;

 private:
  LoaderResult& result_;
  bool erased_;
};

// A header may end early, but an error of the device is no short file.
void expect_no_device_error(const ByteCursor& cursor) {
  if (cursor.device_failed()) throw RunTimeError{kDeviceError};
}

// Reads the id and keeps it where the file is of a group that this folder reads without the recorder's help.
FileGroup recognise(Model& model, const InputFile& file) {
  i16 id = 0;
  if (file.read_at(0, &id, kIdBytes).failed) return FileGroup::Unknown;
  const FileGroup group = file_group(id);
  if (group != FileGroup::Recorder) model.FileId = id;
  return group;
}

// Opens and recognises a file and runs the reader of its group; a recorder file is closed first.
template <typename Standard, typename BlockFile, typename Recorder>
LoadStatus with_file(Model& model, const std::string& path, Standard standard, BlockFile block,
                     Recorder recorder) {
  model.FileReduceFactor = 0;
  model.FileReduceBlock = 0;
  {
    const InputFile file(path);
    if (!file.is_open()) return LoadStatus::NotOpened;
    const FileGroup group = recognise(model, file);
    if (group == FileGroup::Unknown) return LoadStatus::NotMeasurement;
    // Nothing of another file shows through what the header leaves unfilled.
    forget_description(model);
    ByteCursor cursor(file, kIdBytes);
    if (group == FileGroup::Standard) return standard(cursor);
    if (group == FileGroup::Block) return block(cursor);
  }
  return recorder();
}

LoadStatus load_standard_file(Model& model, ByteCursor& cursor, i16 mode, i16 channel, i32 database_channel) {
  const WorkingCopies copies(model, mode);
  const StandardHeader header = read_standard_header(cursor, model.FileId, channel, model);
  expect_no_device_error(cursor);
  if (mode == 0) return LoadStatus::Done;
  return load_standard_values(model, cursor, header, mode, channel, database_channel);
}

LoadStatus load_block_file(Model& model, ByteCursor& cursor, i16 mode, i16 channel, i32 database_channel) {
  const BlockHeader header = read_block_header(cursor, model.FileId, channel, model);
  expect_no_device_error(cursor);
  if (mode == 0) return LoadStatus::Done;
  return load_block_values(model, cursor, header, mode, channel, database_channel);
}

}  // namespace

LoadStatus LoadMeasurementFile(Model& model, i16 mode, const std::string& path, i16 channel,
                               i32 databaseChannel) {
  return caught([&] {
    return with_file(
        model, path,
        [&](ByteCursor& cursor) { return load_standard_file(model, cursor, mode, channel, databaseChannel); },
        [&](ByteCursor& cursor) { return load_block_file(model, cursor, mode, channel, databaseChannel); },
        // The database channel is not handed on.
        [&] { return LoadRecorderFile(model, mode, path, channel, 0); });
  });
}

LoadStatus PassMeasurementValues(Model& model, const std::string& path, i16 channel, const TakeValues& take) {
  model.FileChannelValues = {};
  LoadStatus status = caught([&] {
    return with_file(
        model, path,
        [&](ByteCursor& cursor) {
          const WorkingCopies copies(model, 1);
          const StandardHeader header = read_standard_header(cursor, model.FileId, channel, model);
          expect_no_device_error(cursor);
          return pass_standard_values(model, cursor, header, channel, take);
        },
        [&](ByteCursor& cursor) {
          const BlockHeader header = read_block_header(cursor, model.FileId, channel, model);
          expect_no_device_error(cursor);
          return pass_block_values(model, cursor, header, channel, take);
        },
        [&] { return PassRecorderValues(model, path, channel, take); });
  });
  // Some readers leave an array, which may hold values also where they have failed.
  if (const SampleArray values = std::exchange(model.FileChannelValues, {}); !values.empty()) {
    const LoadStatus taken = caught([&] {
      take(values);
      return LoadStatus::Done;
    });
    if (status == LoadStatus::Done) status = taken;
  }
  return status;
}

LoadStatus LoadSampleRange(Model& model, const std::string& path, i16 channel, i64 first, i64 count,
                           SampleArray& destination) {
  destination.clear();
  return caught([&] {
    return with_file(
        model, path,
        [&](ByteCursor& cursor) {
          const StandardHeader header = read_standard_header(cursor, model.FileId, channel, model);
          expect_no_device_error(cursor);
          return load_standard_range(model, cursor, header, channel, first, count, destination);
        },
        [&](ByteCursor& cursor) {
          const BlockHeader header = read_block_header(cursor, model.FileId, channel, model);
          expect_no_device_error(cursor);
          return load_block_range(model, cursor, header, channel, first, count, destination);
        },
        [&] { return LoadRecorderRange(model, path, channel, first, count, destination); });
  });
}

}  // namespace trendaro
