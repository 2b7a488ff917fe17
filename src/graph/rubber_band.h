#pragma once

#include <optional>

#include "graph/graph_layout.h"
#include "graph/graph_surface.h"

namespace trendaro {

// Values of AllowZooming.
inline constexpr i16 kZoomOff = 0;
inline constexpr i16 kZoomHorizontal = 1;
inline constexpr i16 kZoomVertical = 2;
inline constexpr i16 kZoomRectangle = 3;

// The rectangle from the first to the last of all layers.
PixelRectangle layers_rectangle(const GraphLayout& layout);

// What a rubber band from `start` to `now` encloses: all of the height or of the width where the mode leaves
// that direction alone, and never more than the layers.
PixelRectangle rubber_band(const GraphLayout& layout, i16 mode, PixelPoint start, PixelPoint now);

// Zooms into the rectangle and shows it: writes ZoomMinX to ZoomMaxRY of every layer on show, ZoomAxisTop,
// ZoomAxisBottom and ZoomActive. A layer that the rectangle does not touch keeps its range; a direction that
// the mode leaves alone keeps what is on show. False, with nothing written, where the rectangle is too
// small to be meant or touches no layer.
bool zoom_into(GraphSurface& graph, const GraphLayout& layout, i16 mode, const PixelRectangle& band);

// Takes the zoom back and shows it; curves of a section stay until others are handed over. False where none
// holds or zooming is off.
bool undo_zoom(GraphSurface& graph);

}  // namespace trendaro
