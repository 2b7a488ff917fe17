#pragma once

#include <string>
#include <vector>

#include "app/types.h"
#include "files/channel_info_rows.h"

namespace trendaro {

struct Model;

// Fills InfoGrid with all that is known about the channel in `row` (from 1) of the channel list. A channel of
// a reduced recording is described by its measurement file. A file that cannot be read leaves the rows that
// were there, and no message is shown.
void FillChannelInfo(Model& model, i32 row);

// Fills InfoGrid with the channels of all plots, one below the other in the order of the plots. Those that
// cannot be read are left out; when none can, the rows stay.
void fill_info_of_plots(Model& model);

// The rows as lines of text: name, tabulator, value, carriage return and line feed.
std::string channel_info_text(const std::vector<ChannelInfoRow>& rows);

}  // namespace trendaro
