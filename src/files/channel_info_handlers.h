#pragma once

namespace trendaro {

struct Model;

// "Kanalinformationen darstellen": the form for the channel of the active row.
void mnuShowChanInfo(Model& model);

// TB_INFO: the form for the channels of all plots.
void show_info_of_plots(Model& model);

}  // namespace trendaro
