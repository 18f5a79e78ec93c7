// The run-time error log, a file shared with the host that is only ever appended to.
#pragma once

#include <string>

#include "forms/form.h"
#include "platform/run_time_error.h"

namespace chartproject {

struct Environment;

/// The log file: strBin (or, while that is empty, the profile's folder) and "Kestrel.log".
[[nodiscard]] std::string ErrorLogFile(const Environment& environment);

/// Appends the error to the log, then shows it in a box with the component's own title. When the log cannot be written,
/// the box shows both the error and the log's own, so that the first one is not lost. Never throws.
/// @param routine the routine in which the error happened
void LogRunTimeError(Environment& environment, const std::string& routine, const RunTimeError& error) noexcept;

/// Appends the error to the log without a box: for errors that need not disturb the user (a missing picture file).
/// A log that cannot be written is ignored. Never throws.
void NoteRunTimeError(Environment& environment, const std::string& routine, const RunTimeError& error) noexcept;

/// What a form does with an error that a handler let out: LogRunTimeError. @param environment outlives the form
[[nodiscard]] HandlerErrorReporter MakeHandlerErrorReporter(Environment& environment);

}  // namespace chartproject
