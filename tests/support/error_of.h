// Which run-time error an action ends with.
#pragma once

#include <cstdlib>
#include <functional>
#include <string>

#include "platform/run_time_error.h"

namespace chartproject {

/// The run-time error that an action throws, for example "53 File not found: a.cht"; empty for none.
inline std::string ErrorTextOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return std::to_string(error.Number()) + " " + error.Description();
  }
  return "";
}

/// The number of the run-time error that an action throws; 0 for none.
inline int ErrorOf(const std::function<void()>& action) {
  return std::atoi(ErrorTextOf(action).c_str());
}

}  // namespace chartproject
