// The look of the common controls that the DLL's own manifest asks for, also in a host that has another.
#pragma once

#include "backends/win32/windows_api.h"

namespace chartproject::win32 {

/// While one lives, windows made on this thread are of the common controls named in the manifest.
class ThemedControls {
 public:
  ThemedControls() noexcept;
  ~ThemedControls();
  ThemedControls(const ThemedControls&) = delete;
  ThemedControls& operator=(const ThemedControls&) = delete;

 private:
  HANDLE context_;
  ULONG_PTR cookie_ = 0;
  bool active_ = false;
};

}  // namespace chartproject::win32
