// Opening a device without touching its line.
#include "links/serial/port_lock.h"

#include <fcntl.h>
#include <grp.h>
#include <netdb.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "platform/run_time_error.h"

namespace chartproject {

namespace {

std::string GroupOf(const struct stat& device) {
  const group* const owner = getgrgid(device.st_gid);
  return owner != nullptr ? owner->gr_name : std::to_string(device.st_gid);
}

[[noreturn]] void ThrowNotOpened(const std::string& port, int error) {
  throw RunTimeError(error_number::kDeviceIo, Text::kPortNotOpened, {port, std::generic_category().message(error)});
}

}  // namespace

PortLock::PortLock(const std::string& port) {
  struct stat device {};
  if (stat(port.c_str(), &device) != 0) ThrowNotOpened(port, errno);
  if (!S_ISCHR(device.st_mode)) throw RunTimeError(error_number::kDeviceIo, Text::kNotASerialPort, {port});
  descriptor_ = open(port.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (descriptor_ < 0) {
    const int error = errno;
    if (error == EBUSY) throw RunTimeError(error_number::kPermissionDenied, Text::kPortTaken, {port});
    if (error == EACCES) {
      throw RunTimeError(error_number::kPermissionDenied, Text::kPortNotAllowed, {port, GroupOf(device)});
    }
    ThrowNotOpened(port, error);
  }
  const bool isTerminal = isatty(descriptor_) != 0;
  if (isTerminal && flock(descriptor_, LOCK_EX | LOCK_NB) == 0) return;
  close(descriptor_);
  if (!isTerminal) throw RunTimeError(error_number::kDeviceIo, Text::kNotASerialPort, {port});
  throw RunTimeError(error_number::kPermissionDenied, Text::kPortTaken, {port});
}

PortLock::~PortLock() {
  close(descriptor_);
}

bool HostResolves(const std::string& host) {
  addrinfo* found = nullptr;
  const bool resolves = getaddrinfo(host.c_str(), nullptr, nullptr, &found) == 0;
  if (resolves) freeaddrinfo(found);
  return resolves;
}

}  // namespace chartproject
