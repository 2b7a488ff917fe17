#include "graph/main_curves.h"

#include <algorithm>
#include <string>

#include "app/attempt.h"
#include "app/model.h"
#include "app/paths.h"
#include "files/loader.h"
#include "graph/compress_curve.h"
#include "graph/curve_cache.h"
#include "graph/main_sizing.h"
#include "graph/window_reading.h"

namespace trendaro {
namespace {

bool time_from_base(const PlotRecord& plot) {
  return plot.XSource == 0 && plot.TimeFromRate == 1;
}

void take_time_title(Model& model, const MainReading& reading) {
  model.XTitle = time_title(model.TimeUnit, reading.time.unit);
}

// Name and unit of the x channel in the file that was read last.
void take_x_texts(const CurveTask& task, MainReading& reading) {
  Model& model = task.model;
  const i16 channel = task.plot.XSource;
  if (model.FileChannelNames.has(channel)) model.XTitle = model.FileChannelNames[channel];
  if (model.FileChannelUnits.has(channel)) reading.unit_text = model.FileChannelUnits[channel];
}

// The values that zoom and readouts use of the reduced display.
void take_reduced_step(const CurveTask& task, f64 step) {
  Model& model = task.model;
  if (model.PlotStep.has(task.number)) model.PlotStep[task.number] = step;
  if (task.number != model.LongestPlot) return;
  model.CompressedDXMax = step;
  if (model.PlotReduceFactor.has(task.number)) model.ActiveReduceFactor = model.PlotReduceFactor[task.number];
  if (model.PlotDateTexts.has(task.number)) model.FirstDateText = model.PlotDateTexts[task.number];
}

void take_reduced_time_line(const CurveTask& task, MainReading& reading) {
  reading.line = reduced_time_line(task, reading.time.factor);
  take_reduced_step(task, reading.line.step);
  write_line(task.slot, static_cast<std::size_t>(std::max(task.points, 0)), reading.line);
  take_time_title(task.model, reading);
}

// A plot without a length keeps its place and gives its unit. True when there is more to read.
bool has_length(const CurveTask& task) {
  if (task.points > 0 || task.points == -1) return true;
  load_description(task.model, task.path, task.plot.ChannelIndex);
  take_file_unit(task.model, task.plot, task.model.MainAxisTitles);
  return false;
}

void take_database_line(CurveTask& task, MainReading& reading) {
  Model& model = task.model;
  const bool companions = model.PlotOffsetPoints.has(task.number) && model.PlotDateTexts.has(task.number);
  const f64 step = sample_step(model, task.plot.DatabaseChannel);
  const f64 start = companions ? model.PlotOffsetPoints[task.number] * step : 0;
  reading.line = time_line(step, start, reading.time.factor, model.DateAxis,
                           companions ? model.PlotDateTexts[task.number] : std::string());
  take_time_title(model, reading);
  if (!model.PlotReduceFactor.has(task.number) || !model.PlotStep.has(task.number)) return;
  model.PlotStep[task.number] = model.PlotReduceFactor[task.number] / 2.0 * reading.line.step;
  if (task.number == model.LongestPlot) model.CompressedDXMax = model.PlotStep[task.number];
}

void read_database_x(CurveTask& task, std::size_t points) {
  Model& model = task.model;
  HostDatabase& database = model.Host->DB();
  SampleArray values;
  values.assign(points, 0);
  const i32 length = database.GetChannelLength(model.XScratchChannel);
  const std::size_t held = std::min(points, static_cast<std::size_t>(std::max(length, 0)));
  attempt([&] { database.ReadData64(model.XScratchChannel, std::span<f64>(values).first(held)); });
  write_x(task.slot, values, task.plot.XOffset);
}

void take_database_x_texts(Model& model, MainReading& reading) {
  HostDatabase& database = model.Host->DB();
  const i16 channel = model.XScratchChannel;
  attempt([&] {
    const std::string name = host_text(database.GetChannelProperty(channel, kChannelName));
    model.XTitle = trimmed(name);
  });
  attempt([&] {
    const std::string unit = host_text(database.GetChannelProperty(channel, kChannelUnit));
    reading.unit_text = trimmed(unit);
  });
}

void read_database_y(CurveTask& task, std::size_t points) {
  SampleArray values;
  values.assign(points, 0);
  attempt([&] { task.model.Host->DB().ReadData64(task.plot.DatabaseChannel, values); });
  write_y(task.slot.DrawYDatabase, values, task.scale());
}

// Behind the samples a slot of DrawX holds null values; that of DrawXII never does.
void read_database_samples(CurveTask& task, MainReading& reading, std::size_t length) {
  Model& model = task.model;
  const std::size_t points = std::min(length, task.slot.DrawYDatabase.size());
  attempt([&] { read_database_y(task, points); });
  if (time_from_base(task.plot)) take_database_line(task, reading);
  if (task.plot.XSource > 0)
    attempt([&] { read_database_x(task, points); });
  else
    write_line(task.slot, points, reading.line);
  CurveSlot single_precision = task.slot;
  single_precision.DrawXII = {};
  pad_x(single_precision, points, model.PESG.pending.NullDataValueX);
}

void take_plain_description(const CurveTask& task) {
  Model& model = task.model;
  if (model.PlotReduceFactor.has(task.number)) model.PlotReduceFactor[task.number] = model.FileReduceFactor;
  take_plain_date(task);
  take_file_unit(model, task.plot, model.MainAxisTitles);
  const bool only_plain = model.LongestPlot == 0;
  if (only_plain && task.points == model.LongestFullPoints && model.PlotDateTexts.has(task.number))
    model.FirstDateText = model.PlotDateTexts[task.number];
}

// The compressed line keeps its start; the plain one starts at 0 unless dates are shown.
TimeLine plain_time_line(const CurveTask& task, const MainReading& reading, bool compressed) {
  const Model& model = task.model;
  const std::string date =
      model.PlotDateTexts.has(task.number) ? model.PlotDateTexts[task.number] : std::string();
  TimeLine line =
      time_line(sample_step(model, 0), sample_start(model, 0), reading.time.factor, model.DateAxis, date);
  if (!compressed && !model.DateAxis) line.start = 0;
  return line;
}

void make_slot_hold(CurveTask& task, std::size_t points) {
  if (points > task.slot.DrawY.size() && task.widen_slot) task.widen_slot(task, static_cast<i32>(points));
}

void draw_plain_samples(CurveTask& task, MainReading& reading, std::span<const f64> samples,
                        bool compressed) {
  Model& model = task.model;
  PlainCurve curve{.y = samples, .x = nullptr, .line = {}};
  if (!compressed) write_y(task.slot.DrawY, samples, task.scale());
  if (time_from_base(task.plot)) {
    curve.line = reading.line = plain_time_line(task, reading, compressed);
    take_time_title(model, reading);
  }
  SampleArray kept;
  std::span<const f64> x;
  if (task.plot.XSource > 0) {
    // The next load replaces the samples where they are not cached.
    if (compressed && samples.data() == model.FileChannelValues.data()) {
      kept = std::move(model.FileChannelValues);
      curve.y = std::span<const f64>(kept).first(samples.size());
    }
    x = x_channel_samples(model, task.path, task.plot.XSource);
    take_x_texts(task, reading);
    curve.x = &x;
  }
  if (compressed) {
    attempt([&] { curve.index = kept_index(model, task.number); });
    make_slot_hold(task, compressed_points(model, curve, model.CompressFactor));
    CompressCurve(model, curve, model.CompressFactor, task.slot, task.number, task.sign());
  } else if (curve.x != nullptr)
    write_x(task.slot, x.first(std::min(x.size(), samples.size())), task.plot.XOffset);
  else if (time_from_base(task.plot))
    write_line(task.slot, samples.size(), curve.line);
}

bool is_compressed(const Model& model) {
  return model.HasFullDataPlot && model.DisplayCompression;
}

// Whether the samples of a curve can be drawn while they are read: they are not needed afterwards, nor x for
// choosing among them.
bool draws_while_reading(const CurveTask& task) {
  const Model& model = task.model;
  if (!model.CurveCacheOff || task.plot.Cached != 0 || task.plot.XSource > 0 || task.points <= 0)
    return false;
  return !is_compressed(model) || (model.CompressFactor > 1 && !model.Zoomed);
}

// Passes the samples of a curve to `take`; the time line they lie on.
TimeLine pass_samples(CurveTask& task, MainReading& reading, bool compressed, const TakeValues& take) {
  Model& model = task.model;
  const LoadStatus status = PassMeasurementValues(model, task.path, task.plot.ChannelIndex, take);
  model.LastDatabaseStatus = static_cast<i32>(status);
  report_status(model, task.path, status);
  take_plain_description(task);
  if (!time_from_base(task.plot)) return {};
  reading.line = plain_time_line(task, reading, compressed);
  take_time_title(model, reading);
  return reading.line;
}

void compress_while_reading(CurveTask& task, MainReading& reading) {
  Model& model = task.model;
  PairStream pairs(model.CompressFactor, static_cast<std::size_t>(task.points), task.slot.DrawY.size());
  const TimeLine line = pass_samples(task, reading, true, [&](std::span<const f64> run) { pairs.add(run); });
  write_pair_points(model, pairs, line, task.slot, task.number, task.sign());
}

void copy_while_reading(CurveTask& task, MainReading& reading) {
  const DrawSlot<f32> slot = task.slot.DrawY.first(static_cast<std::size_t>(task.points));
  std::size_t done = 0;
  const TimeLine line = pass_samples(task, reading, false, [&](std::span<const f64> run) {
    run = run.first(std::min(run.size(), slot.size() - done));
    write_y(slot, run, task.scale(), done);
    done += run.size();
  });
  if (time_from_base(task.plot)) write_line(task.slot, done, line);
}

void keep_window_while_reading(CurveTask& task, MainReading& reading) {
  take_time_title(task.model, reading);
  read_window_samples(task, [&] {
    take_plain_date(task);
    return reading.line = plain_time_line(task, reading, false);
  });
  take_plain_description(task);
}

}  // namespace

void read_database_curve(CurveTask& task, MainReading& reading) {
  Model& model = task.model;
  take_axis_unit(model, task.plot, model.MainAxisTitles);
  if (model.Host == nullptr) return;
  const i32 length = model.Host->DB().GetChannelLength(task.plot.DatabaseChannel);
  if (length <= 0) {
    pad_x(task.slot, 0, model.PESG.pending.NullDataValueX);
    return;
  }
  if (!reading.settings_only)
    attempt([&] { read_database_samples(task, reading, static_cast<std::size_t>(length)); });
  if (task.plot.XSource > 0) take_database_x_texts(model, reading);
}

void read_pair_curve(CurveTask& task, MainReading& reading) {
  if (!has_length(task) || reading.settings_only) return;
  Model& model = task.model;
  if (task.points == -1) {
    load_description(model, task.path, task.plot.ChannelIndex);
    const auto slot = static_cast<std::size_t>(std::max<i16>(task.plot.ChannelIndex, 1) - 1);
    if (slot < model.FileChannelPoints.size()) task.points = model.FileChannelPoints[slot];
  }
  read_pair_values(task);
  if (time_from_base(task.plot)) take_reduced_time_line(task, reading);
  if (task.plot.XSource > 0) {
    read_pair_x(task);
    take_x_texts(task, reading);
  }
  take_file_unit(model, task.plot, model.MainAxisTitles);
}

void read_block_curve(CurveTask& task, MainReading& reading) {
  if (!has_length(task) || reading.settings_only) return;
  read_block_values(task);
  if (time_from_base(task.plot)) take_reduced_time_line(task, reading);
  if (task.plot.XSource > 0) {
    read_x_channel(task);
    take_x_texts(task, reading);
  }
  take_file_unit(task.model, task.plot, task.model.MainAxisTitles);
}

void read_plain_curve(CurveTask& task, MainReading& reading) {
  if (!has_length(task) || reading.settings_only) return;
  Model& model = task.model;
  if (reads_window(model)) return keep_window_while_reading(task, reading);
  if (draws_while_reading(task)) {
    if (is_compressed(model)) return compress_while_reading(task, reading);
    return copy_while_reading(task, reading);
  }
  LoadStatus status = LoadStatus::Done;
  std::span<const f64> samples = plain_samples(model, task.number, task.path, status);
  report_status(model, task.path, status);
  find_length(task, samples.size(), status);
  samples = samples.first(std::min(samples.size(), static_cast<std::size_t>(std::max(task.points, 0))));
  take_plain_description(task);
  draw_plain_samples(task, reading, samples, is_compressed(model));
}

}  // namespace trendaro
