#pragma once

#include <string>

#include "app/types.h"

namespace trendaro {

struct ChannelRows;
struct Model;

// Builds the first rows of the list and reads the limits of the host's database; without a host the limits
// stay. Throws RunTimeError when the host refuses.
void InitDataSourceGrid(Model& model);

// A click on the cell of column 1 in `row` (from 1) that gave it the value `check`. Ignored while ButtonLock
// is up.
void click_check_cell(Model& model, i32 row, i16 check);

// The words of both status panels on the curves that are shown: that the view is limited by an uncompressed
// channel, and to how many points. Empty without one; left alone in original data.
void show_plot_status(Model& model);

// A click that makes `row` active; 0 for none.
void activate_row(Model& model, i32 row);

// A right click on a cell: activates the row, highlights a signal or file row (SelectedRow).
void right_click_cell(Model& model, i32 row, i16 column);

// What the pop-up menu of the list offers for a row.
struct RowOffer {
  bool channel_information = true;  // mnuShowChanInfo
  bool remove_file = false;         // mnuPRemoveFile
  bool set_x = false;               // mnuSetX
  bool configure_plot = false;      // mnuCfgPlot
};
RowOffer offer_of_active_row(const ChannelRows& list, bool original_data);

// The pop-up menu of the list opens: enables its entries for the active row.
void mnuPOP1(Model& model);

// The tip over a cell; empty where there is none. Over a name it reads the header of the file.
std::string text_tip(Model& model, i32 row, i16 column);

// The left or right key, in the list, a graph or where no pane has taken it, moves a zoomed section as the
// toolbar would; not while a cursor is on.
void press_scroll_key(Model& model, bool right);

// "Als x-Datensatz verwenden" for the active row.
void mnuSetX(Model& model);

// The user chose entry `index` (0 or 1) of xSrc.
void click_xSrc(Model& model, i16 index);

}  // namespace trendaro
