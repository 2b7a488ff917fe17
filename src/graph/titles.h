#pragma once

namespace trendaro {

struct Model;
class GraphSurface;

// Gives each axis of a graph its title from the units that the last redraw collected.
void SetAxisTitles(Model& model, GraphSurface& graph);

// Writes the title lines of a graph; the subtitle of the detail graph tells what kind of data it shows. A
// title line without "|" is framed by two bars, in the stored text as well.
void SetGraphTitles(Model& model, GraphSurface& graph);

}  // namespace trendaro
