#include "graph/curve_index.h"

#include <algorithm>
#include <array>
#include <cmath>

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

// One full block, in lanes that do not depend on each other, so that the compiler uses vector instructions.
template <typename X>
PointExtent extent_of_block(const CurveView<X>& view, std::size_t first) {
  constexpr std::size_t kLanes = 16;
  constexpr X kInfinity = std::numeric_limits<X>::infinity();
  constexpr X kLargest = std::numeric_limits<X>::max();
  constexpr f32 kLargestY = std::numeric_limits<f32>::max();
  std::array<X, kLanes> x_low, x_high;
  std::array<f32, kLanes> y_low, y_high;
  std::array<i32, kLanes> gaps{};
  x_low.fill(kInfinity);
  x_high.fill(-kInfinity);
  y_low.fill(std::numeric_limits<f32>::infinity());
  y_high.fill(-std::numeric_limits<f32>::infinity());
  for (std::size_t i = first; i < first + kIndexBlock; i += kLanes) {
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      const X x = view.x[i + lane];
      const f32 y = view.y[i + lane];
      // "&" and not "&&": no branches. A comparison with NaN is false, so NaN never counts.
      const bool drawn = (x <= kLargest) & (x >= -kLargest) & (x != view.null_x) & (y <= kLargestY) &
                         (y >= -kLargestY) & (y != view.null_y);
      x_low[lane] = (drawn & (x < x_low[lane])) ? x : x_low[lane];
      x_high[lane] = (drawn & (x > x_high[lane])) ? x : x_high[lane];
      y_low[lane] = (drawn & (y < y_low[lane])) ? y : y_low[lane];
      y_high[lane] = (drawn & (y > y_high[lane])) ? y : y_high[lane];
      gaps[lane] |= drawn ? 0 : 1;
    }
  }
  return {.x_low = static_cast<f64>(*std::ranges::min_element(x_low)),
          .x_high = static_cast<f64>(*std::ranges::max_element(x_high)),
          .y_low = *std::ranges::min_element(y_low),
          .y_high = *std::ranges::max_element(y_high),
          .has_gap = *std::ranges::max_element(gaps) != 0};
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

  // Points of which all count.
  void take_full(const X* x, std::size_t count) {
    take(x[0]);
    if (rises) rises = !any_step(x, count, [](X former, X next) { return next < former; });
    if (falls) falls = !any_step(x, count, [](X former, X next) { return next > former; });
    last = x[count - 1];
  }

 private:
  template <typename Breaks>
  static bool any_step(const X* x, std::size_t count, Breaks breaks) {
    i32 found = 0;
    for (std::size_t i = 1; i < count; ++i) found |= breaks(x[i - 1], x[i]) ? 1 : 0;
    return found != 0;
  }
};

// The order is looked at while the block is still near the processor.
template <typename X>
void add_order(const CurveView<X>& view, std::size_t first, std::size_t last, const PointExtent& extent,
               XOrder<X>& order) {
  if (!order.rises && !order.falls) return;
  if (!extent.has_gap) {
    order.take_full(view.x + first, last - first);
    return;
  }
  for (std::size_t i = first; i < last; ++i)
    if (counts(view, view.x[i], view.y[i])) order.take(view.x[i]);
}

template <typename X>
std::vector<PointExtent> finest_level(const CurveView<X>& view, std::size_t points, XOrder<X>& order) {
  std::vector<PointExtent> level;
  level.reserve(points / kIndexBlock + 1);
  for (std::size_t first = 0; first < points; first += kIndexBlock) {
    const std::size_t last = std::min(points, first + kIndexBlock);
    level.push_back(last - first == kIndexBlock ? extent_of_block(view, first)
                                                : extent_of_few(view, first, last));
    add_order(view, first, last, level.back(), order);
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
