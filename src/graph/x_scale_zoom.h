#pragma once

namespace trendaro {

struct Model;

// The zoom with a channel as x axis: the section is searched in the x channel of plot 1, and its blocks are
// imported one by one. Does nothing for full data. Throws RunTimeError when the host fails.
void XScaleZoom(Model& model);

}  // namespace trendaro
