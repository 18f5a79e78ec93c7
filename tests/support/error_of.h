// Which run-time error an action ends with.
#pragma once

#include <functional>

#include "platform/run_time_error.h"

namespace chartproject {

/// The number of the run-time error that an action throws; 0 for none.
inline int ErrorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace chartproject
