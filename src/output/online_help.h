#pragma once

namespace trendaro {

struct Model;

// Shows HelpFile in the viewer that the desktop has for it; tells the user where there is no such file, or no
// viewer that takes it.
void mnuOnlineHelp(Model& model);

}  // namespace trendaro
