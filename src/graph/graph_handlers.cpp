#include "graph/graph_handlers.h"

#include "app/model.h"
#include "datasource/grid_handlers.h"
#include "graph/limit_lines.h"
#include "graph/zoom_end.h"
#include "interact/cursor_readout.h"

namespace trendaro {
namespace {

void handle_main(Model& model, const GraphEvent& event) {
  if (event.kind == GraphEventKind::ZoomEnd) end_main_zoom(model);
  if (event.kind == GraphEventKind::ZoomUndo) undo_main_zoom(model);
  if (event.kind == GraphEventKind::CursorMove) UpdateCursorDisplay(model);
}

void handle_survey(Model& model, const GraphEvent& event) {
  switch (event.kind) {
    case GraphEventKind::ZoomEnd:
      return end_survey_zoom(model);
    case GraphEventKind::LimitLineClick:
      return grip_limit_line(model, static_cast<i16>(event.target.index));
    case GraphEventKind::PointerMove:
      return drag_limit_line(model, event.x, event.y);
    case GraphEventKind::ButtonUp:
      return drop_limit_line(model);
    case GraphEventKind::GripLost:
      return release_limit_line(model);
    default:
      return;
  }
}

}  // namespace

void handle_graph_event(Model& model, const GraphSurface& graph, const GraphEvent& event) {
  if (event.kind == GraphEventKind::KeyDown) return press_scroll_key(model, event.key == kKeyRight);
  if (&graph == &model.PESG) return handle_main(model, event);
  handle_survey(model, event);
}

bool is_pointer_step(const GraphEvent& event) {
  return event.kind == GraphEventKind::PointerMove || event.kind == GraphEventKind::CursorMove;
}

}  // namespace trendaro
