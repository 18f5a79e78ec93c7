// The right to store settings, among the programs of one user.
#pragma once

#include <string>

#include "backends/posix/files/open_file.h"

namespace chartproject {

/// Held as long as the object lives. The locked file is in a folder that only the user may enter, so nobody else can
/// hold it. Nothing is locked when that folder cannot be made or belongs to another user, or without locks on the disk.
class SettingsLock {
 public:
  /// Waits a moment for another program. Throws RunTimeError 70 when the lock does not come free in time, or when a
  /// signal asks the program to stop meanwhile.
  /// @param folder the folder to lock in; made when it is not there @param patient false for no waiting
  SettingsLock(const std::string& folder, bool patient);

 private:
  Descriptor file_;
};

}  // namespace chartproject
