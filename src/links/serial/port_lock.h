// Whether a device is a serial port, and whose it is.
#pragma once

#include <string>

namespace chartproject {

/// Keeps other programs off a serial port while it lives: those that lock ports as this one does, also when they run as
/// root, which an exclusive terminal does not keep off.
class PortLock {
 public:
  /// Throws RunTimeError for a name that is not there, is not a serial port, may not be opened (with the group that
  /// may), or is taken by another program.
  explicit PortLock(const std::string& port);
  ~PortLock();
  PortLock(const PortLock&) = delete;
  PortLock& operator=(const PortLock&) = delete;

 private:
  int descriptor_ = -1;
};

/// True when the system finds an address for a host name.
[[nodiscard]] bool HostResolves(const std::string& host);

}  // namespace chartproject
