// A build without real drives.
#include "host/session/serial_links.h"
#include "platform/run_time_error.h"

namespace chartproject {

LinePortMaker MakeLinePorts(const std::string& /*trace*/, Clock& /*clock*/) {
  throw RunTimeError(error_number::kCannotCreateObject, Text::kBuiltWithoutSerial);
}

}  // namespace chartproject
