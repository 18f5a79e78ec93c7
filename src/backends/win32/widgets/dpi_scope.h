// Windows of a screen's own resolution, in a host that knows nothing of screens.
#pragma once

#include "backends/win32/windows_api.h"

namespace chartproject::win32 {

/// While one lives, windows made on this thread are told the resolution of the screen that they are on, and draw
/// themselves in it; the host's other windows stay as they are. Without effect before Windows 10.
class DpiScope {
 public:
  DpiScope() noexcept;
  ~DpiScope();
  DpiScope(const DpiScope&) = delete;
  DpiScope& operator=(const DpiScope&) = delete;

 private:
  void* before_;  ///< the thread's former awareness; null when nothing was changed
};

}  // namespace chartproject::win32
