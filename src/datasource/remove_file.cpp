#include <algorithm>

#include "app/attempt.h"
#include "app/model.h"
#include "app/numbers.h"
#include "app/toolbar.h"
#include "datasource/file_list.h"
#include "datasource/grid_handlers.h"
#include "datasource/plot_list.h"
#include "datasource/survey_presence.h"
#include "datasource/x_range.h"
#include "datasource/zoom_readout.h"
#include "graph/main_redraw.h"
#include "graph/survey_redraw.h"

namespace trendaro {
namespace {

// The row behind the file in `row` and its signals.
i32 end_of_file(const ChannelRows& list, i32 row) {
  i32 end = row + 1;
  while (list.rows.has(end) && list.rows[end].kind == RowKind::Signal) ++end;
  return end;
}

// `row` after the rows `first` to `end` - 1 have gone; 0 when it was one of them.
i32 row_after_removal(i32 row, i32 first, i32 end) {
  if (row < first) return row;
  return row < end ? 0 : row - (end - first);
}

// In row 1 nothing opens a closed file, so one that comes to stand there is opened.
void open_first_file(ChannelRows& list) {
  if (!list.rows.has(1) || list.rows[1].kind != RowKind::File) return;
  list.rows[1].check = 1;
  show_children(list, 1, true);
}

// Removes the file's rows and tells whether one of its signals was marked.
bool remove_rows(Model& model, i32 first, i32 end) {
  const PausedList paused(model.Grid);
  const auto mark = model.Grid.marked.lower_bound(first);
  const bool was_marked = mark != model.Grid.marked.end() && *mark < end;
  erase_rows(model.Grid, first, end - first);
  if (first == 1) open_first_file(model.Grid);
  model.SelectedRow = row_after_removal(model.SelectedRow, first, end);
  model.LastClickedRow = row_after_removal(model.LastClickedRow, first, end);
  return was_marked;
}

// The counter goes down even for a file that is not in the list.
void remove_from_file_list(Model& model, const std::string& path) {
  const auto found = std::find(model.FileList.begin(), model.FileList.end(), path);
  if (found != model.FileList.end()) std::move(found + 1, model.FileList.end(), found);
  if (model.NofFiles > 0) --model.NofFiles;
  model.FileList.resize(static_cast<std::size_t>(model.NofFiles));
}

void redraw_without_removed(Model& model) {
  const bool was_zoomed = model.Zoomed;
  model.CompressedDXMax = 0;
  model.ActiveReduceFactor = 0;
  model.MaxViewPoints = 0;
  reset_zoom(model);
  clear_x_range(model.PESG);
  RebuildPlotList(model);
  settle_readout_colour(model);
  RedrawKMGraph(model, false);
  if (!model.HasFullDataPlot) {
    if (was_zoomed || !model.controls["mnuShowSurvGraph"].enabled) bring_survey_back(model);
    ReducFormatGUI(model, false);
  }
  // Without a zoom also where plain files hide the survey: it is to hold no curve of the removed file.
  if (!was_zoomed || !model.HasFullDataPlot) RedrawSurvGraph(model, false);
  model.controls["ZoomPointsBox"].text =
      count_text(static_cast<f64>(model.MaxViewPoints) * model.ActiveReduceFactor / 2);
  show_plot_status(model);
}

}  // namespace

void RemoveFileFromGrid(Model& model) {
  const i32 first = model.Grid.active_row;
  if (!model.Grid.rows.has(first) || model.Grid.rows[first].kind != RowKind::File) return;
  const std::string path = model.Grid.rows[first].path;
  const bool was_marked = remove_rows(model, first, end_of_file(model.Grid, first));
  remove_from_file_list(model, path);
  if (was_marked) redraw_without_removed(model);
}

}  // namespace trendaro
