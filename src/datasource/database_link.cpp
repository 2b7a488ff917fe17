#include "datasource/database_link.h"

#include <algorithm>

#include "app/model.h"
#include "app/numbers.h"
#include "app/run_time_error.h"

namespace trendaro {
namespace {

// What the new channels of the plots turned out to be.
struct RangeCheck {
  bool occupied = false;  // one of them holds samples
  i32 too_short = 0;      // channels that take fewer samples than a zoom imports
};

HostDatabase& database_of(Model& model) {
  if (model.Host == nullptr) throw RunTimeError{kHostCallFailed};
  return model.Host->DB();
}

// The last three characters of ParamText lie behind the part that is copied. A channel without parameters
// leaves the other one without any.
void copy_leading_parameters(Model& model, i16 from, i16 to) {
  constexpr std::size_t kCopiedText = 12;
  const auto source = model.ChannelParams.find(from);
  if (source == model.ChannelParams.end()) {
    model.ChannelParams.erase(to);
    return;
  }
  ChannelParamRecord copy = source->second;
  ChannelParamRecord& target = model.ChannelParams[to];
  std::copy(target.ParamText.begin() + kCopiedText, target.ParamText.end(),
            copy.ParamText.begin() + kCopiedText);
  copy.Reserved2 = target.Reserved2;
  target = copy;
}

// A channel behind the end of the database is not asked; the next rebuild of the plot list finds it.
void check_channel(Model& model, i16 channel, RangeCheck& check) {
  if (channel > model.MaxDatabaseChannels) return;
  HostDatabase& database = database_of(model);
  const i32 length = host_integer(database.GetChannelProperty(channel, kChannelCapacity));
  const i32 used = host_integer(database.GetChannelProperty(channel, kChannelLength));
  if (used > 0) check.occupied = true;
  if (length < model.MaxZoomPoints) ++check.too_short;
}

// Without the shift that an x channel brings; only a rebuild of the plot list knows it.
RangeCheck move_plots(Model& model) {
  RangeCheck check;
  for (i16 i = 1; i <= model.NofPlots; ++i) {
    PlotRecord& plot = model.Plots[i];
    const i16 old_channel = plot.DatabaseChannel;
    plot.DatabaseChannel = round_to_i16(static_cast<f64>(model.XScratchChannel) - 1 + i);
    model.HighestDatabaseChannel = std::max(model.HighestDatabaseChannel, plot.DatabaseChannel);
    copy_leading_parameters(model, old_channel, plot.DatabaseChannel);
    check_channel(model, plot.DatabaseChannel, check);
  }
  return check;
}

void warn_once(Model& model, bool& warned, bool reason, const std::string& text) {
  if (warned || !reason) return;
  warned = true;
  model.shell.show_message(text, kProgramTitle, MessageIcon::None);
}

}  // namespace

void mnuClearDB(Model& model) {
  if (model.shell.ask_yes_no("Wenn Sie die Datenbasis löschen gehen alle darin enthaltenen Werte und "
                             "Informationen verloren. Löschvorgang fortsetzen?",
                             kProgramTitle))
    database_of(model).ClearAllChannels();
}

void mnuDBConfig(Model& model) {
  HostDatabase& database = database_of(model);
  database.ShowDialog(kDatabaseConfiguration, 0);
  if (database.MaxChannels() == model.MaxDatabaseChannels) return;
  model.shell.show_message("Die Datenbasisrekonfiguration erfordert, dass Trendaro neu gestartet wird!",
                           kProgramTitle, MessageIcon::Information);
  model.shell.close_window();
}

void mnuDBExport(Model& model) {
  HostDatabase& database = database_of(model);
  for (i16 i = 1; i <= model.NofPlots; ++i) {
    const i16 channel = model.Plots[i].DatabaseChannel;
    if (host_integer(database.GetChannelProperty(channel, kChannelLength)) > 0)
      database.SetChannelProperty(channel, kChannelExportSelected, i16{1});
  }
  database.ShowDialog(kExportDialog, 1);
  for (i16 i = 1; i <= model.NofPlots; ++i)
    database.SetChannelProperty(model.Plots[i].DatabaseChannel, kChannelExportSelected, i16{0});
}

void mnuDBOffset(Model& model) {
  model.XScratchChannel = std::max<i16>(model.XScratchChannel, 1);
  const std::string answer = model.shell.ask_text(
      "Datenbasiskanal, ab dem die Originaldaten in die Datenbasis importiert werden:", "Datenbasis-Offset",
      std::to_string(model.XScratchChannel));
  if (answer.empty()) return;
  const f64 channel = ParseNumber(answer);
  if (channel >= 1) model.XScratchChannel = round_to_i16(channel);
  model.MaxZoomPoints = round_to_i32(ParseNumber(model.controls["PointsBox"].text));
  if (model.NofPlots == 0) return;
  const RangeCheck check = move_plots(model);
  warn_once(model, model.OccupiedWarned, check.occupied,
            "Die Datenbasiskanäle sind bereits mit Werten belegt!");
  warn_once(model, model.ZoomLengthWarned, check.too_short > 0,
            std::to_string(check.too_short) +
                " Datenbasiskanäle zu kurz, um alle Zoomwerte zu importieren. Sie können entweder die "
                "Datenbasis vergrößern oder die Anzahl der Zoomwerte verringern.");
}

}  // namespace trendaro
