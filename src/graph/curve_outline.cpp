#include "graph/curve_outline.h"

#include <algorithm>
#include <cmath>

namespace trendaro {
namespace {

constexpr std::size_t kMostPointsPerColumn = 4;

class OutlineBuilder {
 public:
  void add(PixelPoint point) {
    if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
      joined_ = false;
      return;
    }
    if (!joined_) outline_.starts.push_back(outline_.points.size());
    outline_.points.push_back(point);
    joined_ = true;
  }
  void end_piece() { joined_ = false; }
  CurveOutline take() { return std::move(outline_); }

 private:
  CurveOutline outline_;
  bool joined_ = false;
};

struct OutlineTask {
  const CurveSamples& samples;
  const AxisScale& x_scale;
  const AxisScale& y_scale;

  [[nodiscard]] PixelPoint pixel(std::size_t index) const {
    return {pixel_of(x_scale, samples.x(index)), pixel_of(y_scale, static_cast<f64>(samples.y[index]))};
  }
};

// Samples as they are, one after the other.
void add_each(const OutlineTask& task, std::size_t first, std::size_t last, OutlineBuilder& builder) {
  for (std::size_t i = first; i < last; ++i) {
    if (task.samples.drawn(i))
      builder.add(task.pixel(i));
    else
      builder.end_piece();
  }
}

void add_run(const OutlineTask& task, std::size_t first, std::size_t last, OutlineBuilder& builder) {
  if (last - first <= kMostPointsPerColumn) {
    add_each(task, first, last, builder);
    return;
  }
  RunExtremes run;
  if (!find_extremes(task.samples, first, last, run)) {
    builder.end_piece();
    return;
  }
  if (run.first != first) builder.end_piece();
  std::size_t order[] = {run.first, std::min(run.lowest, run.highest), std::max(run.lowest, run.highest),
                         run.last};
  std::size_t former = last;
  for (const std::size_t index : order) {
    if (index != former) builder.add(task.pixel(index));
    former = index;
  }
  if (run.last != last - 1) builder.end_piece();
}

CurveOutline rising_outline(const OutlineTask& task, const PixelRectangle& area, f64 column_width) {
  const CurveSamples& samples = task.samples;
  const std::size_t end = samples.count;
  const bool falls = task.x_scale.last < task.x_scale.first;
  OutlineBuilder builder;
  std::size_t next = first_not_below(samples, 0, task.x_scale.minimum);
  if (next > 0) add_each(task, next - 1, next, builder);
  const auto columns = static_cast<std::size_t>(std::ceil(area.width / column_width));
  for (std::size_t column = 0; column < columns && next < end; ++column) {
    const f64 edge = (static_cast<f64>(column) + 1) * column_width;
    const f64 limit = value_of(task.x_scale, falls ? area.right() - edge : area.x + edge);
    const std::size_t stop = first_not_below(samples, next, limit);
    if (stop > next) add_run(task, next, stop, builder);
    next = stop;
  }
  if (next < end) add_each(task, next, next + 1, builder);
  return builder.take();
}

// Which pixels of an area have been touched.
class Coverage {
 public:
  explicit Coverage(const PixelRectangle& area)
      : area_(area),
        width_(static_cast<std::size_t>(std::max(1.0, std::ceil(area.width)))),
        height_(static_cast<std::size_t>(std::max(1.0, std::ceil(area.height)))),
        touched_(width_ * height_, false) {}

  // Touches the pixels of a line; whether one of them is new.
  bool touch(PixelPoint from, PixelPoint to) {
    const auto steps = static_cast<int>(
        std::ceil(std::min(1e5, std::max(std::abs(to.x - from.x), std::abs(to.y - from.y)))));
    bool fresh = false;
    for (int step = 0; step <= steps; ++step) {
      const f64 part = steps == 0 ? 0 : static_cast<f64>(step) / steps;
      fresh |= touch_pixel({from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part});
    }
    return fresh;
  }

 private:
  bool touch_pixel(PixelPoint point) {
    const f64 column = std::floor(point.x - area_.x);
    const f64 row = std::floor(point.y - area_.y);
    if (column < 0 || row < 0 || column >= static_cast<f64>(width_) || row >= static_cast<f64>(height_))
      return false;
    const std::size_t pixel = static_cast<std::size_t>(row) * width_ + static_cast<std::size_t>(column);
    const bool fresh = !touched_[pixel];
    touched_[pixel] = true;
    return fresh;
  }

