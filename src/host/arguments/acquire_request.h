// A recording asked for on the command line, and the acquisition dialog filled in by it.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "acquire/dialog/acquire_form.h"
#include "backends/posix/console_dialogs.h"
#include "host/arguments/arguments.h"

namespace chartproject {

class PublishOptions;

/// What is not given stays as the dialog has it after a reset.
struct AcquireRequest {
  std::string fileName;                 ///< full name
  std::vector<std::string> parameters;  ///< one to four numbers
  std::string address;
  std::string points;
  std::optional<TimeBetweenPoints> every;
  std::string trigger;                      ///< event code; empty for a manual start
  std::string compare;                      ///< parameter of the comparison events, which need it
  std::string content;                      ///< comparison value
  bool json = false;                        ///< how the end is reported
  bool rows = false;                        ///< every point goes to standard output, too
  const PublishOptions* publish = nullptr;  ///< every point goes to a database, too; null for no
};

/// A step of the dialog ended in a run-time error, which a message box has shown already.
class StepFailed : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Fills the dialog's fields in the order in which a user would, and presses Start or Trigger.
/// Throws RefusedError that names the option when a field does not take its value, or when no button appears; and
/// StepFailed. Boxes about faulty lines of a driver file do not refuse: its other parameters can be recorded.
/// @param component the dialog's; @param boxes the dialog's message boxes: a new one after a field was filled means
/// that the field was refused
void FillAndStart(AcquireForm& form, const AcquireRequest& request, Component& component, const ConsoleDialogs& boxes);

}  // namespace chartproject
