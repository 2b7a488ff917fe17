#include "app/toolbar.h"

#include <algorithm>
#include <array>
#include <string>

#include "app/commands.h"
#include "app/model.h"
#include "datasource/file_list.h"
#include "files/channel_info_handlers.h"
#include "graph/scrolling.h"
#include "graph/zoom_modes.h"
#include "interact/cursor_modes.h"

namespace trendaro {
namespace {

template <i16 Layer>
void choose_layer(Model& model) {
  model.CurrentLayer = Layer;
  ToolbarHandler(model, false);
}

template <i16 Side>
void choose_side(Model& model) {
  model.CurrentSide = Side;
  ToolbarHandler(model, false);
}

template <bool Right>
void scroll(Model& model) {
  scroll_section(model, Right);
}

constexpr ToolButton separator(const char* key = nullptr) {
  return {ToolKind::Separator, key, nullptr, nullptr, nullptr, nullptr, nullptr};
}

constexpr ToolButton button(const char* key, const char* tooltip, const char* image, const char* down_image,
                            void (*click)(Model&)) {
  return {ToolKind::Button, key, tooltip, image, down_image, nullptr, click};
}

constexpr ToolButton holder(const char* key, const char* tooltip, const char* box) {
  return {ToolKind::Box, key, tooltip, nullptr, nullptr, box, nullptr};
}

constexpr auto kButtons = std::to_array<ToolButton>({
    button("TB_ADDFILE", "Datei zu Kanalliste hinzufügen", "ADDFILE", nullptr, mnuOpenFile),
    separator(),
    button("TB_OPENGRAPH", "Ausschnittsgraphik aus Datei laden", "OPENGRAPH", nullptr, nullptr),
    button("TB_SAVEGRAPH", "Ausschnittsgraphik in Datei speichern", "SAVEGRAPH", nullptr, nullptr),
    separator(),
    button("TB_PRINT", "Ausschnittsgraphik drucken", "PRINT", nullptr, nullptr),
    separator(),
    button("TB_EXPORT", "Ausschnittsgraphik exportieren", "EXPORT", nullptr, nullptr),
    separator(),
    button("TB_AXIS1", "Kurven hinzufügen in y-Skalenebene 1", "Y1_UP", "Y1_DN", choose_layer<1>),
    button("TB_AXIS2", "Kurven hinzufügen in y-Skalenebene 2", "Y2_UP", "Y2_DN", choose_layer<2>),
    button("TB_AXIS3", "Kurven hinzufügen in y-Skalenebene 3", "Y3_UP", "Y3_DN", choose_layer<3>),
    separator(),
    button("TB_LYAXIS", "Kurven gegen linke y-Achse zeichnen", "LY_UP", "LY_DN", choose_side<1>),
    button("TB_RYAXIS", "Kurven gegen rechte y-Achse zeichnen", "RY_UP", "RY_DN", choose_side<2>),
    separator("TB_SEPARATOR16"),
    holder("TB_ZOOMPOINTS", "Maximalintervall der anzuzeigenden Originaldatenpunkte", "PointsBox"),
    button("TB_ZOOMINTERVAL", "Zoom in Maximalintervall", "ZOOMMAX", nullptr, spring_with_plots),
    button("TB_ZOOMFIX", "Zoom zurücksetzen", "ZOOMFIX", nullptr, reset_zoom),
    button("TB_ZOOMHORZ", "Horizontalen Zoom im Ausschnitt ein/ausschalten", "HZOOMUP", "HZOOMDN",
           choose_zoom_mode<ZoomMode::Horizontal>),
    button("TB_ZOOMVERT", "Vertikalen Zoom im Ausschnitt ein/ausschalten", "VZOOMUP", "VZOOMDN",
           choose_zoom_mode<ZoomMode::Vertical>),
    button("TB_ZOOMRECT", "Rechteckzoom im Ausschnitt ein/ausschalten", "RZOOMUP", "RZOOMDN",
           choose_zoom_mode<ZoomMode::Rectangle>),
    separator(),
    holder("TB_SHOWPOINTS", "Anzahl der Originalpunkte in aktuellem Ausschnitt", "ZoomPointsBox"),
    separator(),
    button("TB_SCROLLLEFT", "Zoomausschnitt nach links verschieben", "SCROLLLEFT", nullptr, scroll<false>),
    holder("TB_SCROLLPOINTS", "Punktanzahl, um die der Zoomausschnitt verschoben wird", "StepBox"),
    button("TB_SCROLLRIGHT", "Zoomausschnitt nach rechts verschieben", "SCROLLRIGHT", nullptr, scroll<true>),
    separator("TB_SEPARATOR29"),
    button("TB_INFO", "Informationen aller dargestellten Kanäle anzeigen", "INFO", nullptr,
           show_info_of_plots),
    button("TB_CURSOR", "Cursor-Modus ein/ausschalten", "CURSUP_XP", "CURSDN_XP", click_cursor_button),
    button("TB_ANNOTATION", "Annotationen erzeugen", "ANNOTATION", nullptr, nullptr),
});

const ToolButton* find_button(std::string_view key) {
  const auto found = std::ranges::find_if(
      kButtons, [&](const ToolButton& tool) { return tool.key != nullptr && key == tool.key; });
  return found == kButtons.end() ? nullptr : &*found;
}

constexpr const char* kZoomModes[] = {"TB_ZOOMHORZ", "TB_ZOOMVERT", "TB_ZOOMRECT"};

}  // namespace

std::span<const ToolButton> tool_buttons() {
  return kButtons;
}

void add_tool_controls(Model& model) {
  for (const ToolButton& tool : kButtons) {
    if (tool.key != nullptr)
      model.controls.add(tool.key, {.enabled = tool.kind != ToolKind::Button || tool.click != nullptr,
                                    .image = tool.image == nullptr ? "" : tool.image});
    if (tool.box != nullptr) model.controls.add(tool.box, {});
  }
  model.controls["PointsBox"].text = "10000";
}

bool has_tool_work(std::string_view key) {
  const ToolButton* tool = find_button(key);
  return tool != nullptr && tool->click != nullptr;
}

void click_tool(Model& model, std::string_view key) {
  const ToolButton* tool = find_button(key);
  if (tool != nullptr && tool->click != nullptr) tool->click(model);
}

void press_tool(Model& model, std::string_view key, bool pressed) {
  const ToolButton* tool = find_button(key);
  if (tool == nullptr || tool->down_image == nullptr) return;
  ControlState& state = model.controls[key];
  state.tag = pressed ? "1" : "";
  state.image = pressed ? tool->down_image : tool->image;
}

void ToolbarHandler(Model& model, bool) {
  for (i16 layer = 1; layer <= 3; ++layer)
    press_tool(model, "TB_AXIS" + std::to_string(layer), model.CurrentLayer == layer);
  press_tool(model, "TB_LYAXIS", model.CurrentSide == 1);
  press_tool(model, "TB_RYAXIS", model.CurrentSide == 2);
}

void ReducFormatGUI(Model& model, bool plain) {
  for (const char* entry : {"mnuShowSurvGraph", "mnuSetSurvTitle", "mnuZoomToMax"})
    enable_control(model, entry, !plain);
  for (const char* tool : {"TB_ZOOMINTERVAL", "TB_SCROLLLEFT", "TB_SCROLLRIGHT", "TB_SCROLLPOINTS",
                           "TB_ZOOMPOINTS", "TB_SEPARATOR16", "TB_SEPARATOR29", "PointsBox", "StepBox"})
    model.controls[tool].visible = !plain;
}

void LockZoomButtons(Model& model, bool lock) {
  for (const char* tool : {"TB_ZOOMVERT", "TB_ZOOMRECT"}) {
    if (lock)
      press_tool(model, tool, false);
    else
      enable_control(model, tool, true);
  }
  if (lock) return;
  for (const char* entry : {"mnuZoomVert", "mnuZoomRect"}) enable_control(model, entry, true);
}

void ReleaseZoomButtons(Model& model) {
  for (const char* tool : kZoomModes) press_tool(model, tool, false);
  model.PESG.pending.AllowZooming = 0;
  model.PESG.pending.ZoomActive = false;
  model.PESGSurvey.pending.AllowZooming = 0;
}

}  // namespace trendaro
