// How the program ends.
#pragma once

namespace chartproject {

enum class ExitCode {
  kDone = 0,
  kRunTimeError = 1,  ///< something failed: a file, a setting, a drive
  kRefused = 2,       ///< wrong usage, or a value that the acquisition dialog refuses
  kEndedEarly =
      3,  ///< a recording that Esc, a signal or a full disk ended, its points kept; or an export that was stopped
};

}  // namespace chartproject