  PixelRectangle area_;
  std::size_t width_, height_;
  std::vector<bool> touched_;
};

// Where a line crosses a side of the box: 0 left, 1 right, 2 top, 3 bottom. The place across that side is not
// computed, since a line from very far away has no digits left for it.
PixelPoint crossing(const PixelRectangle& box, int side, PixelPoint computed) {
  switch (side) {
    case 0:
      return {box.x, computed.y};
    case 1:
      return {box.right(), computed.y};
    case 2:
      return {computed.x, box.y};
    default:
      return {computed.x, box.bottom()};
  }
}

// The piece of the line inside the box; false where none of it is.
bool clip_line(const PixelRectangle& box, PixelPoint& from, PixelPoint& to) {
  f64 enter = 0;
  f64 leave = 1;
  const f64 across = to.x - from.x;
  const f64 down = to.y - from.y;
  const f64 speeds[] = {-across, across, -down, down};
  const f64 rooms[] = {from.x - box.x, box.right() - from.x, from.y - box.y, box.bottom() - from.y};
  int enter_side = -1;
  int leave_side = -1;
  for (int side = 0; side < 4; ++side) {
    if (speeds[side] == 0) {
      if (rooms[side] < 0) return false;
      continue;
    }
    const f64 part = rooms[side] / speeds[side];
    if (speeds[side] < 0 && part > enter) {
      enter = part;
      enter_side = side;
    } else if (speeds[side] > 0 && part < leave) {
      leave = part;
      leave_side = side;
    }
  }
  if (enter > leave) return false;
  const PixelPoint start = from;
  if (leave_side >= 0) to = crossing(box, leave_side, {start.x + across * leave, start.y + down * leave});
  if (enter_side >= 0) from = crossing(box, enter_side, {start.x + across * enter, start.y + down * enter});
  return true;
}

CurveOutline wandering_outline(const OutlineTask& task, const PixelRectangle& area) {
  OutlineBuilder builder;
  Coverage coverage(area);
  bool has_former = false;
  bool former_taken = false;
  PixelPoint former;
  for (std::size_t i = 0; i < task.samples.count; ++i) {
    const bool drawn = task.samples.drawn(i);
    const PixelPoint point = drawn ? task.pixel(i) : PixelPoint{};
    if (!drawn || !std::isfinite(point.x) || !std::isfinite(point.y)) {
      builder.end_piece();
      has_former = former_taken = false;
      continue;
    }
    PixelPoint from = has_former ? former : point;
    PixelPoint to = point;
    const bool taken = clip_line(area, from, to) && coverage.touch(from, to);
    if (taken) {
      if (!former_taken) builder.end_piece();
      if (has_former && !former_taken) builder.add(former);
      builder.add(point);
    }
    former = point;
    has_former = true;
    former_taken = taken;
  }
  return builder.take();
}

}  // namespace

CurveOutline curve_outline(const CurveSamples& samples, const AxisScale& x_scale, const AxisScale& y_scale,
                           const PixelRectangle& area, f64 column_width) {
  const OutlineTask task{samples, x_scale, y_scale};
  if (samples.count == 0) return {};
  return samples.rising ? rising_outline(task, area, column_width) : wandering_outline(task, area);
}

CurveOutline clipped(const CurveOutline& outline, const PixelRectangle& box) {
  OutlineBuilder builder;
  for (std::size_t piece = 0; piece < outline.starts.size(); ++piece) {
    const std::size_t first = outline.starts[piece];
    const std::size_t last =
        piece + 1 < outline.starts.size() ? outline.starts[piece + 1] : outline.points.size();
    builder.end_piece();
    bool joined = false;
    for (std::size_t i = first; i < last; ++i) {
      PixelPoint from = i > first ? outline.points[i - 1] : outline.points[i];
      PixelPoint to = outline.points[i];
      if (last - first > 1 && i == first) continue;
      const PixelPoint whole = to;
      if (!clip_line(box, from, to)) {
        builder.end_piece();
        joined = false;
        continue;
      }
      if (!joined && last - first > 1) builder.add(from);
      builder.add(to);
      joined = to.x == whole.x && to.y == whole.y;
      if (!joined) builder.end_piece();
    }
  }
  return builder.take();
}

}  // namespace trendaro
