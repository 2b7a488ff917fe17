#include "app/pane_layout.h"

#include <algorithm>
#include <cmath>

namespace trendaro {
namespace {

constexpr i32 kTwipsPerPixel = 15;
constexpr i32 kLabelHeight = 18;
constexpr i32 kBoxHeight = 26;
constexpr i32 kMargin = 4;
constexpr i32 kAnnotationHeight = 110;
constexpr i32 kNameColumnLess = 500 / kTwipsPerPixel;
constexpr i32 kBoxLess = 300 / kTwipsPerPixel;

// `length` cut to what lies between the two, the upper one winning; never negative.
i32 cut(i32 length, i32 least, i32 most) {
  return std::max(0, std::min(std::max(length, least), most));
}

// Takes up to `height` pixels off the top of `column`.
PaneRect take_top(PaneRect& column, i32 height) {
  const PaneRect taken{column.left, column.top, column.width, cut(height, 0, column.height)};
  column.top += taken.height;
  column.height -= taken.height;
  return taken;
}

// The area between toolbar and status bar.
PaneRect work_area(const WindowFrame& frame) {
  const i32 top = cut(frame.top, 0, frame.height);
  const i32 status = cut(frame.status_height, 0, frame.height - top);
  return {0, top, std::max(0, frame.width), std::max(0, frame.height) - top - status};
}

i32 list_width(const WindowFrame& frame, const PaneSplit& split) {
  return cut(split.list_width, kMinimalListWidth, frame.width - kSeparatorSize - kMinimalGraphWidth);
}

void place_list(PaneLayout& layout, PaneRect column) {
  take_top(column, kMargin);
  layout.Label1 = take_top(column, kLabelHeight);
  layout.xSrc = take_top(column, kBoxHeight);
  take_top(column, kMargin);
  layout.Grid = column;
  layout.xSrc.width = std::max(0, layout.Grid.width - kBoxLess);
  layout.Label1.left += std::min(kMargin, column.width);
  layout.Label1.width = std::max(0, column.width - kMargin);
  layout.xSrc.left += std::min(kMargin, column.width);
}

// The graphs' column: what lies right of the list.
PaneRect graph_column(const WindowFrame& frame, const PaneSplit& split) {
  PaneRect column = work_area(frame);
  if (!frame.list_visible) return column;
  column.left = std::min(column.width, list_width(frame, split) + kSeparatorSize);
  column.width -= column.left;
  return column;
}

// The height that both graphs share.
i32 shared_height(const PaneRect& column) {
  return std::max(0, column.height - kSeparatorSize);
}

i32 survey_height(const PaneRect& column, f64 share) {
  const i32 shared = shared_height(column);
  const f64 wished = std::isfinite(share) ? std::clamp(share, 0.0, 1.0) * shared : 0;
  return cut(static_cast<i32>(std::lround(wished)), std::min(kMinimalGraphHeight, shared / 2),
             shared - std::min(kMinimalGraphHeight, shared / 2));
}

}  // namespace

PaneLayout lay_out_panes(const WindowFrame& frame, const PaneSplit& split) {
  PaneLayout layout;
  const PaneRect area = work_area(frame);
  layout.sbStatus = {0, area.top + area.height, area.width,
                     std::max(0, frame.height) - area.top - area.height};
  PaneRect column = graph_column(frame, split);
  if (frame.list_visible) {
    const i32 width = std::min(area.width, list_width(frame, split));
    place_list(layout, {area.left, area.top, width, area.height});
    layout.Separator = {width, area.top, column.left - width, area.height};
  }
  if (frame.annotations_visible) layout.AnnoGrid = take_top(column, kAnnotationHeight);
  if (!frame.survey_visible) {
    layout.PESG = column;
    return layout;
  }
  layout.PESG = take_top(column, shared_height(column) - survey_height(column, split.survey_share));
  layout.SeparatorGraph = take_top(column, kSeparatorSize);
  layout.PESGSurvey = column;
  return layout;
}

i32 name_column_width(i32 list_width, i32 column1_width, i32 column2_width) {
  return std::max(0, list_width - column1_width - column2_width - kNameColumnLess);
}

void drag_separator(PaneSplit& split, const WindowFrame& frame, i32 x) {
  split.list_width = x;
  split.list_width = list_width(frame, split);
}

void drag_separator_graph(PaneSplit& split, const WindowFrame& frame, i32 y) {
  PaneRect column = graph_column(frame, split);
  if (frame.annotations_visible) take_top(column, kAnnotationHeight);
  const i32 shared = shared_height(column);
  if (shared == 0) return;
  const f64 share = static_cast<f64>(column.top + shared - y) / shared;
  split.survey_share = static_cast<f64>(survey_height(column, share)) / shared;
}

}  // namespace trendaro
