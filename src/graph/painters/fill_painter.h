#pragma once

#include "graph/painters/curve_task.h"

namespace trendaro {

// The bodies of methods that fill: each draws all of its curve but symbols and overlay.
void draw_bars(const CurveTask& task, const CurveOutline& outline);
void draw_area(const CurveTask& task, const CurveOutline& outline);
void draw_ribbon(const CurveTask& task, const CurveOutline& outline);
void draw_contour_lines(const CurveTask& task, const CurveOutline& outline);
void draw_contour_areas(const CurveTask& task, const CurveOutline& outline);
void draw_bubbles(const CurveTask& task, const CurveOutline& outline);

// All stacked curves on the axis of the task's curve, if that is the first of them; nothing otherwise.
void draw_stack(const CurveTask& task);

}  // namespace trendaro
