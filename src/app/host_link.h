#pragma once

#include <optional>
#include <string>

#include "app/database_kernel.h"
#include "app/host.h"

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

}  // namespace trendaro
