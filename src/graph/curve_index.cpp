#include "graph/curve_index.h"

#include <algorithm>
#include <cmath>

#include <experimental/simd>

#include "graph/graph_properties.h"

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

template <typename X>
PointExtent extent_of_few(const CurveView<X>& view, std::size_t first, std::size_t last) {
  PointExtent extent;
  for (std::size_t i = first; i < last; ++i) {
    if (!counts(view, view.x[i], view.y[i])) {
      extent.has_gap = true;
      continue;
    }
    extent.x_low = std::min(extent.x_low, static_cast<f64>(view.x[i]));
    extent.x_high = std::max(extent.x_high, static_cast<f64>(view.x[i]));
    extent.y_low = std::min(extent.y_low, view.y[i]);
    extent.y_high = std::max(extent.y_high, view.y[i]);
  }
  return extent;
}

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
PointExtent extent_of_few(const CurveView<X>& view, std::size_t first, std::size_t last, XOrder<X>& order) {
  for (std::size_t i = first; i < last; ++i)
    if (counts(view, view.x[i], view.y[i])) order.take(view.x[i]);
  return extent_of_few(view, first, last);
}

// Values that are looked at together. Spelled out, for the compiler does not find them in loops this short.
template <typename T>
using Lanes = std::experimental::native_simd<T>;

template <typename T>
Lanes<T> load(const T* from) {
  return Lanes<T>(from, std::experimental::element_aligned);
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
    gaps = gaps && gaps_in(load(block + i), null);
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
  Lanes<T> low = load(block);
  Lanes<T> high = low;
  typename Lanes<T>::mask_type gaps(false);
  for (std::size_t i = 0; i < kIndexBlock; i += Lanes<T>::size()) {
    const Lanes<T> values = load(block + i);
    gaps = gaps || gaps_in(values, null);
    low = std::experimental::min(low, values);
    high = std::experimental::max(high, values);
  }
  return {hmin(low), hmax(high), any_of(gaps)};
}

// The same of x, which mostly goes one way, so that its ends are its extremes.
template <typename X>
BlockExtremes<X> extremes_of_x(const X* block, X null, XOrder<X>& order) {
  constexpr std::size_t kStep = Lanes<X>::size();
  constexpr std::size_t kLastStep = kIndexBlock - kStep;
  typename Lanes<X>::mask_type gaps(false), down(false), up(false);
  for (std::size_t i = 0; i < kIndexBlock; i += kStep) {
    const Lanes<X> values = load(block + i);
    // The last point of the block has no next one: the last step looks at the points ahead once more.
    const Lanes<X> from = i < kLastStep ? values : load(block + i - 1);
    const Lanes<X> to = i < kLastStep ? load(block + i + 1) : values;
    gaps = gaps || gaps_in(values, null);
    down = down || to < from;
    up = up || to > from;
  }
  if (any_of(gaps)) return {0, 0, true};
  const X first = block[0];
  const X last = block[kIndexBlock - 1];
  order.take(first);
  order.take(last);
  const bool goes_down = any_of(down);
  const bool goes_up = any_of(up);
  order.rises = order.rises && !goes_down;
  order.falls = order.falls && !goes_up;
  if (goes_down && goes_up) return extremes_of_block(block, null);
  return {std::min(first, last), std::max(first, last), false};
}

template <typename X>
PointExtent extent_of_block(const CurveView<X>& view, std::size_t first, XOrder<X>& order) {
  const BlockExtremes<f32> y = extremes_of_block(view.y + first, view.null_y);
  if (y.has_gap && is_all_gaps(view.y + first, view.null_y)) return {.has_gap = true};
  if (!y.has_gap) {
    const BlockExtremes<X> x = extremes_of_x(view.x + first, view.null_x, order);
    if (!x.has_gap) return {static_cast<f64>(x.low), static_cast<f64>(x.high), y.low, y.high, false};
  }
  return extent_of_few(view, first, first + kIndexBlock, order);
}

template <typename X>
std::vector<PointExtent> finest_level(const CurveView<X>& view, std::size_t points, XOrder<X>& order) {
  std::vector<PointExtent> level;
  level.reserve(points / kIndexBlock + 1);
  for (std::size_t first = 0; first < points; first += kIndexBlock) {
    const std::size_t last = std::min(points, first + kIndexBlock);
    level.push_back(last - first == kIndexBlock ? extent_of_block(view, first, order)
                                                : extent_of_few(view, first, last, order));
  }
  return level;
}

std::vector<PointExtent> next_level(const std::vector<PointExtent>& finer) {
  std::vector<PointExtent> level((finer.size() + kIndexFan - 1) / kIndexFan);
  for (std::size_t i = 0; i < finer.size(); ++i) level[i / kIndexFan].add(finer[i]);
  return level;
}

template <typename X>
std::size_t used_points(const CurveView<X>& view, const std::vector<PointExtent>& finest,
                        std::size_t points) {
  std::size_t block = finest.size();
  while (block > 0 && finest[block - 1].empty()) --block;
  if (block == 0) return 0;
  std::size_t used = std::min(points, block * kIndexBlock);
  while (!counts(view, view.x[used - 1], view.y[used - 1])) --used;
  return used;
}

template <typename X>
CurveExtents extents_of_curve(const CurveView<X>& view, std::size_t points) {
  CurveExtents extents;
  XOrder<X> order;
  extents.levels.push_back(finest_level(view, points, order));
  while (extents.levels.back().size() > kIndexFan)
    extents.levels.push_back(next_level(extents.levels.back()));
  for (const PointExtent& extent : extents.levels.back()) extents.whole.add(extent);
  extents.used = used_points(view, extents.levels.front(), points);
  extents.x_rises = order.rises;
  extents.x_falls = order.falls;
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
  has_gap = has_gap || other.has_gap;
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

PointExtent extent_of_points(const GraphProperties& properties, const CurveIndex& index, std::size_t curve,
                             std::size_t first, std::size_t last) {
  PointExtent extent;
  last = std::min(last, index.points);
  if (first >= last) return extent;
  const auto& levels = index.curves[curve].levels;
  const auto add_points = [&](std::size_t from, std::size_t to) {
    extent.add(with_view(properties, curve, [&](const auto& view) { return extent_of_few(view, from, to); }));
  };
  std::size_t from = (first + kIndexBlock - 1) / kIndexBlock;
  std::size_t to = last == index.points ? levels.front().size() : last / kIndexBlock;
  if (from >= to) {
    add_points(first, last);
    return extent;
  }
  add_points(first, from * kIndexBlock);
  if (to * kIndexBlock < last) add_points(to * kIndexBlock, last);
  for (std::size_t level = 0; from < to; ++level) {
    const auto& entries = levels[level];
    const bool coarsest = level + 1 == levels.size();
    while (from < to && (coarsest || from % kIndexFan != 0)) extent.add(entries[from++]);
    while (from < to && to % kIndexFan != 0 && to != entries.size()) extent.add(entries[--to]);
    if (from >= to) break;
    from /= kIndexFan;
    to = (to + kIndexFan - 1) / kIndexFan;
  }
  return extent;
}

}  // namespace trendaro
