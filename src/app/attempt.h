#pragma once

#include <exception>
#include <utility>

#include "app/run_time_error.h"

namespace trendaro {

// Runs one step that may fail; a failure is passed over and the next step runs.
// Returns whether the step came to its end.
template <typename Step>
bool attempt(Step&& step) {
  try {
    std::forward<Step>(step)();
    return true;
  } catch (const RunTimeError&) {
    return false;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace trendaro
