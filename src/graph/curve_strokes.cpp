#include "graph/curve_strokes.h"

#include <algorithm>
#include <cmath>

namespace trendaro {
namespace {

constexpr f64 kCovered = 0.5;    // share of a column
constexpr f64 kDenseRatio = 12;  // length of an outline against its extent

// The points of one pixel column that follow each other.
struct Column {
  f64 number = 0;                   // from the left edge of the device
  std::size_t first = 0, last = 0;  // `last` is one behind the end
  f64 top = 0, bottom = 0;
  bool swings = false;  // goes up and down

  [[nodiscard]] f64 height() const { return bottom - top; }
};

// Whether the curve covers most of a column in a neighbouring one as well.
bool is_covered(const Column& column, const Column& neighbour) {
  const f64 shared = std::min(column.bottom, neighbour.bottom) - std::max(column.top, neighbour.top);
  return std::abs(column.number - neighbour.number) <= 1 && shared >= column.height() * kCovered;
}

// Between columns that cover it a single flank is no edge that could be told: a dense curve has such columns
// now and then, and drawn as lines they would stand out pale.
bool is_bar(const std::vector<Column>& columns, std::size_t i) {
  const Column& column = columns[i];
  if (column.height() < kLeastBar) return false;
  if (column.swings) return true;
  return i > 0 && i + 1 < columns.size() && is_covered(column, columns[i - 1]) &&
         is_covered(column, columns[i + 1]);
}

// An odd number of pixels of about `width`, so that a bar has its column in the middle.
f64 odd_pixels(f64 width) {
  return 1 + 2 * std::max(0.0, std::round((width - 1) / 2));
}

class StrokeBuilder {
 public:
  StrokeBuilder(const CurveOutline& outline, f64 column_width, f64 line_width)
      : outline_(outline),
        column_width_(column_width),
        bar_width_(column_width * odd_pixels(line_width / column_width)),
        half_line_(line_width / 2) {}

  void add_piece(std::size_t first, std::size_t last) {
    joined_ = false;
    std::vector<Column> columns;
    for (std::size_t i = first; i < last; i = columns.back().last)
      columns.push_back(column_from(i, last, i > first));
    bool after_bar = false;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const bool bar = is_bar(columns, i);
      if (bar)
        add_bar(columns[i], i > 0, after_bar);
      else
        add_points(columns[i], after_bar);
      after_bar = bar;
    }
  }

  CurveStrokes take() { return std::move(strokes_); }

 private:
  [[nodiscard]] f64 column_of(const PixelPoint& point) const { return std::floor(point.x / column_width_); }

  // The way in from a neighbouring column counts, so that pairs of a lowest and a highest point are swings.
  [[nodiscard]] Column column_from(std::size_t first, std::size_t last, bool has_former) const {
    const auto& points = outline_.points;
    Column column{column_of(points[first]), first, first + 1, points[first].y, points[first].y};
    const bool entered = has_former && std::abs(column.number - column_of(points[first - 1])) <= 1;
    bool up = entered && points[first].y < points[first - 1].y;
    bool down = entered && points[first].y > points[first - 1].y;
    while (column.last < last && column_of(points[column.last]) == column.number) {
      const f64 y = points[column.last].y;
      up = up || y < points[column.last - 1].y;
      down = down || y > points[column.last - 1].y;
      column.top = std::min(column.top, y);
      column.bottom = std::max(column.bottom, y);
      ++column.last;
    }
    column.swings = up && down;
    return column;
  }

  // A bar reaches to where the line came from, so that neighbouring bars touch.
  void add_bar(const Column& column, bool has_former, bool after_bar) {
    f64 top = column.top;
    f64 bottom = column.bottom;
    if (has_former && after_bar) {
      const f64 middle = (outline_.points[column.first - 1].y + outline_.points[column.first].y) / 2;
      top = std::min(top, middle);
      bottom = std::max(bottom, middle);
      extend_last_bar(middle);
    } else if (has_former) {
      add_point(outline_.points[column.first]);
    }
    joined_ = false;
    const f64 middle_x = (column.number + 0.5) * column_width_;
    strokes_.bars.push_back(
        {middle_x - bar_width_ / 2, top - half_line_, bar_width_, bottom - top + 2 * half_line_});
  }

