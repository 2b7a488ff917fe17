#include "graph/wandering_outline.h"

#include <algorithm>
#include <cmath>

#include "graph/line_clip.h"
#include "graph/outline_builder.h"

namespace trendaro {
namespace {

constexpr std::size_t kMostUnits = 1U << 17;  // blocks that are held against the picture
constexpr std::size_t kTile = 4;              // pixels

// Which pixels of an area have been touched.
class Coverage {
 public:
  explicit Coverage(const PixelRectangle& area)
      : area_(area),
        width_(static_cast<std::size_t>(std::max(1.0, std::ceil(area.width)))),
        height_(static_cast<std::size_t>(std::max(1.0, std::ceil(area.height)))),
        touched_(width_ * height_, false),
        tile_columns_(width_ / kTile + 1),
        tiles_(tile_columns_ * (height_ / kTile + 1), false) {}

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

  // Whether a box, which lies partly inside the area, reaches a tile in which nothing was touched.
  [[nodiscard]] bool reaches_fresh_tile(const PixelRectangle& box) const {
    const std::size_t left = tile_of(box.x - area_.x, width_);
    const std::size_t right = tile_of(box.right() - area_.x, width_);
    const std::size_t top = tile_of(box.y - area_.y, height_);
    const std::size_t bottom = tile_of(box.bottom() - area_.y, height_);
    for (std::size_t row = top; row <= bottom; ++row)
      for (std::size_t column = left; column <= right; ++column)
        if (!tiles_[row * tile_columns_ + column]) return true;
    return false;
  }

 private:
  static std::size_t tile_of(f64 distance, std::size_t length) {
    return static_cast<std::size_t>(std::clamp(distance, 0.0, static_cast<f64>(length - 1))) / kTile;
  }

  bool touch_pixel(PixelPoint point) {
    const f64 column = std::floor(point.x - area_.x);
    const f64 row = std::floor(point.y - area_.y);
    if (column < 0 || row < 0 || column >= static_cast<f64>(width_) || row >= static_cast<f64>(height_))
      return false;
    const std::size_t pixel = static_cast<std::size_t>(row) * width_ + static_cast<std::size_t>(column);
    const bool fresh = !touched_[pixel];
    touched_[pixel] = true;
    if (fresh)
      tiles_[static_cast<std::size_t>(row) / kTile * tile_columns_ +
             static_cast<std::size_t>(column) / kTile] = true;
    return fresh;
  }

  PixelRectangle area_;
  std::size_t width_, height_;
  std::vector<bool> touched_;
  std::size_t tile_columns_;
  std::vector<bool> tiles_;
};

class WanderingWalk {
 public:
  WanderingWalk(const CurveSamples& samples, const AxisScale& x_scale, const AxisScale& y_scale,
                const PixelRectangle& area)
      : samples_(samples), x_scale_(x_scale), y_scale_(y_scale), area_(area), coverage_(area) {}

  CurveOutline whole() {
    walk(0, samples_.count);
    return builder_.take();
  }

  CurveOutline within_budget() {
    choose_level();
    const std::vector<std::size_t> units = visible_units();
    const std::size_t affordable = std::max<std::size_t>(1, kMostSamplesWalked / unit_);
    const std::size_t stride = (units.size() + affordable - 1) / affordable;
    for (std::size_t i = 0; i < units.size(); i += std::max<std::size_t>(1, stride)) walk_unit(units[i]);
    if (stride > 1) walk_excursions(units, stride);
    return builder_.take();
  }

 private:
  void choose_level() {
    const auto& levels = samples_.extents->y_levels;
    while (level_ + 1 < levels.size() && levels[level_].size() > kMostUnits) {
      ++level_;
      unit_ *= kIndexFan;
    }
  }

  // What a run of samples takes up, with the line that leads on from it.
  [[nodiscard]] PixelRectangle box_of(const PointExtent& extent) const {
    const f64 x[] = {pixel_of(x_scale_, extent.x_low), pixel_of(x_scale_, extent.x_high)};
    const f64 y[] = {pixel_of(y_scale_, static_cast<f64>(extent.y_low)),
                     pixel_of(y_scale_, static_cast<f64>(extent.y_high))};
    const auto [left, right] = std::minmax(x[0], x[1]);
    const auto [top, bottom] = std::minmax(y[0], y[1]);
    return {left, top, right - left, bottom - top};
  }

  [[nodiscard]] bool is_visible(const PixelRectangle& box) const {
    // Written so that a place without a number counts as visible.
    return !(box.right() < area_.x || box.x > area_.right() || box.bottom() < area_.y ||
             box.y > area_.bottom());
  }

