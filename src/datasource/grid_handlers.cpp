#include "datasource/grid_handlers.h"

#include "app/commands.h"
#include "app/model.h"
#include "app/raised.h"
#include "app/toolbar.h"
#include "datasource/channel_mark.h"
#include "files/dataset_header_text.h"

namespace trendaro {
namespace {

constexpr i16 kCheckColumn = 1;
constexpr i16 kNameColumn = 3;

// Shows or hides what stands below row 1, down to the first file. Row 1 itself stays, so that it can be
// opened again. A file in row 1 ends the walk at once, so the first file of a list cannot be
// closed, and goes on showing that it is open.
void open_or_close_head(ChannelRows& list, bool open) {
  if (list.rows[1].kind == RowKind::File) {
    list.rows[1].check = 1;
    return;
  }
  ++list.shape;
  for (i32 i = 2; i <= list.MaxRows() && list.rows[i].kind != RowKind::File; ++i) {
    ChannelRow& row = list.rows[i];
    row.hidden = !open;
    if (open && row.kind == RowKind::Group) row.check = 1;
  }
}

}  // namespace

void show_plot_status(Model& model) {
  if (model.HasFullDataPlot) {
    model.shell.show_status(1,
                            "Nichtkomprimierter Kanal wird angezeigt. Zoom in Originalwerte nicht möglich!");
    model.shell.show_status(2, std::to_string(model.MaxViewPoints));
  } else if (!model.OriginalDataMode) {
    model.shell.show_status(2, "");
    model.shell.show_status(1, "");
  }
}

void click_check_cell(Model& model, i32 row, i16 check) {
  if (model.ButtonLock || !model.Grid.rows.has(row)) return;
  const Raised lock(model.ButtonLock);
  const PausedList paused(model.Grid);
  model.Grid.rows[row].check = check;
  if (row == 1)
    open_or_close_head(model.Grid, check == 1);
  else if (has_children(model.Grid.rows[row].kind))
    show_children(model.Grid, row, check == 1);
  else if (check == 1)
    mark_channel(model, row);
  else
    unmark_channel(model, row);
  show_plot_status(model);
}

void activate_row(Model& model, i32 row) {
  model.Grid.active_row = model.Grid.rows.has(row) ? row : 0;
}

void right_click_cell(Model& model, i32 row, i16 column) {
  if (!model.Grid.rows.has(row)) return;
  activate_row(model, row);
  const RowKind kind = model.Grid.rows[row].kind;
  if (kind != RowKind::Signal && kind != RowKind::File) return;
  model.SelectedRow = row;
  model.SelectedCol = column;
  ++model.Grid.revision;
}

RowOffer offer_of_active_row(const ChannelRows& list, bool original_data) {
  RowOffer offer;
  if (!list.rows.has(list.active_row)) return offer;
  const ChannelRow& row = list.rows[list.active_row];
  const bool file = row.kind == RowKind::File;
  offer.channel_information = !file;
  offer.remove_file = file && !original_data;
  offer.set_x = is_channel(row.kind);
  offer.configure_plot = offer.set_x && row.check == 1;
  return offer;
}

void mnuPOP1(Model& model) {
  const RowOffer offer = offer_of_active_row(model.Grid, model.OriginalDataMode);
  enable_control(model, "mnuShowChanInfo", offer.channel_information);
  enable_control(model, "mnuPRemoveFile", offer.remove_file);
  enable_control(model, "mnuSetX", offer.set_x);
  enable_control(model, "mnuCfgPlot", offer.configure_plot);
}

std::string text_tip(Model& model, i32 row, i16 column) {
  if (!model.Grid.rows.has(row)) return "";
  if (column == kCheckColumn) return "Markieren, um den Datensatz in der Graphik darzustellen";
  if (column != kNameColumn) return "";
  const ChannelRow& cells = model.Grid.rows[row];
  if (is_channel(cells.kind)) return DatasetHeaderText(model, cells.path, mark_index(cells.mark));
  return cells.kind == RowKind::File ? DatasetHeaderText(model, cells.path, 0) : "";
}

void press_scroll_key(Model& model, bool right) {
  if (model.Zoomed && model.PESG.pending.CursorMode == 0)
    click_tool(model, right ? "TB_SCROLLRIGHT" : "TB_SCROLLLEFT");
}

}  // namespace trendaro
