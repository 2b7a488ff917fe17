#pragma once

#include "graph/painters/curve_task.h"

namespace trendaro {

// The bodies of methods that fill: each draws all of its curve but symbols and overlay.
void draw_bars(const PaintTask& task, const CurveOutline& outline);
void draw_area(const PaintTask& task, const CurveOutline& outline);
void draw_ribbon(const PaintTask& task, const CurveOutline& outline);
void draw_contour_lines(const PaintTask& task, const CurveOutline& outline);
void draw_contour_areas(const PaintTask& task, const CurveOutline& outline);
void draw_bubbles(const PaintTask& task, const CurveOutline& outline);

// All stacked curves on the axis of the task's curve, if that is the first of them; nothing otherwise.
void draw_stack(const PaintTask& task);

}  // namespace trendaro
