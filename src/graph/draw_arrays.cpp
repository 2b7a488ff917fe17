#include "graph/draw_arrays.h"

#include <algorithm>
#include <utility>

namespace trendaro {
namespace {

template <typename T>
std::span<T> part_of(std::vector<T, SampleAllocator<T>>& array, std::size_t first, std::size_t count) {
  if (first >= array.size()) return {};
  return std::span<T>(array).subspan(first, std::min(count, array.size() - first));
}

template <typename T>
void write_shifted(std::span<T> slot, std::span<const f64> values, f64 offset, f64 sign, std::size_t first,
                   std::size_t stride) {
  std::size_t place = first;
  for (std::size_t i = 0; i < values.size() && place < slot.size(); ++i, place += stride)
    slot[place] = static_cast<T>((values[i] + offset) * sign);
}

template <typename T>
void write_points(std::span<T> slot, std::size_t points, const TimeLine& line) {
  const std::size_t count = std::min(points, slot.size());
  for (std::size_t i = 0; i < count; ++i) slot[i] = static_cast<T>(line.at(i));
}

template <typename T>
void fill_from(std::span<T> slot, std::size_t first, f64 value) {
  if (first < slot.size()) std::ranges::fill(slot.subspan(first), static_cast<T>(value));
}

}  // namespace

DrawArrays make_draw_arrays(i32 curves, i32 slot_length, DrawKind kind, f64 null_y) {
  DrawArrays arrays;
  arrays.slot_length = static_cast<std::size_t>(std::max(slot_length, 0));
  const std::size_t values = arrays.slot_length * static_cast<std::size_t>(std::max(curves, 0));
  (kind.database ? arrays.DrawYDatabase : arrays.DrawY).assign(values, static_cast<f32>(null_y));
  if (kind.date_axis)
    arrays.DrawXII.assign(values, 0);
  else
    arrays.DrawX.assign(values, 0);
  return arrays;
}

void grow_slots(DrawArrays& arrays, i32 curves, i32 slot_length, DrawKind kind, f64 null_y) {
  if (static_cast<std::size_t>(std::max(slot_length, 0)) <= arrays.slot_length) return;
  DrawArrays grown = make_draw_arrays(curves, slot_length, kind, null_y);
  for (i32 curve = 0; curve < curves; ++curve) {
    const CurveSlot from = slot_of(arrays, static_cast<std::size_t>(curve));
    const CurveSlot to = slot_of(grown, static_cast<std::size_t>(curve));
    std::ranges::copy(from.DrawY, to.DrawY.begin());
    std::ranges::copy(from.DrawYDatabase, to.DrawYDatabase.begin());
    std::ranges::copy(from.DrawX, to.DrawX.begin());
    std::ranges::copy(from.DrawXII, to.DrawXII.begin());
  }
  arrays = std::move(grown);
}

CurveSlot slot_of(DrawArrays& arrays, std::size_t curve) {
  const std::size_t first = curve * arrays.slot_length;
  return {.DrawY = part_of(arrays.DrawY, first, arrays.slot_length),
          .DrawYDatabase = part_of(arrays.DrawYDatabase, first, arrays.slot_length),
          .DrawX = part_of(arrays.DrawX, first, arrays.slot_length),
          .DrawXII = part_of(arrays.DrawXII, first, arrays.slot_length)};
}

void write_values(std::span<f32> slot, std::span<const f64> values, DisplayScale scale, std::size_t stride) {
  std::size_t place = 0;
  for (std::size_t i = 0; i < values.size() && place < slot.size(); ++i, place += stride)
    slot[place] = scale(values[i]);
}

void write_x(const CurveSlot& slot, std::span<const f64> values, f64 offset, i16 sign, std::size_t first,
             std::size_t stride) {
  write_shifted(slot.DrawX, values, offset, sign, first, stride);
  write_shifted(slot.DrawXII, values, offset, sign, first, stride);
}

void write_line(const CurveSlot& slot, std::size_t points, const TimeLine& line) {
  write_points(slot.DrawX, points, line);
  write_points(slot.DrawXII, points, line);
}

void pad_y(std::span<f32> slot, std::size_t first, f64 null_value) {
  fill_from(slot, first, null_value);
}

void pad_x(const CurveSlot& slot, std::size_t first, f64 null_value) {
  fill_from(slot.DrawX, first, null_value);
  fill_from(slot.DrawXII, first, null_value);
}

}  // namespace trendaro
