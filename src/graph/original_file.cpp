#include "graph/original_file.h"

#include <optional>

#include "app/model.h"
#include "app/paths.h"
#include "files/any_case_file.h"

namespace trendaro {
namespace {

constexpr char kMissing[] = "Meßwertfile nicht vorhanden!";
constexpr char kMissingOrOtherExtension[] =
    "Meßwertfile nicht vorhanden. Überprüfen Sie, ob die Endung des Meßwertfiles mit der in Trendaro "
    "angegebenen Dateiendung übereinstimmt!";

// The second piece decides, so that a "." in a folder name makes the rule miss.
std::optional<std::string> original_name(const Model& model, OriginalSearch& search) {
  const std::string stem = split_at_dots(search.file).front();
  const std::string kind = upper_piece(search.file, 1);
  if (kind == "ST1") return stem + ".ME1";
  if (kind == "ST2") return stem + ".ME2";
  if (kind == "STO") return stem + ".MEA";
  if (kind != "REB" || !search.block_names) return std::nullopt;
  search.block_name_met = true;
  return stem + "." + model.OriginalExtension;
}

}  // namespace

void find_original(Model& model, i16 number, OriginalSearch& search) {
  const PlotRecord& plot = model.Plots[number];
  if (plot.Title.find('@') != std::string::npos) {
    search.signal = plot_signal(plot);
    search.file = plot_path(plot);
  }
  std::string& original = model.OriginalFileNames[number];
  if (const auto name = original_name(model, search)) original = find_in_any_case(*name).value_or(*name);
  model.OriginalFileMissing = !is_file(original);
  if (!model.OriginalFileMissing) model.MissingFileReported = false;
}

void report_missing_original(Model& model, bool block_name_met) {
  if (!model.OriginalFileMissing || model.MissingFileReported) return;
  model.shell.show_message(block_name_met ? kMissingOrOtherExtension : kMissing, kProgramTitle,
                           MessageIcon::None);
  model.shell.show_status(1, kMissing);
  model.MissingFileReported = true;
}

void show_missing_original(Model& model) {
  if (model.OriginalDataMode && model.OriginalFileMissing && model.MissingFileReported)
    model.shell.show_status(1, kMissing);
}

}  // namespace trendaro
