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

}  // namespace trendaro
