#include "datasource/group_rows.h"

#include <algorithm>
#include <string>

#include "app/model.h"

namespace trendaro {
namespace {

const char* picture_of(const IoChannel& channel) {
  constexpr i16 kAnalogInput = 8;
  if (channel.data_type == kAnalogInput) return "IMG_ANALOGIN";
  switch (channel.source) {
    case -2:
      return "IMG_FORMULAIN";
    case -3:
      return "IMG_TIME";
    case -4:
      return "IMG_FILEIN";
    case -5:
      return "IMG_DATABASEIN";
    default:
      return "IMG_NOTCONNECTED";
  }
}

ChannelRow heading_row() {
  ChannelRow row;
  row.check = 1;
  row.picture = "IMG_IO";
  row.name = "I/O - Kanäle";
  row.kind = RowKind::IoHeading;
  return row;
}

ChannelRow group_row(i32 first, i32 last) {
  ChannelRow row;
  row.check = 1;
  row.name = std::to_string(first) + " - " + std::to_string(last);
  row.kind = RowKind::Group;
  return row;
}

ChannelRow channel_row(const Model& model, i32 number) {
  ChannelRow row;
  row.kind = RowKind::DatabaseChannel;
  row.mark = std::to_string(number);
  row.name = row.mark;
  row.picture = "IMG_SIGNAL";
  if (!model.IsRealTime) return row;
  const IoChannel channel = model.IOChannels.has(number) ? model.IOChannels[number] : IoChannel();
  row.name += "  " + channel.name;
  row.picture = picture_of(channel);
  return row;
}

}  // namespace

void append_group_rows(Model& model) {
  if (model.IsRealTime) append_row(model.Grid, heading_row());
  const i32 count = model.IOChannelCount;
  for (i32 first = 1; first <= count; first += model.Reduc) {
    const i32 last = std::min(first + model.Reduc - 1, count);
    append_row(model.Grid, group_row(first, last));
    for (i32 number = first; number <= last; ++number) append_row(model.Grid, channel_row(model, number));
  }
}

}  // namespace trendaro
