#include "interact/cursor_modes.h"

#include "app/model.h"
#include "app/toolbar.h"
#include "graph/graph_cursor.h"
#include "interact/cursor_readout.h"

namespace trendaro {
namespace {

constexpr i32 kPromptStyle = 3;
constexpr const char* kModeEntries[] = {"mnuCursorOff", "mnuVertCursor", "mnuCrossCursor", "mnuSquareCursor"};

void follow_pointer(Model& model, i16 mode) {
  GraphProperties& graph = model.PESG.pending;
  graph.CursorMode = mode;
  graph.CursorPromptTracking = true;
  graph.MarkDataPoints = true;
  ShowCursorDisplay(model, false);
  show_cursor_mode(model);
  PEactions(model.PESG, kRedrawFromSettings);  // marks the data points
}

void choose_mode(Model& model, i16 mode) {
  model.PESG.pending.CursorPromptStyle = kPromptStyle;
  follow_pointer(model, mode);
}

void place_display(Model& model, i16 place) {
  model.CursorDisplayPos = place;
  show_cursor_mode(model);
  if (model.PESG.pending.CursorMode != kCursorOff) ShowCursorDisplay(model, false);
}

}  // namespace

void mnuCursorOff(Model& model) {
  model.PESG.pending.CursorMode = kCursorOff;
  model.PESG.pending.CursorPromptTracking = false;
  ShowCursorDisplay(model, true);
  show_cursor_mode(model);
  PEactions(model.PESG, kRedrawFromSettings);
}

void mnuVertCursor(Model& model) {
  choose_mode(model, kCursorLine);
}

void mnuCrossCursor(Model& model) {
  choose_mode(model, kCursorCross);
}

void mnuSquareCursor(Model& model) {
  choose_mode(model, kCursorSquare);
}

void click_cursor_button(Model& model) {
  if (model.controls["TB_CURSOR"].tag == "1") return mnuCursorOff(model);
  follow_pointer(model, kCursorCross);
}

void mnuCursorPosRight(Model& model) {
  place_display(model, kRightOfGraph);
}

void mnuCursorPosInAxis(Model& model) {
  place_display(model, kInsideLayers);
}

void show_cursor_mode(Model& model) {
  press_tool(model, "TB_CURSOR", model.PESG.pending.CursorMode != kCursorOff);
  for (i16 mode = kCursorOff; mode <= kCursorSquare; ++mode)
    model.controls[kModeEntries[mode]].ticked = model.PESG.pending.CursorMode == mode;
  model.controls["mnuCursorPosRight"].ticked = model.CursorDisplayPos == kRightOfGraph;
  model.controls["mnuCursorPosInAxis"].ticked = model.CursorDisplayPos == kInsideLayers;
}

}  // namespace trendaro
