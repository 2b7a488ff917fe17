#include "graph/draw_arrays.h"

#include <algorithm>
#include <utility>

namespace trendaro {
namespace {

template <typename T>
DrawSlot<T> slot_in(std::vector<T, SampleAllocator<T>>& array, std::size_t curve, std::size_t length,
                    std::size_t& held, T null_value) {
  const std::size_t first = curve * length;
  if (first >= array.size()) return {};
  return {std::span<T>(array).subspan(first, std::min(length, array.size() - first)), held, null_value};
}

// Elements that a writer of every `stride`th one reaches with `count` values.
template <typename T>
std::span<T> place_in(const DrawSlot<T>& slot, std::size_t count, std::size_t first, std::size_t stride) {
  if (count == 0) return {};
  const std::size_t end = first + (count - 1) * stride + 1;
  return stride == 1 ? slot.for_all(first, end) : slot.for_some(first, end);
}

template <typename T>
void write_shifted(std::span<T> place, std::span<const f64> values, f64 offset, f64 sign,
                   std::size_t stride) {
  std::size_t next = 0;
  for (std::size_t i = 0; i < values.size() && next < place.size(); ++i, next += stride)
    place[next] = static_cast<T>((values[i] + offset) * sign);
}

// The points are counted in the numbers that a processor turns into f64 several at once.
template <typename T>
void write_points(const DrawSlot<T>& slot, std::size_t points, TimeLine line) {
  const std::span<T> reached = slot.for_all(0, points);
  const auto count = static_cast<i32>(reached.size());
  for (i32 i = 0; i < count; ++i)
    reached[static_cast<std::size_t>(i)] = static_cast<T>(line.at(static_cast<std::size_t>(i)));
}

template <typename T>
void pad_from(const DrawSlot<T>& slot, std::size_t first, f64 value) {
  std::ranges::fill(slot.for_all(first, slot.size()), static_cast<T>(value));
}

template <typename T>
void keep_held(const DrawSlot<T>& from, const DrawSlot<T>& to, std::size_t held) {
  std::ranges::copy(from.for_all(0, held), to.for_all(0, held).begin());
}

}  // namespace

DrawArrays make_draw_arrays(i32 curves, i32 slot_length, DrawKind kind, f64 null_y, FormerArrays former) {
  DrawArrays arrays;
  arrays.slot_length = static_cast<std::size_t>(std::max(slot_length, 0));
  arrays.kind = kind;
  arrays.null_y = static_cast<f32>(null_y);
  arrays.held.resize(static_cast<std::size_t>(std::max(curves, 0)));
  const std::size_t values = arrays.slot_length * arrays.held.size();
  (kind.database ? arrays.DrawYDatabase : arrays.DrawY) = array_in_place_of(former.y, values);
  if (kind.date_axis)
    arrays.DrawXII = array_in_place_of(former.x_of_dates, values);
  else
    arrays.DrawX = array_in_place_of(former.x, values);
  return arrays;
}

void grow_slots(DrawArrays& arrays, i32 slot_length) {
  const bool longer = static_cast<std::size_t>(std::max(slot_length, 0)) > arrays.slot_length;
  if (!longer || arrays.held.empty()) return;
  DrawArrays grown =
      make_draw_arrays(static_cast<i32>(arrays.held.size()), slot_length, arrays.kind, f64{arrays.null_y});
  for (std::size_t curve = 0; curve < arrays.held.size(); ++curve) {
    const CurveSlot from = slot_of(arrays, curve);
    const CurveSlot to = slot_of(grown, curve);
    const SlotsHeld held = arrays.held[curve];
    keep_held(from.DrawY, to.DrawY, held.y);
    keep_held(from.DrawYDatabase, to.DrawYDatabase, held.y);
    keep_held(from.DrawX, to.DrawX, held.x);
    keep_held(from.DrawXII, to.DrawXII, held.x);
  }
  arrays = std::move(grown);
}

void fill_rest(DrawArrays& arrays) {
  for (std::size_t curve = 0; curve < arrays.held.size(); ++curve) {
    const CurveSlot slot = slot_of(arrays, curve);
    slot.DrawY.fill_rest();
    slot.DrawYDatabase.fill_rest();
    slot.DrawX.fill_rest();
    slot.DrawXII.fill_rest();
  }
}

CurveSlot slot_of(DrawArrays& arrays, std::size_t curve) {
  if (curve >= arrays.held.size()) return {};
  SlotsHeld& held = arrays.held[curve];
  const std::size_t length = arrays.slot_length;
  return {.DrawY = slot_in(arrays.DrawY, curve, length, held.y, arrays.null_y),
          .DrawYDatabase = slot_in(arrays.DrawYDatabase, curve, length, held.y, arrays.null_y),
          .DrawX = slot_in(arrays.DrawX, curve, length, held.x, 0.0F),
          .DrawXII = slot_in(arrays.DrawXII, curve, length, held.x, 0.0)};
}

void write_values(std::span<f32> place, std::span<const f64> values, DisplayScale scale, std::size_t stride) {
  write_shifted(place, values, f64{scale.offset}, scale.sign, stride);
}

void write_y(const DrawSlot<f32>& slot, std::span<const f64> values, DisplayScale scale, std::size_t first,
             std::size_t stride) {
  write_values(place_in(slot, values.size(), first, stride), values, scale, stride);
}

void write_x(const CurveSlot& slot, std::span<const f64> values, f64 offset, i16 sign, std::size_t first,
             std::size_t stride) {
  write_shifted(place_in(slot.DrawX, values.size(), first, stride), values, offset, sign, stride);
  write_shifted(place_in(slot.DrawXII, values.size(), first, stride), values, offset, sign, stride);
}

void write_line(const CurveSlot& slot, std::size_t points, const TimeLine& line) {
  write_points(slot.DrawX, points, line);
  write_points(slot.DrawXII, points, line);
}

void pad_y(const DrawSlot<f32>& slot, std::size_t first, f64 null_value) {
  pad_from(slot, first, null_value);
}

void pad_x(const CurveSlot& slot, std::size_t first, f64 null_value) {
  pad_from(slot.DrawX, first, null_value);
  pad_from(slot.DrawXII, first, null_value);
}

}  // namespace trendaro
