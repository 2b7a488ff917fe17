#pragma once

namespace trendaro {

struct Model;

// Toggles the compression of long plain curves and its tick. Redraws nothing.
void mnuUseCompression(Model& model);

// Asks for the number of points that a curve is compressed to; below 10, and without an answer, 10000.
// Redraws nothing.
void mnuCompressMin(Model& model);

// Toggles the curve cache and its tick; switched off, all that is kept is freed at once.
void mnuCurveCache(Model& model);

}  // namespace trendaro
