#include "datasource/file_rows.h"

#include "app/model.h"
#include "app/paths.h"
#include "app/run_time_error.h"

namespace trendaro {
namespace {

ChannelRow file_row(const std::string& path) {
  ChannelRow row;
  std::string folder;
  SplitFileName(path, folder, row.name);
  row.check = 1;
  row.picture = "IMG_FILE";
  row.kind = RowKind::File;
  row.path = path;
  return row;
}

// The signal of stored channel `channel`, from 1.
ChannelRow signal_row(const Model& model, i16 channel, const std::string& path) {
  const auto slot = static_cast<std::size_t>(channel - 1);
  if (!model.FileChannelNames.has(channel) || slot >= model.FileChannelPoints.size())
    throw RunTimeError{kIndexOutOfRange};
  ChannelRow row;
  row.picture = "IMG_SIGNAL";
  row.name = model.FileChannelNames[channel];
  row.mark = std::to_string(channel);
  row.kind = RowKind::Signal;
  row.path = path;
  row.points = model.FileChannelPoints[slot];
  return row;
}

}  // namespace

bool is_reduced_pair_name(const std::string& path) {
  const std::string extension = upper_piece(path, 1);
  return extension == "STO" || extension == "ST1" || extension == "ST2";
}

void append_file_rows(Model& model, const std::string& path) {
  if (model.FileChannelCount < 0) throw RunTimeError{kIndexOutOfRange};
  const i16 stored_per_signal = is_reduced_pair_name(path) ? 2 : 1;
  const auto signals = static_cast<i16>(model.FileChannelCount / stored_per_signal);
  append_row(model.Grid, file_row(path));
  for (i16 i = 0; i < signals; ++i)
    append_row(model.Grid, signal_row(model, static_cast<i16>(stored_per_signal * i + 1), path));
}

}  // namespace trendaro
