#include "graph/interaction.h"

#include <cmath>

#include "graph/graph_target.h"
#include "graph/pixel_conversion.h"
#include "graph/rubber_band.h"

namespace trendaro {
namespace {

constexpr f64 kSteadyHand = 3;  // pixels that a click may wander

GraphEvent event_at(GraphEventKind kind, const GraphLayout& layout, PixelPoint place,
                    PointerButton button = PointerButton::None) {
  GraphEvent event;
  event.kind = kind;
  event.place = place;
  event.button = button;
  const GraphPlace left = PEconvpixeltograph(layout, place);
  event.x = left.x;
  event.y = left.y;
  event.right_y = PEconvpixeltograph(layout, place, true).y;
  event.layer = left.layer;
  return event;
}

GraphEvent line_event(GraphEventKind kind, const GraphLayout& layout, PixelPoint place, i32 line,
                      PointerButton button) {
  GraphEvent event = event_at(kind, layout, place, button);
  event.target = {TargetKind::VertLine, line};
  return event;
}

bool contains(const PixelRectangle& box, PixelPoint place) {
  return place.x >= box.x && place.x <= box.right() && place.y >= box.y && place.y <= box.bottom();
}

bool inside_layers(const GraphLayout& layout, PixelPoint place) {
  return layout.has_axes && contains(layers_rectangle(layout), place);
}

bool stayed(const Interaction& interaction, PixelPoint place) {
  return std::abs(place.x - interaction.start.x) <= kSteadyHand &&
         std::abs(place.y - interaction.start.y) <= kSteadyHand;
}

bool zooming_allowed(const GraphSurface& graph) {
  return graph.pending.AllowZooming >= kZoomHorizontal && graph.pending.AllowZooming <= kZoomRectangle;
}

GraphEvents right_click(const Interaction& interaction, const GraphSurface& graph, const GraphLayout& layout,
                        PixelPoint place) {
  GraphEvent event = event_at(GraphEventKind::RightClick, layout, place, PointerButton::Right);
  event.target = target_at(graph.shown(), layout, place, TargetOrder::AnnotationsFirst, interaction.measure);
  return {event};
}

GraphEvents follow_pointer(GraphSurface& graph, const GraphLayout& layout, PixelPoint place) {
  if (!inside_layers(layout, place) || !snap_cursor(graph, layout, place)) return {};
  return {event_at(GraphEventKind::CursorMove, layout, place)};
}

// A click where the button went down; a cursor that does not follow the pointer jumps there.
GraphEvents click(const Interaction& interaction, GraphSurface& graph, const GraphLayout& layout,
                  PixelPoint place) {
  GraphEvents events;
  if (graph.pending.CursorMode != kCursorOff && !graph.pending.CursorPromptTracking)
    events = follow_pointer(graph, layout, place);
  GraphEvent event = event_at(GraphEventKind::Click, layout, place, PointerButton::Left);
  event.target = target_at(graph.shown(), layout, place, TargetOrder::DataFirst, interaction.measure);
  events.push_back(event);
  return events;
}

GraphEvents end_band(const Interaction& interaction, GraphSurface& graph, const GraphLayout& layout,
                     PixelPoint place) {
  const PixelRectangle band = rubber_band(layout, interaction.mode, interaction.start, place);
  if (!zoom_into(graph, layout, interaction.mode, band)) return {};
  return {event_at(GraphEventKind::ZoomEnd, layout, place, PointerButton::Left)};
}

CursorStep step_of(GraphKey key) {
  switch (key) {
    case GraphKey::Left:
      return CursorStep::Back;
    case GraphKey::Up:
      return CursorStep::CurveAbove;
    case GraphKey::Down:
      return CursorStep::CurveBelow;
    case GraphKey::PageUp:
      return CursorStep::JumpBack;
    case GraphKey::PageDown:
      return CursorStep::JumpForward;
    case GraphKey::Home:
      return CursorStep::First;
    case GraphKey::End:
      return CursorStep::Last;
    default:
      return CursorStep::Forward;
  }
}

PixelPoint middle_of(const GraphLayout& layout) {
  const PixelRectangle all = layers_rectangle(layout);
  return {all.x + all.width / 2, all.y + all.height / 2};
}

}  // namespace

GraphEvents press_pointer(Interaction& interaction, GraphSurface& graph, const GraphLayout& layout,
                          PixelPoint place, PointerButton button) {
  if (interaction.drag != PointerDrag::None) return {};
  if (button == PointerButton::Right) return right_click(interaction, graph, layout, place);
  interaction.start = interaction.now = place;
  interaction.line = interaction.has_limit_lines ? gripped_line(graph.shown(), layout, place) : -1;
  if (interaction.line >= 0) {
    interaction.drag = PointerDrag::LimitLine;
    return {line_event(GraphEventKind::LimitLineClick, layout, place, interaction.line, button)};
  }
  const bool band = zooming_allowed(graph) && inside_layers(layout, place);
  interaction.drag = band ? PointerDrag::Band : PointerDrag::Press;
  interaction.mode = graph.pending.AllowZooming;
  return {};
}

GraphEvents move_pointer(Interaction& interaction, GraphSurface& graph, const GraphLayout& layout,
                         PixelPoint place) {
  interaction.now = place;
  switch (interaction.drag) {
    case PointerDrag::LimitLine:
      return {line_event(GraphEventKind::PointerMove, layout, place, interaction.line, PointerButton::Left)};
    case PointerDrag::None:
      if (graph.pending.CursorMode != kCursorOff && graph.pending.CursorPromptTracking)
        return follow_pointer(graph, layout, place);
      return {};
    default:
      return {};
  }
}

GraphEvents release_pointer(Interaction& interaction, GraphSurface& graph, const GraphLayout& layout,
                            PixelPoint place, PointerButton button) {
  if (button != PointerButton::Left) return {};
  const PointerDrag drag = interaction.drag;
  interaction.drag = PointerDrag::None;
  interaction.now = place;
  switch (drag) {
    case PointerDrag::LimitLine:
      return {line_event(GraphEventKind::ButtonUp, layout, place, interaction.line, button)};
    case PointerDrag::Band:
      return stayed(interaction, place) ? click(interaction, graph, layout, place)
                                        : end_band(interaction, graph, layout, place);
    case PointerDrag::Press:
      return stayed(interaction, place) ? click(interaction, graph, layout, place) : GraphEvents{};
    default:
      return {};
  }
}

GraphEvents double_click_pointer(Interaction& interaction, GraphSurface& graph, const GraphLayout& layout,
                                 PixelPoint place) {
  interaction.drag = PointerDrag::None;
  GraphEvent event = event_at(GraphEventKind::DoubleClick, layout, place, PointerButton::Left);
  event.target = target_at(graph.shown(), layout, place, TargetOrder::DataFirst, interaction.measure);
  return {event};
}

GraphEvents press_graph_key(const Interaction& interaction, GraphSurface& graph, const GraphLayout& layout,
                            GraphKey key, bool& taken) {
  taken = true;
  if (key == GraphKey::Undo) {
    taken = !interaction.has_limit_lines && undo_zoom(graph);
    return taken ? GraphEvents{event_at(GraphEventKind::ZoomUndo, layout, middle_of(layout))} : GraphEvents{};
  }
  if (graph.pending.CursorMode != kCursorOff) {
    if (!step_cursor(graph, layout, step_of(key))) return {};
    const CursorMark mark = cursor_mark(graph, layout);
    const PixelPoint middle = middle_of(layout);
    const f64 x = mark.vertical ? mark.vertical->x : mark.square ? mark.square->x : middle.x;
    return {event_at(GraphEventKind::CursorMove, layout, {x, middle.y})};
  }
  taken = key == GraphKey::Left || key == GraphKey::Right;
  if (!taken) return {};
  GraphEvent event = event_at(GraphEventKind::KeyDown, layout, middle_of(layout));
  event.key = key == GraphKey::Left ? kKeyLeft : kKeyRight;
  return {event};
}

GraphEvents give_up_pointer(Interaction& interaction, const GraphLayout& layout) {
  const PointerDrag drag = interaction.drag;
  interaction.drag = PointerDrag::None;
  if (drag != PointerDrag::LimitLine) return {};
  return {
      line_event(GraphEventKind::GripLost, layout, interaction.now, interaction.line, PointerButton::None)};
}

PixelRectangle drawn_band(const Interaction& interaction, const GraphLayout& layout) {
  if (interaction.drag != PointerDrag::Band || stayed(interaction, interaction.now)) return {};
  return rubber_band(layout, interaction.mode, interaction.start, interaction.now);
}

PointerShape pointer_shape(const Interaction& interaction, const GraphSurface& graph,
                           const GraphLayout& layout, PixelPoint place) {
  if (interaction.drag == PointerDrag::LimitLine) return PointerShape::Grip;
  if (interaction.has_limit_lines && gripped_line(graph.shown(), layout, place) >= 0)
    return PointerShape::Grip;
  return zooming_allowed(graph) && inside_layers(layout, place) ? PointerShape::Cross : PointerShape::Arrow;
}

}  // namespace trendaro
