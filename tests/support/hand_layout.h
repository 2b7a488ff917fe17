#pragma once

#include "graph/graph_layout.h"
#include "graph/graph_surface.h"
#include "support/graph_data.h"

namespace trendaro {

// A layout of 500 x 400 pixels with places that are easy to reckon with. x runs from 0 to 30 at 10 pixels a
// unit, from pixel 100 to 400. Layer 0 stands at 50 to 150, left 0 to 10 and right 0 to 100; layer 1 at 170
// to 270, left -5 to 5. Curve 0 hangs on the first, curve 1 on the second.
inline GraphLayout hand_layout() {
  GraphLayout layout;
  layout.width = 500;
  layout.height = 400;
  layout.has_axes = true;
  layout.x_axis.scale = {0, 30, false, 100, 400};
  layout.x_axis.labels.push_back({"0", {96, 278, 7, 14}});
  layout.x_axis.title = {"Zeit/s", {100, 300, 300, 14}};
  LayerLayout upper;
  upper.layer = 0;
  upper.area = {100, 50, 300, 100};
  upper.left.side = AxisSide::Left;
  upper.left.scale = {0, 10, false, 150, 50};
  upper.left.title = {"n", {40, 50, 14, 100}};
  upper.right.side = AxisSide::Right;
  upper.right.scale = {0, 100, false, 150, 50};
  upper.has_left = upper.has_right = upper.shows_right = true;
  upper.right.title = {"T", {440, 50, 14, 100}};
  LayerLayout lower = upper;
  lower.layer = 1;
  lower.area = {100, 170, 300, 100};
  lower.left.scale = {-5, 5, false, 270, 170};
  lower.left.title = {"p", {40, 170, 14, 100}};
  lower.right.scale = {0, 1, false, 270, 170};
  lower.has_right = lower.shows_right = false;
  layout.layers = {upper, lower};
  layout.curves = {{0, 0, false, 0}, {1, 1, false, 0}};
  layout.titles = {{"Lauf", {0, 0, 500, 20}, TextRole::MainTitle},
                   {"kalt", {0, 20, 500, 14}, TextRole::SubTitle}};
  layout.legend.push_back({1, {150, 350, 20, 14}, {"Druck", {175, 350, 35, 14}}});
  return layout;
}

// The curves of that layout, at pixels (100,150) (200,50) (300,100) and, a gap, nothing; (100,220) (200,270)
// (300,170) (400,220).
inline void hand_curves(GraphSurface& graph) {
  set_curves(graph.pending, 4, {0, 10, 20, 30, 0, 10, 20, 30}, {0, 10, 5, -1000000, 0, -5, 5, 0});
  graph.pending.MultiAxesSubsets = {1, 1};
  PEactions(graph, kTakeOverAndRedraw);
}

}  // namespace trendaro
