#pragma once

namespace trendaro {

struct Model;

// Whether a plain curve on show is compressed: in a zoom, for its section alone.
bool compresses_curves(const Model& model);

// Ahead of the curves of a redraw. A zoom of the graph tells the section that compressed curves are worked
// out for; where the curves before were of a section and the next ones are not, the graph zooms into it.
void settle_section(Model& model);

// Behind a redraw of a section whose samples reach over less than half of it: an automatic x axis, which has
// scaled itself to those few samples, shows the section instead and keeps to it.
void hold_sparse_section(Model& model);

// The zoom was taken back in the graph: from here on compressed curves are whole and hold no axis, until
// another section begins.
void forget_section(Model& model);
bool zoom_taken_back(const Model& model);

// A section has begun without a band, which would keep its limits: what was taken back before is over.
void begin_section(Model& model);

}  // namespace trendaro
