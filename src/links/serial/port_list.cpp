// Reading /dev, and who has what open from /proc.
#include "links/serial/port_list.h"

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>

namespace chartproject {

namespace {

namespace fs = std::filesystem;

/// The entries of a folder; none when it cannot be read.
std::vector<fs::path> EntriesOf(const fs::path& folder) {
  std::error_code error;
  std::vector<fs::path> entries;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    entries.push_back(at->path());
  }
  std::ranges::sort(entries);
  return entries;
}

std::string FirstLine(const fs::path& file) {
  std::ifstream in(file);
  std::string line;
  std::getline(in, line);
  return line;
}

/// The kernel keeps names for ports that the board does not have; their type is 0.
bool HasHardware(const std::string& name) {
  if (!name.starts_with("ttyS"))
    return name.starts_with("ttyUSB") || name.starts_with("ttyACM") || name.starts_with("ttyAMA");
  const std::string type = FirstLine(fs::path("/sys/class/tty") / name / "type");
  return !type.empty() && type != "0";
}

/// By name of the device: the first program seen that has it open. Programs of others are seen by root only.
std::map<std::string, std::string> UsersOfDevices() {
  std::map<std::string, std::string> users;
  for (const fs::path& process : EntriesOf("/proc")) {
    const std::string id = process.filename();
    if (id.find_first_not_of("0123456789") != std::string::npos || id == std::to_string(getpid())) continue;
    for (const fs::path& descriptor : EntriesOf(process / "fd")) {
      std::error_code error;
      const std::string target = fs::read_symlink(descriptor, error);
      if (!error && target.starts_with("/dev/"))
        users.try_emplace(target, FirstLine(process / "comm") + " (" + id + ")");
    }
  }
  return users;
}

SerialPort PortNamed(const std::string& name, const std::map<std::string, std::string>& users) {
  SerialPort port{name, {}, access(name.c_str(), R_OK | W_OK) == 0, {}, {}};
  struct stat device {};
  if (stat(name.c_str(), &device) == 0) {
    const group* const owner = getgrgid(device.st_gid);
    port.group = owner != nullptr ? owner->gr_name : std::to_string(device.st_gid);
  }
  if (const auto user = users.find(name); user != users.end()) port.user = user->second;
  return port;
}

}  // namespace

std::vector<SerialPort> ListSerialPorts() {
  const std::map<std::string, std::string> users = UsersOfDevices();
  std::vector<SerialPort> ports;
  for (const fs::path& lasting : EntriesOf("/dev/serial/by-id")) {
    std::error_code error;
    const fs::path device = fs::canonical(lasting, error);
    if (error) continue;
    ports.push_back(PortNamed(device, users));
    ports.back().lasting = lasting;
  }
  for (const fs::path& device : EntriesOf("/dev")) {
    if (!HasHardware(device.filename()) ||
        std::ranges::find(ports, device.string(), &SerialPort::name) != ports.end()) {
      continue;
    }
    ports.push_back(PortNamed(device, users));
  }
  return ports;
}

}  // namespace chartproject