  // With what the line that leads on from an entry reaches.
  [[nodiscard]] PointExtent joined_extent(std::size_t entry) const {
    PointExtent extent = samples_.extents->extent_of_entry(level_, entry);
    if (entry + 1 < entry_count() && !extent.empty())
      extent.add(samples_.extents->extent_of_entry(level_, entry + 1));
    return extent;
  }

  [[nodiscard]] std::size_t entry_count() const { return samples_.extents->x_levels[level_].size(); }

  [[nodiscard]] std::vector<std::size_t> visible_units() const {
    std::vector<std::size_t> units;
    for (std::size_t entry = 0; entry < entry_count() && entry * unit_ < samples_.count; ++entry) {
      const PointExtent extent = joined_extent(entry);
      if (!extent.empty() && is_visible(box_of(extent))) units.push_back(entry);
    }
    return units;
  }

  void walk_unit(std::size_t unit) { walk(unit * unit_, std::min(samples_.count, (unit + 1) * unit_ + 1)); }

  // The units that were left out, where their blocks reach to places without a line nearby; the budget once
  // more, and the blocks with the extremes of the picture whatever it costs.
  void walk_excursions(const std::vector<std::size_t>& units, std::size_t stride) {
    std::size_t rest = kMostSamplesWalked;
    for (std::size_t i = 0; i < units.size(); ++i) {
      if (i % stride == 0) continue;
      const PixelRectangle box = box_of(samples_.extents->extent_of_entry(level_, units[i]));
      if (rest == 0 && !widens_extremes(box)) continue;
      if (is_visible(box) && coverage_.reaches_fresh_tile(box)) rest -= std::min(rest, walk_blocks(units[i]));
    }
  }

  // Walks the finest blocks of a unit that reach a fresh tile; the number of samples looked at.
  std::size_t walk_blocks(std::size_t unit) {
    const std::size_t blocks = samples_.extents->x_levels[0].size();
    std::size_t looked_at = 0;
    const std::size_t first = unit * unit_ / kIndexBlock;
    for (std::size_t block = first; block < std::min(blocks, first + unit_ / kIndexBlock); ++block) {
      const PointExtent extent = samples_.extents->extent_of_entry(0, block);
      if (extent.empty()) continue;
      const PixelRectangle box = box_of(extent);
      if (!is_visible(box) || !coverage_.reaches_fresh_tile(box)) continue;
      const std::size_t start = block * kIndexBlock;
      walk(start > 0 ? start - 1 : 0, std::min(samples_.count, start + kIndexBlock + 1));
      looked_at += kIndexBlock;
    }
    return looked_at;
  }

  [[nodiscard]] bool widens_extremes(const PixelRectangle& box) const {
    return box.x < low_.x || box.y < low_.y || box.right() > high_.x || box.bottom() > high_.y;
  }

  void note_reach(const PixelPoint& point) {
    low_ = {std::min(low_.x, point.x), std::min(low_.y, point.y)};
    high_ = {std::max(high_.x, point.x), std::max(high_.y, point.y)};
  }

  void walk(std::size_t first, std::size_t last) {
    builder_.end_piece();
    bool has_former = false;
    bool former_taken = false;
    PixelPoint former;
    for (std::size_t i = first; i < last; ++i) {
      const PixelPoint point = place_of(i);
      if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
        builder_.end_piece();
        has_former = former_taken = false;
        continue;
      }
      PixelPoint from = has_former ? former : point;
      PixelPoint to = point;
      const bool taken = clip_line(area_, from, to) && coverage_.touch(from, to);
      if (taken) {
        if (!former_taken) builder_.end_piece();
        if (has_former && !former_taken) builder_.add(former);
        builder_.add(point);
        note_reach(point);
      }
      former = point;
      has_former = true;
      former_taken = taken;
    }
  }

  // Not finite for a sample that is not drawn.
  [[nodiscard]] PixelPoint place_of(std::size_t index) const {
    if (!samples_.drawn(index)) return {std::nan(""), 0};
    return {pixel_of(x_scale_, samples_.x(index)), pixel_of(y_scale_, static_cast<f64>(samples_.y[index]))};
  }

  const CurveSamples& samples_;
  const AxisScale& x_scale_;
  const AxisScale& y_scale_;
  const PixelRectangle& area_;
  Coverage coverage_;
  OutlineBuilder builder_;
  PixelPoint low_{1e300, 1e300}, high_{-1e300, -1e300};  // of the points that were kept
  std::size_t level_ = 0;
  std::size_t unit_ = kIndexBlock;
};

}  // namespace

CurveOutline wandering_outline(const CurveSamples& samples, const AxisScale& x_scale,
                               const AxisScale& y_scale, const PixelRectangle& area) {
  WanderingWalk walk(samples, x_scale, y_scale, area);
  return samples.count <= kMostSamplesWalked ? walk.whole() : walk.within_budget();
}

}  // namespace trendaro
