#pragma once

#include <span>
#include <string_view>

#include "app/types.h"

namespace trendaro {

struct Model;

enum class ToolKind { Button, Separator, Box };

// One position of Toolbar1, in order from 1. A box position holds a text field in the bar.
struct ToolButton {
  ToolKind kind;
  const char* key;         // "TB_ADDFILE"; of the separators only those have one that can be hidden
  const char* tooltip;     // German; null for separators
  const char* image;       // image key of the released button; null for separators and boxes
  const char* down_image;  // image key of the pressed button, or null
  const char* box;         // object name of the text field: "PointsBox"; null for all but boxes
  void (*click)(Model&);   // null: its work is not built yet and the button is disabled
};

// All positions of the toolbar, separators included. Each key has a state in the model's controls; `visible`
// there holds for the separators as well, and a box is hidden with the key of its holder.
std::span<const ToolButton> tool_buttons();

// Adds a state for every key and text field of the bar to the model's controls.
void add_tool_controls(Model& model);

// Whether a button of this key has its work behind it.
bool has_tool_work(std::string_view key);

// A click on a button, by the user or by code. Keys that are unknown or without work do nothing. The bar is
// mirrored anew after each click.
void click_tool(Model& model, std::string_view key);

// Gives a button the look of a pressed or a released one: tag and image.
void press_tool(Model& model, std::string_view key, bool pressed);

// Brings the layer and side buttons in line with CurrentLayer and CurrentSide.
void ToolbarHandler(Model& model, bool unused);

// Plain files in the list: no survey, no zoom into original data. Shows or hides what belongs to them.
void ReducFormatGUI(Model& model, bool plain);

// With `lock` the vertical and the rectangle zoom are released, without it they and their menu entries are
// enabled.
void LockZoomButtons(Model& model, bool lock);

// No zoom mode is pressed; both graphs take no rubber band and the detail graph leaves its zoom.
void ReleaseZoomButtons(Model& model);

// Leaves every zoom (TB_ZOOMFIX); nothing without plots.
void reset_zoom(Model& model);

}  // namespace trendaro
