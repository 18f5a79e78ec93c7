// A recording asked for on the command line, and the acquisition dialog filled in by it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "acquire/acquire_form.h"
#include "host/arguments.h"

namespace chartproject {

/// What is not given stays as the dialog has it after a reset.
struct AcquireRequest {
  std::string fileName;                 ///< full name
  std::vector<std::string> parameters;  ///< one to four numbers
  std::string address;
  std::string points;
  std::optional<TimeBetweenPoints> every;
  std::string trigger;  ///< event code; empty for a manual start
  std::string compare;  ///< parameter of the comparison events
  std::string content;  ///< comparison value
};

/// Fills the dialog's fields in the order in which a user would, and presses Start or Trigger.
/// Throws RefusedError that names the option when a field does not take its value, or when no button appears.
/// @param boxesShown number of message boxes so far: one more after a field was filled means that it was refused
void FillAndStart(AcquireForm& form, const AcquireRequest& request, const std::function<int()>& boxesShown);

}  // namespace chartproject
