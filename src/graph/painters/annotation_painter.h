#pragma once

#include <QPainter>

#include "graph/annotation_layout.h"
#include "graph/painters/graph_fonts.h"

namespace trendaro {

// Annotations and limit lines over the curves.
void paint_annotations(QPainter& painter, const GraphProperties& shown,
                       const std::vector<PlacedAnnotation>& annotations, const GraphFonts& fonts);

}  // namespace trendaro
