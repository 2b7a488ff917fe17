#include "app/controls.h"

#include <cassert>
#include <utility>

namespace trendaro {

void Controls::add(std::string name, ControlState state) {
  states_.insert_or_assign(std::move(name), std::move(state));
}

bool Controls::has(std::string_view name) const {
  return states_.contains(name);
}

ControlState& Controls::operator[](std::string_view name) {
  const auto found = states_.find(name);
  assert(found != states_.end() && "no control of that name");
  return found->second;
}

const ControlState& Controls::operator[](std::string_view name) const {
  const auto found = states_.find(name);
  assert(found != states_.end() && "no control of that name");
  return found->second;
}

void tick_only(Controls& controls, const std::string& menu, i32 entries, i32 chosen) {
  for (i32 entry = 0; entry < entries; ++entry)
    controls[menu + "(" + std::to_string(entry) + ")"].ticked = entry == chosen;
}

}  // namespace trendaro
