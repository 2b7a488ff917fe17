#pragma once

#include <array>
#include <string>

#include "app/one_based.h"
#include "app/types.h"

namespace trendaro {

// A mark that the user put on the main graph.
struct AnnotationRecord {
  u8 Type = 0;
  std::array<f64, 2> X{};  // first and second point, graph units
  std::array<f64, 2> Y{};
  std::string Text;
  i32 Color = 0;  // 0x00BBGGRR
  u8 Symbol = 0;
  u8 Layer = 1;  // y layer, from 1
  i16 LineStyle = 0;
  i16 Spare = 0;
  i16 Plot = 0;        // plot number it hangs on, from 1; 0 for none
  bool Moved = false;  // the running rebuild of the plot list has moved it to its plot's new number
};

struct AnnotationList {
  OneBased<AnnotationRecord> Annotations;
  i16 AnnotationCount = 0;
};

}  // namespace trendaro
