#pragma once

namespace trendaro {

struct Model;

// Keeps the manual scale of the main graph from before a zoom: a compressed view writes over it.
void hold_unzoomed_scale(Model& model);

// Gives the main graph the scale back that was kept; nothing where none was.
void restore_unzoomed_scale(Model& model);

}  // namespace trendaro
