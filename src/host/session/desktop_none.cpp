// A program without windows: everything but the dialogs, the chart window, pictures and paper.
#include "host/session/desktop.h"
#include "platform/run_time_error.h"

namespace chartproject {

std::unique_ptr<Desktop> OpenDesktop(DesktopMode /*mode*/, Clock& /*clock*/, std::function<Language()> /*language*/) {
  throw RunTimeError(error_number::kCannotCreateObject, Text::kBuiltWithoutWindows);
}

}  // namespace chartproject
