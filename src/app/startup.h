#pragma once

namespace trendaro {

struct Model;

// The load of the main window behind the link to the host: list, database limits, both graphs, templates of
// the last run, toolbar, titles, ticks and limits, in the order that the steps rely on. A failure is thrown
// and fatal. The templates lie in TemplateFolder; an empty one becomes the program's own folder.
void load_main_window(Model& model);

// The main window was activated. False when there is no host: the message was shown and the window must go.
bool activate_main_window(Model& model);

// Whether the main window may close; asks the user where there is a host.
bool query_close(Model& model);

// The unload of the main window; failures are passed by.
void unload_main_window(Model& model);

// Whether the viewer may be released; false as long as nothing was said.
bool can_unload(const Model& model);

}  // namespace trendaro
