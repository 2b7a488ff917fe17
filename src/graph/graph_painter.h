#pragma once

#include <QPainter>
#include <QSizeF>

#include "graph/graph_layout.h"
#include "graph/graph_properties.h"
#include "graph/painters/graph_fonts.h"

namespace trendaro {

// A graph on its way to the paper: what it shows, its fonts and where everything stands.
struct GraphSheet {
  const GraphProperties& shown;
  GraphFonts fonts;
  GraphLayout layout;

  // `shown` must outlive the sheet.
  GraphSheet(const GraphProperties& shown, QSizeF size);
  GraphSheet(const GraphProperties& shown, GraphLayout layout);
};

// The graph without what stands over it and may change alone; and just that: annotations, limit lines and
// tables. Both from the painter's origin, in its logical pixels.
void paint_graph_base(QPainter& painter, const GraphSheet& sheet);
void paint_graph_overlay(QPainter& painter, const GraphSheet& sheet);

// Draws what a graph shows over `size`, from the painter's origin, in its logical pixels. The one road for
// the window, pictures and the printer.
void paint_graph(QPainter& painter, const GraphProperties& shown, QSizeF size);

}  // namespace trendaro
