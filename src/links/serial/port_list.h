// The serial ports of this machine.
#pragma once

#include <string>
#include <vector>

namespace chartproject {

struct SerialPort {
  std::string name;     ///< /dev/ttyUSB0
  std::string lasting;  ///< its name in /dev/serial/by-id, which stays when it is plugged in again; may be empty
  bool allowed = false;
  std::string group;  ///< that may open it
  std::string user;   ///< "NAME (PID)" of a program that has it open; empty when none is seen

  /// The name to use in a link.
  [[nodiscard]] const std::string& BestName() const noexcept { return lasting.empty() ? name : lasting; }
};

/// Converters first, by name; of the ports on the board only those that have hardware. Nothing is opened, since opening
/// a port can move its control lines.
[[nodiscard]] std::vector<SerialPort> ListSerialPorts();

}  // namespace chartproject
