#pragma once

namespace trendaro {

struct Model;

// Switches of the menu "Achsen". Each turns its tick and draws both graphs from their settings.

void mnuAxAutoTitle(Model& model);  // titles of the axes follow the data
void mnuNoYTitle(Model& model);     // y axes have no titles
// The graphs take powers of ten out of the labels, until their next set-up.
void mnuAutoScaleData(Model& model);

}  // namespace trendaro
