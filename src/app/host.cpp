#include "app/host.h"

#include <type_traits>

#include "app/numbers.h"
#include "app/run_time_error.h"

namespace trendaro {

i32 host_integer(const HostValue& value) {
  return std::visit(
      [](const auto& held) -> i32 {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, std::string>)
          throw RunTimeError{kTypeMismatch};
        else if constexpr (std::is_same_v<Held, f64>)
          return round_to_i32(held);
        else
          return held;
      },
      value);
}

std::string host_text(const HostValue& value) {
  return std::visit(
      [](const auto& held) -> std::string {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, std::string>)
          return held;
        else if constexpr (std::is_same_v<Held, f64>)
          return number_text(held);
        else
          return number_text(static_cast<i64>(held));
      },
      value);
}

}  // namespace trendaro
