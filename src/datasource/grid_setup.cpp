#include <algorithm>

#include "app/model.h"
#include "app/numbers.h"
#include "app/program_folder.h"
#include "datasource/grid_handlers.h"
#include "datasource/group_rows.h"
#include "datasource/scratch_range.h"

namespace trendaro {
namespace {

constexpr i16 kChannelsPerGroup = 10;
constexpr i32 kMostZoomPoints = 100000;

void fill_x_source(Model& model) {
  XSourceBox& box = model.xSrc;
  box.entries[0].text = model.IsRealTime ? "Zeit (Kanalheader)" : "Zeit aus Meßrate";
  box.entries[1].text = model.IsRealTime ? "Markierter Datenkanal (X)" : "Datensatz";
  box.ListIndex = std::max<i16>(box.ListIndex, 0);
}

void read_database_limits(Model& model) {
  if (model.Host == nullptr) return;
  HostDatabase& database = model.Host->DB();
  model.MaxDatabaseChannels = database.MaxChannels();
  model.XScratchChannel = first_free_run(database, model.MaxDatabaseChannels);
  const i32 capacity = host_integer(database.GetChannelProperty(model.XScratchChannel, kChannelCapacity));
  model.MaxZoomPoints = std::min(capacity, kMostZoomPoints);
}

void show_zoom_limits(Model& model) {
  model.controls["PointsBox"].text = std::to_string(model.MaxZoomPoints);
  model.ScrollInterval = round_to_i32(model.MaxZoomPoints / 100.0);
  model.controls["StepBox"].text = std::to_string(model.ScrollInterval);
}

}  // namespace

void InitDataSourceGrid(Model& model) {
  if (model.Reduc <= 0) model.Reduc = kChannelsPerGroup;
  fill_x_source(model);
  append_group_rows(model);
  read_database_limits(model);
  show_zoom_limits(model);
  model.HighestDatabaseChannel = model.XScratchChannel;
  model.HelpFile = program_folder() + "/Trendaro.chm";
}

}  // namespace trendaro
