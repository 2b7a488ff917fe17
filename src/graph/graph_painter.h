#pragma once

#include <QPainter>
#include <QSizeF>

#include "graph/graph_properties.h"

namespace trendaro {

// Draws what a graph shows over `size`, from the painter's origin, in its logical pixels. The one road for
// the window, pictures and the printer.
void paint_graph(QPainter& painter, const GraphProperties& shown, QSizeF size);

}  // namespace trendaro
