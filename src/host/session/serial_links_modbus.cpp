// Real drives by libmodbus.
#include "host/session/serial_links.h"
#include "links/serial/modbus_port.h"

namespace chartproject {

LinePortMaker MakeLinePorts(const std::string& trace, Clock& clock) {
  const auto lines = trace.empty() ? nullptr : std::make_shared<LineTrace>(trace, clock);
  return [lines](const LineSettings& settings, std::function<bool()> stopping) {
    return MakeModbusPort(settings, std::move(stopping), lines);
  };
}

}  // namespace chartproject
