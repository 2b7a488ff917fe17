#pragma once

#include <cmath>
#include <utility>

#include "graph/curve_outline.h"

namespace trendaro {

// Puts points together to pieces. A point without a place ends the piece.
class OutlineBuilder {
 public:
  void add(PixelPoint point) {
    if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
      joined_ = false;
      return;
    }
    if (!joined_) outline_.starts.push_back(outline_.points.size());
    outline_.points.push_back(point);
    joined_ = true;
  }
  void end_piece() { joined_ = false; }
  CurveOutline take() { return std::move(outline_); }

 private:
  CurveOutline outline_;
  bool joined_ = false;
};

}  // namespace trendaro
