#include "graph/window_points.h"

#include <algorithm>
#include <cmath>

#include "graph/lanes.h"

namespace trendaro {
namespace {

// Few enough to stay in the processor's nearest cache while they are looked at several times.
constexpr std::size_t kLook = 2048;
// No file has more samples.
constexpr std::size_t kFarthest = std::size_t{1} << 52;

// Whether all values are finite and none is the null value.
bool all_count(std::span<const f32> values, f32 null) {
  constexpr std::size_t kStep = Lanes<f32>::size();
  typename Lanes<f32>::mask_type gaps(false);
  std::size_t i = 0;
  for (; i + kStep <= values.size(); i += kStep) {
    const Lanes<f32> lanes = load_lanes(values.data() + i);
    gaps = gaps || lanes - lanes != 0.0F || lanes == null;
  }
  if (any_of(gaps)) return false;
  for (; i < values.size(); ++i)
    if (!std::isfinite(values[i]) || values[i] == null) return false;
  return true;
}

}  // namespace

WindowPoints::WindowPoints(const PictureWindow& window, const TimeLine& line, const PointKind& kind)
    : window_(window), line_(line), kind_(kind), null_x_(as_handed_over(kind.null_x)) {
  const bool rises = line.step > 0 && std::isfinite(line.step) && std::isfinite(line.start);
  if (rises && !window.edges.empty())
    stop_ = first_reaching(window.edges.front());
  else
    most_ = kNowhere;
}

f64 WindowPoints::as_handed_over(f64 x) const {
  return kind_.single_x ? static_cast<f64>(static_cast<f32>(x)) : x;
}

f64 WindowPoints::x_of(std::size_t sample) const {
  return as_handed_over(line_.at(sample));
}

bool WindowPoints::is_drawn(f32 y) const {
  if (!std::isfinite(y) || y == kind_.null_y) return false;
  const f64 x = x_of(next_);
  return std::isfinite(x) && x != null_x_;
}

bool WindowPoints::all_drawn(std::span<const f32> heights) const {
  const f64 low = x_of(next_);
  const f64 high = x_of(next_ + heights.size() - 1);
  if (!std::isfinite(low) || !std::isfinite(high) || (low <= null_x_ && null_x_ <= high)) return false;
  return all_count(heights, kind_.null_y);
}

// The first sample from the next one on whose x has reached the limit.
std::size_t WindowPoints::first_reaching(f64 limit) const {
  if (x_of(next_) >= limit) return next_;
  std::size_t low = next_ + 1;
  std::size_t high = low;
  for (std::size_t step = 1; high < kFarthest && !(x_of(high) >= limit); step *= 2) {
    low = high + 1;
    high += step;
  }
  while (low < high) {
    const std::size_t middle = low + (high - low) / 2;
    if (x_of(middle) >= limit)
      high = middle;
    else
      low = middle + 1;
  }
  return low;
}

// The part that the next sample lies in. Parts without a sample are passed over.
void WindowPoints::open_part() {
  const auto& edges = window_.edges;
  while (part_ < edges.size() && x_of(next_) >= edges[part_]) ++part_;
  const bool outside = part_ == 0 || part_ == edges.size();
  stop_ = part_ < edges.size() ? first_reaching(edges[part_]) : kNowhere;
  most_ = outside ? kMostOfColumn : window_.most_samples;
  first_point_ = points_.size();
  whole_ = true;
  extremes_ = {};
  first_gap_.reset();
  last_gap_.reset();
}

void WindowPoints::add(std::span<const f32> heights) {
  while (!heights.empty()) {
    const auto block = heights.first(std::min(heights.size(), kLook));
    heights = heights.subspan(block.size());
    if (all_drawn(block)) {
      add_drawn(block);
      continue;
    }
    for (const f32& y : block) {
      if (is_drawn(y)) {
        add_drawn({&y, 1});
      } else {
        ++gaps_;
        ++next_;
      }
    }
  }
}

// What is not drawn belongs to the part ahead of the drawn sample that follows it.
void WindowPoints::add_drawn(std::span<const f32> heights) {
  take_gaps();
  while (!heights.empty()) {
    if (next_ >= stop_) {
      close_part();
      open_part();
    }
    const auto run = heights.first(std::min(heights.size(), stop_ - next_));
    take(run);
    heights = heights.subspan(run.size());
  }
}

// True when the open part goes on with all of its samples kept.
bool WindowPoints::keeps_all(std::size_t more) {
  if (whole_ && points_.size() - first_point_ + more > most_) give_up_samples();
  return whole_;
}

void WindowPoints::take_gaps() {
  if (gaps_ == 0) return;
  const std::size_t first = next_ - gaps_;
  if (keeps_all(gaps_)) {
    for (std::size_t sample = first; sample < next_; ++sample) points_.push_back({sample, kind_.null_y});
  } else {
    if (!extremes_.any && !first_gap_) first_gap_ = first;
    last_gap_ = next_ - 1;
  }
  gaps_ = 0;
}

void WindowPoints::take(std::span<const f32> heights) {
  if (keeps_all(heights.size()))
    for (std::size_t i = 0; i < heights.size(); ++i) points_.push_back({next_ + i, heights[i]});
  else
    look_at(heights, next_);
  next_ += heights.size();
}

// Goes over to the extremes of what was kept of the open part so far.
void WindowPoints::give_up_samples() {
  whole_ = false;
  thinned_ = thinned_ || (part_ > 0 && part_ < window_.edges.size());
  const std::vector<Point> kept(points_.begin() + static_cast<std::ptrdiff_t>(first_point_), points_.end());
  points_.resize(first_point_);
  if (!kept.empty() && kept.front().y == kind_.null_y) first_gap_ = kept.front().sample;
  for (const Point& point : kept)
    if (point.y != kind_.null_y) look_at({&point.y, 1}, point.sample);
}

// Drawn samples of a part whose extremes alone are kept.
void WindowPoints::look_at(std::span<const f32> heights, std::size_t first) {
  const f32 low = least_of(heights.data(), heights.size());
  const f32 high = greatest_of(heights.data(), heights.size());
  const auto place_of = [&](f32 value) {
    return Point{first + first_equal_of(heights.data(), heights.size(), value), value};
  };
  if (!extremes_.any) extremes_.first = {first, heights.front()};
  if (!extremes_.any || low < extremes_.lowest.y) extremes_.lowest = place_of(low);
  if (!extremes_.any || high > extremes_.highest.y) extremes_.highest = place_of(high);
  extremes_.last = {first + heights.size() - 1, heights.back()};
  extremes_.any = true;
  last_gap_.reset();
}

// What stands for the open part: the same that a pixel column would be drawn from.
void WindowPoints::close_part() {
  if (whole_) return;
  const auto add_once = [&](const Point& point) {
    if (points_.size() == first_point_ || points_.back().sample != point.sample) points_.push_back(point);
  };
  if (first_gap_) add_once({*first_gap_, kind_.null_y});
  if (extremes_.any) {
    const bool falls = extremes_.highest.sample < extremes_.lowest.sample;
    add_once(extremes_.first);
    add_once(falls ? extremes_.highest : extremes_.lowest);
    add_once(falls ? extremes_.lowest : extremes_.highest);
    add_once(extremes_.last);
  }
  if (last_gap_) add_once({*last_gap_, kind_.null_y});
}

const std::vector<WindowPoints::Point>& WindowPoints::finish() {
  close_part();
  whole_ = true;
  return points_;
}

}  // namespace trendaro
