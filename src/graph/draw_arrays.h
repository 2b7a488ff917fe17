#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "app/types.h"
#include "files/sample_array.h"
#include "graph/draw_slot.h"
#include "graph/former_arrays.h"
#include "graph/time_axis.h"

namespace trendaro {

// Elements at the start of a curve's slots that hold a value.
struct SlotsHeld {
  std::size_t x = 0, y = 0;
};

struct DrawKind {
  bool database = false;   // DrawYDatabase in place of DrawY
  bool date_axis = false;  // DrawXII in place of DrawX
};

// The flat arrays that one redraw hands to a graph: curve after curve, one slot of `slot_length` elements
// each. Only the arrays that the graph will take exist; the others are empty. Behind what `held` tells of a
// curve they hold no value until fill_rest.
struct DrawArrays {
  std::size_t slot_length = 0;
  DrawKind kind;
  f32 null_y = 0;               // what y holds where no curve writes; x holds 0 there
  FlatArray DrawY;              // y while samples of files are on show
  FlatArray DrawYDatabase;      // y while original samples out of the database are on show
  FlatArray DrawX;              // x, unless on a date axis
  SampleArray DrawXII;          // x on a date axis
  std::vector<SlotsHeld> held;  // by curve, from 0
};

// The places of one curve in the flat arrays; empty where an array does not exist.
struct CurveSlot {
  DrawSlot<f32> DrawY, DrawYDatabase, DrawX;
  DrawSlot<f64> DrawXII;
};

// Arrays for `curves` curves, in which no slot holds anything, in the memory of `former` where that can be.
// Throws std::bad_alloc.
DrawArrays make_draw_arrays(i32 curves, i32 slot_length, DrawKind kind, f64 null_y, FormerArrays former = {});

// Gives the slots `slot_length` elements, keeping what they hold; slots never shrink, and those handed out
// before are gone. Throws std::bad_alloc.
void grow_slots(DrawArrays& arrays, i32 slot_length);

// Fills y with its null value and x with 0 wherever no curve wrote.
void fill_rest(DrawArrays& arrays);

// The slot of a curve, from 0. The arrays outlive it.
CurveSlot slot_of(DrawArrays& arrays, std::size_t curve);

// How a sample becomes a display value: (y + offset) * sign.
struct DisplayScale {
  f32 offset = 0;
  i16 sign = 1;

  [[nodiscard]] f32 operator()(f64 y) const { return static_cast<f32>((y + offset) * sign); }
};

// Writes display values to the elements 0, `stride`, 2 * `stride` ... of `place`, as far as both go.
void write_values(std::span<f32> place, std::span<const f64> values, DisplayScale scale,
                  std::size_t stride = 1);

// The same in a slot, from its element `first` on.
void write_y(const DrawSlot<f32>& slot, std::span<const f64> values, DisplayScale scale,
             std::size_t first = 0, std::size_t stride = 1);

// Writes (x + offset) * sign in the same way, to whichever x array the slot has.
void write_x(const CurveSlot& slot, std::span<const f64> values, f64 offset, i16 sign = 1,
             std::size_t first = 0, std::size_t stride = 1);

// The first elements of a curve's slot, for points that are written one by one; those left out are null, or
// as they were written before.
class PointRoom {
 public:
  // Takes the first `points` elements, as far as the slot goes.
  PointRoom(const CurveSlot& slot, std::size_t points)
      : y_(slot.DrawY.for_some(0, points)),
        x_single_(slot.DrawX.for_some(0, points)),
        x_double_(slot.DrawXII.for_some(0, points)) {}

  // Writes DrawY and x of a point; one behind the room is passed over.
  void write(std::size_t point, f64 x, f32 y) const {
    if (point < y_.size()) y_[point] = y;
    if (point < x_single_.size()) x_single_[point] = static_cast<f32>(x);
    if (point < x_double_.size()) x_double_[point] = x;
  }

 private:
  std::span<f32> y_, x_single_;
  std::span<f64> x_double_;
};

// Writes the x values of points 0 to `points` - 1 of a time line.
void write_line(const CurveSlot& slot, std::size_t points, const TimeLine& line);

// Sets y from element `first` on to a null value.
void pad_y(const DrawSlot<f32>& slot, std::size_t first, f64 null_value);

// Sets x from element `first` on to a null value.
void pad_x(const CurveSlot& slot, std::size_t first, f64 null_value);

}  // namespace trendaro
