#pragma once

#include <map>
#include <string>
#include <string_view>

#include "app/types.h"

namespace trendaro {

inline constexpr i32 kWhite = 0xFFFFFF;
inline constexpr i32 kYellow = 0x00FFFF;
inline constexpr i32 kGreen = 0x00FF00;

// What handlers read and write of one control, menu entry or toolbar button. The window mirrors it to the
// widget of that object name after every handler.
struct ControlState {
  bool enabled = true;
  bool visible = true;
  bool ticked = false;      // menu entries
  std::string tag = {};     // toolbar buttons: "1" pressed, empty released
  std::string image = {};   // toolbar buttons: key of the image shown
  std::string text = {};    // boxes
  i32 back_color = kWhite;  // boxes, 0x00BBGGRR
};

// All controls by their object names ("mnuTUnit(1)", "TB_ZOOMFIX", "PointsBox"). Names are added once, from
// the tables of commands and tool buttons; any other name is a mistake in the program and is asserted.
class Controls {
 public:
  void add(std::string name, ControlState state);
  [[nodiscard]] bool has(std::string_view name) const;
  ControlState& operator[](std::string_view name);
  const ControlState& operator[](std::string_view name) const;

  [[nodiscard]] const std::map<std::string, ControlState, std::less<>>& all() const { return states_; }

 private:
  std::map<std::string, ControlState, std::less<>> states_;
};

// Ticks the entry `chosen` of the entries "menu(0)" to "menu(entries - 1)" and no other one of them.
void tick_only(Controls& controls, const std::string& menu, i32 entries, i32 chosen);

}  // namespace trendaro
