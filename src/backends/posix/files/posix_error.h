// From the system's error numbers to the run-time errors of the platform.
#pragma once

#include <string>

#include "platform/run_time_error.h"

namespace chartproject {

/// The run-time error for a failed system call on a file: 61 disk full, 70 no permission, 53 no such file, 76 no such
/// folder (or a folder above the file is missing), 75 any other refusal of the name.
/// @param errorNumber errno; @param name the file, as the user named it
[[nodiscard]] RunTimeError FileError(int errorNumber, const std::string& name);

/// The same for a failed read or write of an open file: 61 disk full, 57 anything else.
[[nodiscard]] RunTimeError DeviceError(int errorNumber, const std::string& name);

}  // namespace chartproject
