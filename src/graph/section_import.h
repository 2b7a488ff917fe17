#pragma once

#include <optional>
#include <string>

#include "app/host.h"
#include "app/types.h"
#include "datasource/plot_record.h"

namespace trendaro {

struct Model;

// Samples of a plot's original file, from 0.
struct PlotSection {
  i32 first = 0;
  i32 length = 0;
};

// How the compressed display stands to the original samples of one plot.
struct PlotScaling {
  f64 block = 0;  // original samples a display point of the plot
  f64 ratio = 0;  // display points of the plot to one of the longest plot
};

// Nothing for a plot that no redraw has given a step; such a plot has no samples on show.
std::optional<PlotScaling> plot_scaling(const Model& model, i16 number);

// Samples of the original file behind all that the plot shows.
f64 original_length(const Model& model, i16 number, const PlotScaling& scaling);

// The host's database. Throws RunTimeError where there is none.
HostDatabase& host_database(Model& model);

// The sample of the plot at `low`, the left end of a section in display points; below 0 left of the
// recording. Throws RunTimeError when it is no i32.
i32 first_sample(const PlotScaling& scaling, f64 low);

// Keeps in PlotOffsetPoints where the section of the reduced display begins in each plot's original.
void note_first_samples(Model& model, f64 low);

// Makes room for the results of an import of every plot.
void size_import_companions(Model& model);

// Channel in the original file, as the host wants it: of a reduced pair half of its number as f64.
HostValue source_channel(const Model& model, const PlotRecord& plot);

// For block files: `section` cut to the samples that the original file has by the host's count. Files of
// kinds whose length the host does not know are left alone.
PlotSection cut_to_file(Model& model, i16 number, PlotSection section);

// Tells the host which samples to import.
void set_section(HostDatabase& database, PlotSection section);

// Has the host import with what was set before, and takes its progress display away.
void execute_import(Model& model);

// The plot shows original samples from now on.
void move_to_original(PlotRecord& plot);

// All plots show their reduced files again.
void return_to_reduced(Model& model);

// A plot stands on original samples.
bool any_on_original(const Model& model);

}  // namespace trendaro
