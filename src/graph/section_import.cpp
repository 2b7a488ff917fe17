#include "graph/section_import.h"

#include <algorithm>
#include <array>

#include "app/attempt.h"
#include "app/model.h"
#include "app/numbers.h"
#include "app/run_time_error.h"
#include "files/loader.h"

namespace trendaro {
namespace {

constexpr i16 kSamplesOfFile = 3;
constexpr i16 kCloseProgress = 2;
// Ids of block files, whose length only their values tell.
constexpr std::array<i32, 3> kLengthUnknown = {5003, 5055, 5056};

bool from_block_file(const PlotRecord& plot) {
  return plot.FileKind == kKindReducedBlock || plot.FileKind == kKindDatabaseFromBlock;
}

}  // namespace

std::optional<PlotScaling> plot_scaling(const Model& model, i16 number) {
  if (!model.PlotStep.has(number) || !model.PlotReduceFactor.has(number)) return std::nullopt;
  if (model.PlotStep[number] == 0) return std::nullopt;
  return PlotScaling{model.PlotReduceFactor[number] / 2.0, model.CompressedDXMax / model.PlotStep[number]};
}

f64 original_length(const Model& model, i16 number, const PlotScaling& scaling) {
  return model.Plots[number].Points * scaling.block;
}

i32 first_sample(const PlotScaling& scaling, f64 low) {
  return round_to_i32(scaling.block * low * scaling.ratio);
}

void note_first_samples(Model& model, f64 low) {
  size_import_companions(model);
  for (i16 number = 1; number <= model.NofPlots; ++number)
    if (const auto scaling = plot_scaling(model, number))
      attempt([&] { model.PlotOffsetPoints[number] = std::max(0, first_sample(*scaling, low)); });
}

HostDatabase& host_database(Model& model) {
  if (model.Host == nullptr) throw RunTimeError{kHostCallFailed};
  return model.Host->DB();
}

void size_import_companions(Model& model) {
  const std::size_t count = model.Plots.size();
  if (model.OriginalFileNames.size() < count) model.OriginalFileNames.resize(count);
  if (model.PlotOffsetPoints.size() < count) model.PlotOffsetPoints.resize(count);
}

HostValue source_channel(const Model& model, const PlotRecord& plot) {
  if (plot.FileKind == kKindReducedPairs && !model.KeepOriginalChannels) return (plot.ChannelIndex + 1) / 2.0;
  return plot.ChannelIndex;
}

PlotSection cut_to_file(Model& model, i16 number, PlotSection section) {
  const PlotRecord& plot = model.Plots[number];
  if (!from_block_file(plot)) return section;
  const std::string& path = model.OriginalFileNames[number];
  model.LastDatabaseStatus = static_cast<i32>(LoadMeasurementFile(model, 0, path, plot.ChannelIndex, 0));
  if (std::ranges::find(kLengthUnknown, i32{model.FileId}) != kLengthUnknown.end()) return section;
  const i32 held = host_database(model).GetDataFileInfo(path, kSamplesOfFile, plot.ChannelIndex);
  if (i64{section.first} + section.length > held)
    section.length = round_to_i32(f64{1} * held - section.first);
  return section;
}

void set_section(HostDatabase& database, PlotSection section) {
  database.SetImportProperty(kImportFirstSample, section.first);
  database.SetImportProperty(kImportSampleCount, section.length);
}

void execute_import(Model& model) {
  host_database(model).ExecuteImport();
  model.Host->ProgressControl(kCloseProgress);
}

void move_to_original(PlotRecord& plot) {
  if (plot.FileKind == kKindReducedPairs) {
    plot.FileKind = kKindDatabase;
    plot.ChannelIndex = round_to_i16((plot.ChannelIndex + 1) / 2.0);
  } else if (plot.FileKind == kKindReducedBlock) {
    plot.FileKind = kKindDatabaseFromBlock;
  }
}

void return_to_reduced(Model& model) {
  for (PlotRecord& plot : model.Plots) {
    if (plot.FileKind == kKindDatabase) {
      plot.FileKind = kKindReducedPairs;
      plot.ChannelIndex = round_to_i16(2.0 * plot.ChannelIndex - 1);
    } else if (plot.FileKind == kKindDatabaseFromBlock) {
      plot.FileKind = kKindReducedBlock;
    }
  }
}

bool any_on_original(const Model& model) {
  return std::ranges::any_of(model.Plots, [](const PlotRecord& plot) {
    return plot.FileKind == kKindDatabase || plot.FileKind == kKindDatabaseFromBlock;
  });
}

}  // namespace trendaro
