#pragma once

#include "app/types.h"

namespace trendaro {

class GraphSurface;
struct Model;

// Rewrites the annotation tables of `graph` from the whole list of annotations. Nothing shows before
// PEactions. A mark at a y axis that is not on show is left out; a mark or line in a layer that a zoom hides
// gets a negative axis number. Margins grow with the texts that stand beside the graph and never shrink.
void RebuildAnnotations(const Model& model, GraphSurface& graph);

// Takes the annotation `number`, from 1, out of the list; the later ones move up. The tables stay.
void erase_annotation(Model& model, i16 number);

}  // namespace trendaro
