#pragma once

#include <string>

#include "app/types.h"

namespace trendaro {

class GraphSurface;

// The look of a graph in a text file: a first line with the version, one line "name = value" a property, a
// last line "end". Titles, colours, fonts, axes, legend, per-curve styles: all properties but those that
// belong to the curves on show (their counts, their layers, the kind of their x values, the cursor's place on
// them) and to the zoom (its mode, scroll bars, limits and layers). Tables are left out too: they are filled
// anew by what they show.

// Writes the settings of `graph` to a temporary file beside `path` and puts it into place when it is complete
// on disk, so that a failure leaves the former file. kPropertyDone, or kPropertyUnknown when it failed.
i32 PEsavetofile(const GraphSurface& graph, const std::string& path);

// Reads settings into `graph`; they show with the next PEactions. A file without its first or its last line
// changes nothing and gives kPropertyUnknown; unknown names and values that do not fit are passed over.
i32 PEloadfromfile(GraphSurface& graph, const std::string& path);

}  // namespace trendaro