  void extend_last_bar(f64 y) {
    PixelRectangle& bar = strokes_.bars.back();
    const f64 top = std::min(bar.y, y - half_line_);
    const f64 bottom = std::max(bar.bottom(), y + half_line_);
    bar.y = top;
    bar.height = bottom - top;
  }

  void add_points(const Column& column, bool after_bar) {
    if (after_bar) add_point(outline_.points[column.first - 1]);
    // A column that only rises or only falls is its first and last point.
    if (!column.swings && column.last - column.first > 2) {
      add_point(outline_.points[column.first]);
      add_point(outline_.points[column.last - 1]);
      return;
    }
    for (std::size_t i = column.first; i < column.last; ++i) add_point(outline_.points[i]);
  }

  void add_point(const PixelPoint& point) {
    if (!joined_) strokes_.lines.starts.push_back(strokes_.lines.points.size());
    strokes_.lines.points.push_back(point);
    joined_ = true;
  }

  const CurveOutline& outline_;
  f64 column_width_, bar_width_, half_line_;
  bool joined_ = false;
  CurveStrokes strokes_;
};

f64 length_between(const PixelPoint& from, const PixelPoint& to, bool along_x) {
  return along_x ? std::abs(to.x - from.x) : std::hypot(to.x - from.x, to.y - from.y);
}

f64 whole_length(const CurveOutline& outline) {
  f64 length = 0;
  for_each_piece(outline, [&](std::size_t first, std::size_t last) {
    for (std::size_t i = first + 1; i < last; ++i)
      length += length_between(outline.points[i - 1], outline.points[i], false);
  });
  return length;
}

// Walks along a piece and keeps what lies under a dash.
class DashCutter {
 public:
  DashCutter(const std::vector<f64>& pattern, bool along_x, CurveOutline& dashes)
      : pattern_(pattern), along_x_(along_x), dashes_(dashes) {}

  void begin(const PixelPoint& point) {
    slot_ = 0;
    rest_ = pattern_[0];
    open(point);
  }

  void walk(const PixelPoint& from, const PixelPoint& to) {
    const f64 length = length_between(from, to, along_x_);
    f64 done = 0;
    while (length - done > rest_) {
      done += rest_;
      const f64 part = done / length;
      const PixelPoint corner{from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
      if (under_dash()) dashes_.points.push_back(corner);
      slot_ = (slot_ + 1) % pattern_.size();
      rest_ = std::max(pattern_[slot_], 0.05);
      if (under_dash()) open(corner);
    }
    rest_ -= length - done;
    if (under_dash()) dashes_.points.push_back(to);
  }

 private:
  [[nodiscard]] bool under_dash() const { return slot_ % 2 == 0; }

  void open(const PixelPoint& point) {
    dashes_.starts.push_back(dashes_.points.size());
    dashes_.points.push_back(point);
  }

  const std::vector<f64>& pattern_;
  bool along_x_;
  CurveOutline& dashes_;
  std::size_t slot_ = 0;
  f64 rest_ = 0;
};

}  // namespace

CurveStrokes curve_strokes(const CurveOutline& outline, f64 column_width, f64 line_width) {
  StrokeBuilder builder(outline, column_width, line_width);
  for_each_piece(outline, [&](std::size_t first, std::size_t last) { builder.add_piece(first, last); });
  return builder.take();
}

CurveOutline dashed(const CurveOutline& outline, const std::vector<f64>& pattern, f64 extent) {
  f64 sum = 0;
  for (const f64 length : pattern) sum += std::max(0.0, length);
  if (pattern.size() < 2 || !(sum > 0.5)) return outline;
  CurveOutline dashes;
  DashCutter cutter(pattern, whole_length(outline) > extent * kDenseRatio, dashes);
  for_each_piece(outline, [&](std::size_t first, std::size_t last) {
    cutter.begin(outline.points[first]);
    for (std::size_t i = first + 1; i < last; ++i) cutter.walk(outline.points[i - 1], outline.points[i]);
  });
  return dashes;
}

}  // namespace trendaro
