#include "graph/curve_index.h"

#include <algorithm>
#include <cmath>

#include "graph/ask_for_memory.h"
#include "graph/graph_properties.h"
#include "graph/lanes.h"

namespace trendaro {
namespace {

// Coordinates of one curve; X is f32 or, on a date axis, f64.
template <typename X>
struct CurveView {
  const X* x;
  const f32* y;
  X null_x;
  f32 null_y;
};

template <typename X>
bool counts(const CurveView<X>& view, X x, f32 y) {
  return std::isfinite(x) && std::isfinite(y) && x != view.null_x && y != view.null_y;
}

// Of a few points or a block.
struct BlockExtent {
  PointExtent extent;
  bool has_gap = false;  // one of the points does not count
};

// Which ways x goes from one point that counts to the next.
template <typename X>
struct XOrder {
  X last = 0;
  bool any = false;
  bool rises = true, falls = true;

  void take(X x) {
    if (any) {
      rises = rises && x >= last;
      falls = falls && x <= last;
    }
    last = x;
    any = true;
  }
};

template <typename X>
BlockExtent extent_of_few(const CurveView<X>& view, std::size_t first, std::size_t last, XOrder<X>& order) {
  BlockExtent block;
  for (std::size_t i = first; i < last; ++i) {
    const X x = view.x[i];
    const f32 y = view.y[i];
    if (!counts(view, x, y)) {
      block.has_gap = true;
      continue;
    }
    order.take(x);
    block.extent.add({static_cast<f64>(x), static_cast<f64>(x), y, y});
  }
  return block;
}

// What is infinite or NaN leaves no 0 behind.
template <typename T>
auto gaps_in(const Lanes<T>& values, T null) {
  return values - values != T(0) || values == null;
}

template <typename T>
bool is_all_gaps(const T* block, T null) {
  typename Lanes<T>::mask_type gaps(true);
  for (std::size_t i = 0; i < kIndexBlock; i += Lanes<T>::size())
    gaps = gaps && gaps_in(load_lanes(block + i), null);
  return all_of(gaps);
}

// Of a full block; low and high hold where it has no gap.
template <typename T>
struct BlockExtremes {
  T low, high;
  bool has_gap;
};

template <typename T>
BlockExtremes<T> extremes_of_block(const T* block, T null) {
  using std::experimental::max;
  using std::experimental::min;
  constexpr std::size_t kStep = Lanes<T>::size();
  // Two of each, so that a step does not wait for the one before it.
  Lanes<T> low = load_lanes(block), other_low = low;
  Lanes<T> high = low, other_high = low;
  Lanes<T> sum = low - low, other_sum = sum;
  for (std::size_t i = 0; i < kIndexBlock; i += 2 * kStep) {
    const Lanes<T> values = load_lanes(block + i);
    const Lanes<T> others = load_lanes(block + i + kStep);
    low = min(low, values);
    other_low = min(other_low, others);
    high = max(high, values);
    other_high = max(other_high, others);
    sum += values;
    other_sum += others;
  }
  const BlockExtremes<T> extremes{hmin(min(low, other_low)), hmax(max(high, other_high)), false};
  // What is infinite or NaN stays so in the sum, and a null value lies between the extremes.
  if (std::isfinite(reduce(sum + other_sum)) && !(extremes.low <= null && null <= extremes.high))
    return extremes;
  typename Lanes<T>::mask_type gaps(false);
  for (std::size_t i = 0; i < kIndexBlock; i += Lanes<T>::size())
    gaps = gaps || gaps_in(load_lanes(block + i), null);
  return {extremes.low, extremes.high, any_of(gaps)};
}

// Whether each value of a full block is in order with the next one; NaN is in none.
template <typename T, typename InOrder>
bool is_in_order(const T* block, InOrder in_order) {
  constexpr std::size_t kStep = Lanes<T>::size();
  constexpr std::size_t kLastStep = kIndexBlock - kStep;
  // The last value has no next one: the last step looks at those ahead once more.
  auto ordered = in_order(load_lanes(block + kLastStep - 1), load_lanes(block + kLastStep));
  for (std::size_t i = 0; i < kLastStep; i += kStep)
    ordered = ordered && in_order(load_lanes(block + i), load_lanes(block + i + 1));
  return all_of(ordered);
}

// The same of x, which mostly goes one way, so that its ends are its extremes.
template <typename X>
BlockExtremes<X> extremes_of_x(const X* block, X null, XOrder<X>& order) {
  const X first = block[0];
  const X last = block[kIndexBlock - 1];
  const bool one_way =
      first <= last ? is_in_order(block, [](const Lanes<X>& from, const Lanes<X>& to) { return from <= to; })
                    : is_in_order(block, [](const Lanes<X>& from, const Lanes<X>& to) { return from >= to; });
  const X low = std::min(first, last);
  const X high = std::max(first, last);
  if (one_way && std::isfinite(low) && std::isfinite(high) && !(low <= null && null <= high)) {
    order.take(first);
    order.take(last);
    return {low, high, false};
  }
  const BlockExtremes<X> extremes = extremes_of_block(block, null);
  if (!extremes.has_gap && (order.rises || order.falls))
    for (std::size_t i = 0; i < kIndexBlock; ++i) order.take(block[i]);
  return extremes;
}

template <typename X>
BlockExtent extent_of_block(const CurveView<X>& view, std::size_t first, XOrder<X>& order) {
  const BlockExtremes<f32> y = extremes_of_block(view.y + first, view.null_y);
  if (y.has_gap && is_all_gaps(view.y + first, view.null_y)) return {.extent = {}, .has_gap = true};
  if (!y.has_gap) {
    const BlockExtremes<X> x = extremes_of_x(view.x + first, view.null_x, order);
    if (!x.has_gap) return {{static_cast<f64>(x.low), static_cast<f64>(x.high), y.low, y.high}, false};
  }
  return extent_of_few(view, first, first + kIndexBlock, order);
}

// One pass over a curve.
template <typename X>
class FinestLevels {
 public:
  FinestLevels(const CurveView<X>& view, std::size_t points) : view_(view), points_(points) {}

