#include "graph/line_clip.h"

namespace trendaro {
namespace {

// Where a line crosses a side of the box: 0 left, 1 right, 2 top, 3 bottom. The place across that side is not
// computed, since a line from very far away has no digits left for it.
PixelPoint crossing(const PixelRectangle& box, int side, PixelPoint computed) {
  switch (side) {
    case 0:
      return {box.x, computed.y};
    case 1:
      return {box.right(), computed.y};
    case 2:
      return {computed.x, box.y};
    default:
      return {computed.x, box.bottom()};
  }
}

}  // namespace

bool clip_line(const PixelRectangle& box, PixelPoint& from, PixelPoint& to) {
  f64 enter = 0;
  f64 leave = 1;
  const f64 across = to.x - from.x;
  const f64 down = to.y - from.y;
  const f64 speeds[] = {-across, across, -down, down};
  const f64 rooms[] = {from.x - box.x, box.right() - from.x, from.y - box.y, box.bottom() - from.y};
  int enter_side = -1;
  int leave_side = -1;
  for (int side = 0; side < 4; ++side) {
    if (speeds[side] == 0) {
      if (rooms[side] < 0) return false;
      continue;
    }
    const f64 part = rooms[side] / speeds[side];
    if (speeds[side] < 0 && part > enter) {
      enter = part;
      enter_side = side;
    } else if (speeds[side] > 0 && part < leave) {
      leave = part;
      leave_side = side;
    }
  }
  if (enter > leave) return false;
  const PixelPoint start = from;
  if (leave_side >= 0) to = crossing(box, leave_side, {start.x + across * leave, start.y + down * leave});
  if (enter_side >= 0) from = crossing(box, enter_side, {start.x + across * enter, start.y + down * enter});
  return true;
}

}  // namespace trendaro
