#pragma once

#include <QColor>

#include "app/types.h"
#include "graph/graph_properties.h"

namespace trendaro {

// A colour 0x00BBGGRR, or 0x80000000 + i: colour i of the desktop's palette.
QColor graph_color(i32 color);

// `color` laid over `back` with a share of 0 to 1.
QColor blended(const QColor& color, const QColor& back, f64 share);

// A text in `color` on `back`: darker, or lighter on a dark back, as far as it takes to read it.
QColor readable_on(const QColor& color, const QColor& back);

// The colour as 0x00BBGGRR.
i32 color_number(const QColor& color);

// Colour of a curve; one of the palette where none is set.
QColor curve_color(const GraphProperties& shown, std::size_t subset);

}  // namespace trendaro