  // The levels of x are left out until x turns out to go both ways, which it mostly does at once or never.
  CurveExtents build() {
    if (!walk(false)) walk(true);
    extents_.used = used_points();
    extents_.gapless = first_gap_ >= extents_.used;
    extents_.x_rises = order_.rises;
    extents_.x_falls = order_.falls;
    return std::move(extents_);
  }

 private:
  static constexpr std::size_t kBlocksAhead = 12;  // measured: 8 and 24 are slower

  // False where x goes both ways and its levels were not wanted.
  bool walk(bool with_x) {
    const std::size_t blocks = (points_ + kIndexBlock - 1) / kIndexBlock;
    extents_ = {};
    first_gap_ = points_;
    auto& y_level = extents_.y_levels.emplace_back();
    y_level.reserve(blocks);
    if (with_x) extents_.x_levels.emplace_back().reserve(blocks);
    for (std::size_t first = 0; first < points_; first += kIndexBlock) {
      const std::size_t last = std::min(points_, first + kIndexBlock);
      ask_for_block(first + kBlocksAhead * kIndexBlock);
      const BlockExtent block = last - first == kIndexBlock ? extent_of_block(view_, first, order_)
                                                            : extent_of_few(view_, first, last, order_);
      if (!with_x && !order_.rises && !order_.falls) return false;
      const PointExtent& extent = block.extent;
      y_level.push_back({extent.y_low, extent.y_high});
      if (with_x) extents_.x_levels.back().push_back({extent.x_low, extent.x_high});
      extents_.whole.add(extent);
      if (block.has_gap && first_gap_ == points_) first_gap_ = first_gap_from(first);
    }
    return true;
  }

  // Has a block that comes later brought near; the processor alone does not look as far ahead.
  void ask_for_block(std::size_t first) const {
    if (first + kIndexBlock > points_) return;
    ask_for_memory(view_.y + first, kIndexBlock);
    ask_for_memory(view_.x + first, kIndexBlock);
  }

