#pragma once

#include "app/types.h"

namespace trendaro {

// Carries values of one axis to pixels and back. `first` is the pixel of `minimum`, `last` that of `maximum`;
// an inverted axis and a y axis simply have `last` below `first`.
struct AxisScale {
  f64 minimum = 0;
  f64 maximum = 1;
  bool logarithmic = false;  // only with both limits above 0
  f64 first = 0;
  f64 last = 1;
};

// A scale whose limits are finite, apart from each other and in order, whatever the settings claim. `kind`
// is 0 automatic, 1 linear, 2 logarithmic; a logarithmic wish over limits that are not all above 0 takes a
// small part of the maximum as its lower end, and is linear where the maximum is not above 0. Automatic
// becomes logarithmic where both limits lie above 0 and more than three decades apart.
AxisScale make_scale(f64 minimum, f64 maximum, i32 kind);

// Whether limits lie above 0 and so far apart that an automatic axis becomes logarithmic.
bool spans_decades(f64 minimum, f64 maximum);

// The pixel of a value; not finite where the value has none.
f64 pixel_of(const AxisScale& scale, f64 value);
// The value at a pixel.
f64 value_of(const AxisScale& scale, f64 pixel);

}  // namespace trendaro
