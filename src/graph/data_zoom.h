#pragma once

namespace trendaro {

struct Model;

// Brings what the main graph's zoom limits (ZoomMinX ... ZoomMaxRY) enclose on screen. Where the original
// samples behind it fit into the bound of PointsBox, the host imports them and the plots show them; otherwise
// the compressed display is zoomed. The readout of the points and the limit lines follow. A failure of the
// host is told to the user; what was done up to there stays.
void DataZoom(Model& model);

// The section stays in what is on show already. Plots on originals that no longer fit go back to their files.
void stay_in_display(Model& model);

// The samples of the section in ZoomPointsBox: on white while the display is compressed, on green when they
// are original samples.
void show_section_points(Model& model);

// Reads the bound of PointsBox into MaxZoomPoints. Throws RunTimeError when it is no i32.
void take_max_zoom_points(Model& model);

}  // namespace trendaro
