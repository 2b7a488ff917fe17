#pragma once

#include "app/types.h"

namespace trendaro {

struct Model;

// Entry `index` of the time units: 0 ms, 1 s, 2 min, 3 h, 4 date and time. Redraws both graphs and carries
// the limits of a zoom over; the active unit again does nothing.
void choose_time_unit(Model& model, i16 index);

// The entry "mnuTUnit(Index)".
template <i16 Index>
void mnuTUnit(Model& model) {
  choose_time_unit(model, Index);
}

// The x value `limit` of the unit `old_unit` in `new_unit`. `date` is the day number at which the recording
// starts.
f64 limit_in_unit(f64 limit, i16 old_unit, i16 new_unit, f64 date);

}  // namespace trendaro
