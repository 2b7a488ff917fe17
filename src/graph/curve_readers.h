#pragma once

#include <array>
#include <functional>
#include <string>

#include "app/types.h"
#include "datasource/plot_record.h"
#include "files/load_status.h"
#include "graph/draw_arrays.h"
#include "graph/time_axis.h"

namespace trendaro {

struct Model;
class PairReading;

// One curve that a redraw reads.
struct CurveTask {
  Model& model;
  PlotRecord& plot;  // of the main or of the survey graph
  i16 number;        // of the plot, from 1
  std::string path;
  i32 points;  // samples, pairs counted double
  CurveSlot slot;
  // Told the length of a plot that was not known (-1) before its values were there; may give a larger slot.
  std::function<void(CurveTask& task)> make_room = {};
  // Gives the slot at least as many points as told.
  std::function<void(CurveTask& task, i32 points)> widen_slot = {};
  PairReading* together = nullptr;  // the envelopes of the redraw

  [[nodiscard]] i16 sign() const { return plot.InvertFlag == 1 ? i16{-1} : i16{1}; }
  [[nodiscard]] DisplayScale scale() const { return {plot.YOffset, sign()}; }
};

// Reads the values of a channel into FileChannelValues. Those of the load before are gone, also when the file
// does not open; with `report` the user is told then.
void load_values(Model& model, const std::string& path, i16 channel, bool report);

// Reads the description of a file alone.
void load_description(Model& model, const std::string& path, i16 channel);

// Tells the user when a file did not open.
void report_status(Model& model, const std::string& path, LoadStatus status);

// Frees the values that the last load left.
void erase_file_values(Model& model);

// Takes `count` over as the length of the task and its plot where none was known (-1). A file that did not
// open told none: the task draws nothing and the plot's length stays open for the next time.
void find_length(CurveTask& task, std::size_t count, LoadStatus status);

// Place of a plot's axis in AxisUnits and in the axis titles.
std::size_t axis_of(const PlotRecord& plot);

// The plot's unit becomes the unit of its axis and, with automatic titles, its entry in `titles`.
void take_axis_unit(Model& model, const PlotRecord& plot, std::array<std::string, 6>& titles);

// The same with the unit that the file read last gives the plot's channel; nothing where it gives none.
void take_file_unit(Model& model, PlotRecord& plot, std::array<std::string, 6>& titles);

// Milliseconds between the samples, and the start, in the parameters kept under `record`; 0 without them.
f64 sample_step(const Model& model, i32 record);
f64 sample_start(const Model& model, i32 record);

// Minima and maxima of a reduced pair: interleaved into DrawY, the minimum first; into DrawYDatabase the
// minima alone. Leaves the reduce factor and the date text of the plot as the file gives them.
void read_pair_values(const CurveTask& task);

// x of a reduced pair from its x channel. On a date axis the points of the one channel, otherwise minima and
// maxima interleaved; the sign of the curve turns the maxima alone, on purpose.
void read_pair_x(const CurveTask& task);

// Values of a block-reduced file, minima and maxima in turn as they are stored; sets task.points and the
// plot's where they were not known (-1).
void read_block_values(CurveTask& task);

// x from a channel of the same file, one value a point.
void read_x_channel(const CurveTask& task);

// The date text of a plain plot, by the file's extension: a recording's in readable form, that of a ".DAT"
// file as it stands; any other file leaves the plot's as it was.
void take_plain_date(const CurveTask& task);

// The time line of a reduced curve, by the reduce factor that its file gave. Without a date axis the line
// starts at 0, on purpose.
TimeLine reduced_time_line(const CurveTask& task, f64 factor);

}  // namespace trendaro
