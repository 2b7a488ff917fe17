#include "files/section_handlers.h"

#include <optional>
#include <string>

#include "app/model.h"
#include "app/numbers.h"
#include "app/paths.h"
#include "app/run_time_error.h"
#include "files/any_case_file.h"
#include "files/section_writer.h"

namespace trendaro {
namespace {

struct SectionSource {
  i16 plot = 0;
  std::string path;
};

bool is_envelope(const std::string& extension) {
  return extension == "ST1" || equal_ignoring_case(extension, "STO") || extension == "ST2";
}

// The recording behind the first plot of an envelope; on purpose with the same extension for all envelopes.
std::optional<SectionSource> find_source(const Model& model) {
  for (i16 number = 1; number <= model.NofPlots; ++number) {
    const PlotRecord& plot = model.Plots[number];
    const std::string file = plot.Title.find('@') == std::string::npos ? plot.Title : plot_path(plot);
    const auto pieces = split_at_dots(file);
    if (pieces.size() < 2 || !is_envelope(pieces[1])) continue;
    const std::string path = pieces[0] + ".MEA";
    return SectionSource{number, find_in_any_case(path).value_or(path)};
  }
  return std::nullopt;
}

std::string ask_target(Model& model) {
  return model.shell.ask_save_file({.title = "Ausschnittsdatei aus der ersten Meßwertdatei erzeugen",
                                    .filters = {{"Messwertdatei(*.MEA)", "*.MEA"}},
                                    .default_ending = "MEA"});
}

// Rows of the section on show, for the plot that the recording was found by. Throws where no redraw has given
// that plot a step.
i32 row_count(const Model& model, i16 plot) {
  if (!model.PlotStep.has(plot) || model.PlotStep[plot] == 0) throw RunTimeError{kDivisionByZero};
  const f64 ratio = model.CompressedDXMax / model.PlotStep[plot];
  return round_to_i32(ratio * model.ZoomPoints * model.PlotReduceFactor[plot] / 2);
}

void tell_failure(Model& model, SectionStatus status) {
  model.shell.show_message(section_failure_text(status), kProgramTitle, MessageIcon::None);
}

SectionStatus write_with_progress(Model& model, const std::string& source, const std::string& target,
                                  i32 first, i32 rows) {
  const WaitPointer wait(model.shell);
  model.shell.show_status(1, "Meßwertausschnittsdatei wird erzeugt!");
  const SectionStatus status = WriteSectionFile(source, target, first, rows,
                                                [&](f64 fraction) { model.shell.show_progress(fraction); });
  model.shell.show_progress(-1);
  model.shell.show_status(1, status == SectionStatus::Done ? "Meßwertausschnittsdatei erzeugt." : "");
  return status;
}

}  // namespace

void mnuCreateMEASection(Model& model) {
  if (model.ZoomPoints == 0 || model.HasFullDataPlot) return;
  const auto source = find_source(model);
  if (!source) return tell_failure(model, SectionStatus::NotRecording);
  const std::string target = ask_target(model);
  if (target.empty()) return;
  // First row by the first plot, whichever plot the recording was found by.
  const i32 first = model.PlotOffsetPoints.has(1) ? model.PlotOffsetPoints[1] : 0;
  const i32 rows = row_count(model, source->plot);
  const SectionStatus status = write_with_progress(model, source->path, target, first, rows);
  model.LastDatabaseStatus = static_cast<i32>(status);
  if (status != SectionStatus::Done) tell_failure(model, status);
}

}  // namespace trendaro
