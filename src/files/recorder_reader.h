#pragma once

#include <span>
#include <string>

#include "app/types.h"
#include "files/load_status.h"
#include "files/sample_array.h"
#include "files/value_run.h"

namespace trendaro {

struct Model;

// LoadMeasurementFile for recorder files (ids 6001, 6002, 6011, 6012). Opens the file itself; `channel`
// counts output channels from 1. A failure inside gives its number as status, never 0; nothing is thrown.
// The result area has a slot for each column of the channel table, be FileChannelCount more or less. Modes 1
// and 2 refuse a count of rows that is far from what the file holds; ranges give zeros behind the end of the
// file.
LoadStatus LoadRecorderFile(Model& model, i16 mode, const std::string& path, i16 channel,
                            i32 databaseChannel);

// Mode 1 without an array: `take` gets the values in runs. Those of a recording of doubles go to
// FileChannelValues all the same.
LoadStatus PassRecorderValues(Model& model, const std::string& path, i16 channel, const TakeValues& take);

// The values of several output channels of a recording of raw samples, whose rows are read but once; those
// that mode 1 gives for each. NotMeasurement where the file is none such or lacks a channel, and then nothing
// is passed. Leaves the result area as it is. Status as LoadRecorderFile; nothing is thrown.
LoadStatus PassRecorderColumns(const std::string& path, std::span<const i16> channels,
                               const TakeColumn& take);

// The samples `first` (from 0) to `first + count - 1` of one output channel, the same numbers that mode 1
// gives there, fewer where the channel ends earlier. Touches the header and the bytes of those samples alone;
// the model's result area then describes the file as after mode 0. A channel that the file lacks gives an
// empty `destination` and no error; otherwise it has up to `count` elements. Status as LoadRecorderFile;
// nothing is thrown. A time channel of doubles is summed to its end here, where mode 1 fails.
LoadStatus LoadRecorderRange(Model& model, const std::string& path, i16 channel, i64 first, i64 count,
                             SampleArray& destination);

}  // namespace trendaro
