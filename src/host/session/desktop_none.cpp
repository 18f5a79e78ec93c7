// A program without windows: everything but the dialogs, the chart window, pictures and paper.
#include "host/session/desktop.h"
#include "platform/run_time_error.h"

namespace chartproject {

std::unique_ptr<Desktop> OpenDesktop(DesktopMode /*mode*/, Clock& /*clock*/,
                                     std::function<std::string()> /*language*/) {
  throw RunTimeError(error_number::kCannotCreateObject, "This program was built without windows and pictures.");
}

}  // namespace chartproject
