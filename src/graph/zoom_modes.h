#pragma once

#include <string_view>

namespace trendaro {

struct Model;

// The three exclusive zoom modes of the toolbar.
enum class ZoomMode { Horizontal, Vertical, Rectangle };

// Key of the mode's button.
std::string_view zoom_tool(ZoomMode mode);

// Presses the mode, or releases it when it is pressed already; nothing without plots.
void press_zoom_mode(Model& model, ZoomMode mode);

// The mode's button or menu entry.
template <ZoomMode Mode>
void choose_zoom_mode(Model& model) {
  press_zoom_mode(model, Mode);
}

// Jumps to the widest section, from the left end of the present one, that shows original samples. Nothing for
// full data, and while no curve has given the display a reduce factor. Throws RunTimeError, with nothing
// changed, for a bound beyond 32 bits.
void SpringToMaxZoom(Model& model);

// The same as a command: nothing without plots.
void spring_with_plots(Model& model);

}  // namespace trendaro
