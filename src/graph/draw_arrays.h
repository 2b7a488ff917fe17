#pragma once

#include <cstddef>
#include <span>

#include "app/types.h"
#include "files/sample_array.h"
#include "graph/time_axis.h"

namespace trendaro {

// The flat arrays that one redraw hands to a graph: curve after curve, one slot of `slot_length` elements
// each. Only the arrays that the graph will take exist; the others are empty.
struct DrawArrays {
  std::size_t slot_length = 0;
  FlatArray DrawY;          // y while samples of files are on show
  FlatArray DrawYDatabase;  // y while original samples out of the database are on show
  FlatArray DrawX;          // x, unless on a date axis
  SampleArray DrawXII;      // x on a date axis
};

// The places of one curve in the flat arrays; empty where an array does not exist.
struct CurveSlot {
  std::span<f32> DrawY, DrawYDatabase, DrawX;
  std::span<f64> DrawXII;
};

struct DrawKind {
  bool database = false;   // DrawYDatabase in place of DrawY
  bool date_axis = false;  // DrawXII in place of DrawX
};

// Arrays for `curves` curves, y filled with `null_y` and x with 0. Throws std::bad_alloc.
DrawArrays make_draw_arrays(i32 curves, i32 slot_length, DrawKind kind, f64 null_y);

// Gives the slots of `curves` curves `slot_length` elements, keeping what they hold; slots never shrink. The
// new elements are null in y and 0 in x. Throws std::bad_alloc.
void grow_slots(DrawArrays& arrays, i32 curves, i32 slot_length, DrawKind kind, f64 null_y);

// The slot of a curve, from 0.
CurveSlot slot_of(DrawArrays& arrays, std::size_t curve);

// How a sample becomes a display value: (y + offset) * sign.
struct DisplayScale {
  f32 offset = 0;
  i16 sign = 1;

  [[nodiscard]] f32 operator()(f64 y) const { return static_cast<f32>((y + offset) * sign); }
};

// Writes display values to the elements 0, `stride`, 2 * `stride` ... of `slot`, as far as both go.
void write_values(std::span<f32> slot, std::span<const f64> values, DisplayScale scale,
                  std::size_t stride = 1);

// Writes (x + offset) * sign in the same way, to whichever x array the slot has.
void write_x(const CurveSlot& slot, std::span<const f64> values, f64 offset, i16 sign = 1,
             std::size_t first = 0, std::size_t stride = 1);

// Writes the x values of points 0 to `points` - 1 of a time line.
void write_line(const CurveSlot& slot, std::size_t points, const TimeLine& line);

// Sets y from element `first` on to a null value.
void pad_y(std::span<f32> slot, std::size_t first, f64 null_value);

// Sets x from element `first` on to a null value.
void pad_x(const CurveSlot& slot, std::size_t first, f64 null_value);

}  // namespace trendaro
