#pragma once

#include "app/controls.h"
#include "app/host_link.h"
#include "app/shell.h"
#include "datasource/channel_rows.h"
#include "datasource/plot_list_state.h"
#include "datasource/x_source.h"
#include "files/channel_info_rows.h"
#include "files/loader_result.h"
#include "graph/graph_surface.h"
#include "graph/view_state.h"
#include "interact/annotation.h"
#include "interact/cursor_display.h"

namespace trendaro {

// All state of the program. One instance, made by `main` or a test; handlers take it by reference.
struct Model : HostLink,
               LoaderResult,
               ChannelInfoState,
               GridState,
               PlotListState,
               ZoomWindow,
               RedrawState,
               TitleState,
               ToolbarChoice,
               AnnotationList,
               CursorDisplay {
  explicit Model(Shell& user_shell);

  Shell& shell;
  Controls controls;
  ChannelRows Grid;
  GraphSurface PESG;        // detail graph
  GraphSurface PESGSurvey;  // survey graph
  bool ButtonLock = false;  // re-entrancy lock of the list and the toolbar
};

}  // namespace trendaro