  [[nodiscard]] bool counts_at(std::size_t point) const {
    return counts(view_, view_.x[point], view_.y[point]);
  }

  [[nodiscard]] std::size_t first_gap_from(std::size_t point) const {
    while (counts_at(point)) ++point;
    return point;
  }

  [[nodiscard]] std::size_t used_points() const {
    const auto& finest = extents_.y_levels.front();
    std::size_t block = finest.size();
    while (block > 0 && finest.at(block - 1).empty()) --block;
    std::size_t used = std::min(points_, block * kIndexBlock);
    while (used > 0 && !counts_at(used - 1)) --used;
    return used;
  }

  const CurveView<X>& view_;
  std::size_t points_;
  XOrder<X> order_;
  std::size_t first_gap_ = 0;  // index of the first point that does not count
  CurveExtents extents_;
};

template <typename X>
CurveExtents extents_of_curve(const CurveView<X>& view, std::size_t points) {
  CurveExtents extents = FinestLevels<X>(view, points).build();
  add_coarser_levels(extents.y_levels);
  if (!extents.x_levels.empty()) add_coarser_levels(extents.x_levels);
  return extents;
}

std::size_t x_size(const GraphProperties& properties) {
  if (properties.UsingXDataII) return properties.XDataII ? properties.XDataII->size() : 0;
  return properties.XData ? properties.XData->size() : 0;
}

std::size_t curves_with_data(const GraphProperties& properties) {
  if (properties.SubsetCount <= 0 || properties.PointCount <= 0 || !properties.YData) return 0;
  const std::size_t values = std::min(x_size(properties), properties.YData->size());
  return std::min(static_cast<std::size_t>(properties.SubsetCount),
                  values / static_cast<std::size_t>(properties.PointCount));
}

// Calls `use` with the view of a curve, whichever array holds its x.
template <typename Use>
auto with_view(const GraphProperties& properties, std::size_t curve, Use&& use) {
  const std::size_t slot = curve * static_cast<std::size_t>(properties.PointCount);
  const f32* y = properties.YData->data() + slot;
  const auto null_y = static_cast<f32>(properties.NullDataValue);
  if (properties.UsingXDataII)
    return use(CurveView<f64>{properties.XDataII->data() + slot, y, properties.NullDataValueX, null_y});
  return use(CurveView<f32>{properties.XData->data() + slot, y, static_cast<f32>(properties.NullDataValueX),
                            null_y});
}

}  // namespace

void PointExtent::add(const PointExtent& other) {
  x_low = std::min(x_low, other.x_low);
  x_high = std::max(x_high, other.x_high);
  y_low = std::min(y_low, other.y_low);
  y_high = std::max(y_high, other.y_high);
}

std::shared_ptr<const CurveIndex> build_curve_index(const GraphProperties& properties) {
  auto index = std::make_shared<CurveIndex>();
  const std::size_t curves = curves_with_data(properties);
  index->points = static_cast<std::size_t>(std::max(properties.PointCount, 0));
  index->curves.reserve(curves);
  for (std::size_t curve = 0; curve < curves; ++curve)
    index->curves.push_back(with_view(
        properties, curve, [&](const auto& view) { return extents_of_curve(view, index->points); }));
  return index;
}

f64 point_x(const GraphProperties& properties, std::size_t curve, std::size_t point) {
  return with_view(properties, curve, [&](const auto& view) { return static_cast<f64>(view.x[point]); });
}

f32 point_y(const GraphProperties& properties, std::size_t curve, std::size_t point) {
  return (*properties.YData)[curve * static_cast<std::size_t>(properties.PointCount) + point];
}

bool point_counts(const GraphProperties& properties, f64 x, f32 y) {
  const bool null_x = properties.UsingXDataII
                          ? x == properties.NullDataValueX
                          : static_cast<f32>(x) == static_cast<f32>(properties.NullDataValueX);
  return std::isfinite(x) && std::isfinite(y) && !null_x && y != static_cast<f32>(properties.NullDataValue);
}

}  // namespace trendaro
