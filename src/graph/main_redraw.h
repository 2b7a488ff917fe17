#pragma once

namespace trendaro {

struct Model;

// Brings the plots into the detail graph: sizes the data, reads each curve, hands the flat arrays over,
// writes the titles and redraws. With `settings_only` nothing is read and names, colours, titles and legend
// are brought up to date over the curves that the graph holds. A step that fails is passed over; an
// unreadable curve leaves null values in its slot.
void RedrawKMGraph(Model& model, bool settings_only);

}  // namespace trendaro
