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
  const char* key;  // "TB_ADDFILE"; separators have none
  const char* tooltip;
  const char* image;       // image key of the released button
  const char* down_image;  // image key of the pressed button, or null
  const char* box;         // object name of the text field: "PointsBox"
  void (*click)(Model&);   // null: its work is not built yet and the button is disabled
};

// All positions of the toolbar, separators included.
std::span<const ToolButton> tool_buttons();

// A click on a button, by the user or by code. Unknown keys do nothing.
void click_tool(Model& model, std::string_view key);

// Brings the layer and side buttons in line with CurrentLayer and CurrentSide.
void ToolbarHandler(Model& model, bool unused);

// Plain files in the list: no survey, no zoom into original data. Shows or hides what belongs to them.
void ReducFormatGUI(Model& model, bool plain);

// Leaves every zoom (TB_ZOOMFIX); nothing without plots.
void reset_zoom(Model& model);

}  // namespace trendaro
