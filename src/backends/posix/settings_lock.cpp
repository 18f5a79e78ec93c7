// A locked file in a folder of mode 0700.
#include "backends/posix/settings_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>

#include "backends/posix/keyboard_signals.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr mode_t kOwnerOnlyFolder = 0700;
constexpr mode_t kOwnerOnlyFile = 0600;
constexpr timespec kBetweenTries{0, 20'000'000};
constexpr int kMostTries = 150;  // three seconds

/// The lock file of the folder; none where the folder is not the user's own.
Descriptor OpenLockFile(const std::string& folder) {
  mkdir(folder.c_str(), kOwnerOnlyFolder);
  const Descriptor place(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  struct stat status {};
  const bool own = place.Number() >= 0 && fstat(place.Number(), &status) == 0 && status.st_uid == geteuid();
  if (!own) return Descriptor(-1);
  if ((status.st_mode & ~static_cast<mode_t>(S_IFMT)) != kOwnerOnlyFolder &&
      fchmod(place.Number(), kOwnerOnlyFolder) != 0) {
    return Descriptor(-1);
  }
  constexpr int kHow = O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
  return Descriptor(openat(place.Number(), "lock", kHow, kOwnerOnlyFile));
}

}  // namespace

SettingsLock::SettingsLock(const std::string& folder, bool patient) : file_(OpenLockFile(folder)) {
  if (file_.Number() < 0) return;
  const int signalsBefore = KeyboardSignals::Received();
  for (int tries = 1; flock(file_.Number(), LOCK_EX | LOCK_NB) != 0; ++tries) {
    if (errno != EWOULDBLOCK && errno != EINTR) return;
    if (!patient || tries == kMostTries || KeyboardSignals::Received() != signalsBefore) {
      throw RunTimeError(
          error_number::kPermissionDenied,
          "The settings are not stored, because another program holds the lock on them: " + folder + "/lock");
    }
    nanosleep(&kBetweenTries, nullptr);
  }
}

}  // namespace chartproject
