#pragma once

#include <optional>
#include <string>

#include "app/controls.h"
#include "app/database_kernel.h"
#include "app/host.h"
#include "app/shell.h"
#include "datasource/channel_rows.h"
#include "datasource/plot_list_state.h"
#include "datasource/x_source.h"
#include "files/channel_info_rows.h"
#include "files/loader_result.h"
#include "graph/graph_surface.h"
#include "graph/view_state.h"
#include "interact/annotation.h"

namespace trendaro {

// The link to the host application.
struct HostLink {
  MervanHost* Host = nullptr;         // null: the program must not run on
  DatabaseKernel* Kernel = nullptr;   // works on the host's channels
  std::optional<bool> CanUnloadFlag;  // empty at start, true once the main window has been unloaded
  i32 LastDatabaseStatus = 0;         // of the last call of the kernel, the loader or the graph
  std::string TemplateFolder;         // where the look of the graphs is kept between runs
  std::string HelpFile;
};

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
               AnnotationList {
  explicit Model(Shell& user_shell);

  Shell& shell;
  Controls controls;
  ChannelRows Grid;
  GraphSurface PESG;        // detail graph
  GraphSurface PESGSurvey;  // survey graph
  bool ButtonLock = false;  // re-entrancy lock of the list and the toolbar
};

}  // namespace trendaro
