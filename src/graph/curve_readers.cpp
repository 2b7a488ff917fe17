#include "graph/curve_readers.h"

#include <algorithm>
#include <limits>

#include "app/model.h"
#include "app/paths.h"
#include "files/loader.h"
#include "graph/pair_reading.h"

namespace trendaro {
namespace {

std::size_t half(i32 points) {
  return static_cast<std::size_t>(std::max(points, 0) / 2);
}

std::span<const f64> first_values(const Model& model, std::size_t count) {
  const std::span<const f64> values = model.FileChannelValues;
  return values.first(std::min(count, values.size()));
}

void take_reduction(const CurveTask& task, i32 factor, const std::string& date_text) {
  if (task.model.PlotReduceFactor.has(task.number)) task.model.PlotReduceFactor[task.number] = factor;
  if (task.model.PlotDateTexts.has(task.number)) task.model.PlotDateTexts[task.number] = date_text;
}

}  // namespace

void report_status(Model& model, const std::string& path, LoadStatus status) {
  if (status == LoadStatus::NotOpened)
    model.shell.show_message("Fehler beim Öffnen der Datei " + path, kProgramTitle, MessageIcon::Stop);
}

void load_values(Model& model, const std::string& path, i16 channel, bool report) {
  erase_file_values(model);
  const LoadStatus status = LoadMeasurementFile(model, 1, path, channel, 0);
  model.LastDatabaseStatus = static_cast<i32>(status);
  if (report) report_status(model, path, status);
}

void load_description(Model& model, const std::string& path, i16 channel) {
  model.LastDatabaseStatus = static_cast<i32>(LoadMeasurementFile(model, 0, path, channel, 0));
}

void erase_file_values(Model& model) {
  model.FileChannelValues = {};
}

void find_length(CurveTask& task, std::size_t count, LoadStatus status) {
  if (task.points != -1) return;
  task.points = 0;
  if (status == LoadStatus::NotOpened) return;
  constexpr auto kMost = static_cast<std::size_t>(std::numeric_limits<i32>::max());
  task.points = task.plot.Points = static_cast<i32>(std::min(count, kMost));
  if (task.make_room) task.make_room(task);
}

std::size_t axis_of(const PlotRecord& plot) {
  const i16 layer = std::clamp<i16>(plot.Layer, 1, 3);
  return static_cast<std::size_t>(plot.RightAxis != 0 ? layer + 2 : layer - 1);
}

void take_axis_unit(Model& model, const PlotRecord& plot, std::array<std::string, 6>& titles) {
  const std::size_t axis = axis_of(plot);
  model.AxisUnits[axis] = plot.Unit;
  if (model.AxisAutoTitle) titles[axis] = plot.Unit;
}

void take_file_unit(Model& model, PlotRecord& plot, std::array<std::string, 6>& titles) {
  if (!model.FileChannelUnits.has(plot.ChannelIndex)) return;
  plot.Unit = model.FileChannelUnits[plot.ChannelIndex];
  take_axis_unit(model, plot, titles);
}

f64 sample_step(const Model& model, i32 record) {
  const auto found = model.ChannelParams.find(record);
  return found == model.ChannelParams.end() ? 0 : found->second.SampleInterval;
}

f64 sample_start(const Model& model, i32 record) {
  const auto found = model.ChannelParams.find(record);
  return found == model.ChannelParams.end() ? 0 : found->second.StartTime;
}

void read_pair_values(const CurveTask& task) {
  Model& model = task.model;
  const std::size_t pairs = half(task.points);
  const auto maxima = static_cast<i16>(task.plot.ChannelIndex + 1);
  if (task.together != nullptr && task.together->fill(task)) {
    load_description(model, task.path, maxima);
    report_status(model, task.path, static_cast<LoadStatus>(model.LastDatabaseStatus));
    return take_reduction(task, model.FileReduceFactor, readable_date(model.FileDateText));
  }
  load_values(model, task.path, task.plot.ChannelIndex, true);
  take_reduction(task, model.FileReduceFactor, readable_date(model.FileDateText));
  const auto minima = first_values(model, pairs);
  write_y(task.slot.DrawYDatabase, minima, task.scale());
  write_y(task.slot.DrawY, minima, task.scale(), 0, 2);
  if (task.slot.DrawY.size() < 2) return;
  load_values(model, task.path, maxima, false);
  write_y(task.slot.DrawY, first_values(model, pairs), task.scale(), 1, 2);
}

void read_pair_x(const CurveTask& task) {
  Model& model = task.model;
  if (task.together != nullptr && task.together->has_filled(task)) {
    const auto last = static_cast<i16>(task.plot.XSource + (model.DateAxis ? 0 : 1));
    return load_description(model, task.path, last);
  }
  load_values(model, task.path, task.plot.XSource, false);
  if (model.DateAxis) {
    write_x(task.slot, first_values(model, static_cast<std::size_t>(std::max(task.points, 0))),
            task.plot.XOffset);
    return;
  }
  const std::size_t pairs = half(task.points);
  write_x(task.slot, first_values(model, pairs), task.plot.XOffset, 1, 0, 2);
  load_values(model, task.path, static_cast<i16>(task.plot.XSource + 1), false);
  write_x(task.slot, first_values(model, pairs), task.plot.XOffset, task.sign(), 1, 2);
}

void read_block_values(CurveTask& task) {
  Model& model = task.model;
  load_values(model, task.path, task.plot.ChannelIndex, true);
  take_reduction(task, model.FileReduceBlock, model.FileDateText);
  find_length(task, model.FileChannelValues.size(), static_cast<LoadStatus>(model.LastDatabaseStatus));
  const auto values = first_values(model, static_cast<std::size_t>(std::max(task.points, 0)));
  write_y(task.slot.DrawY, values, task.scale());
}

void read_x_channel(const CurveTask& task) {
  load_values(task.model, task.path, task.plot.XSource, false);
  write_x(task.slot, first_values(task.model, static_cast<std::size_t>(std::max(task.points, 0))),
          task.plot.XOffset);
}

void take_plain_date(const CurveTask& task) {
  Model& model = task.model;
  if (!model.PlotDateTexts.has(task.number)) return;
  const std::string extension = upper_extension(task.path);
  if (extension == "MEA") model.PlotDateTexts[task.number] = readable_date(model.FileDateText);
  if (extension == "DAT") model.PlotDateTexts[task.number] = model.FileDateText;
}

TimeLine reduced_time_line(const CurveTask& task, f64 factor) {
  const Model& model = task.model;
  const i32 record = task.plot.DatabaseChannel;
  const bool companions = model.PlotReduceFactor.has(task.number) && model.PlotDateTexts.has(task.number);
  const f64 block = companions ? model.PlotReduceFactor[task.number] / 2.0 : 0;
  const std::string date = companions ? model.PlotDateTexts[task.number] : std::string();
  TimeLine line = time_line(block * sample_step(model, record), sample_start(model, record), factor,
                            model.DateAxis, date);
  if (!model.DateAxis) line.start = 0;
  return line;
}

}  // namespace trendaro
