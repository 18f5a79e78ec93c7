// Modality: while a form is shown, the other windows of its thread take no input.
#pragma once

#include <vector>

#include "backends/win32/windows_api.h"

namespace chartproject::win32 {

class ModalScope {
 public:
  /// Disables the thread's other windows. @param form outlives the object or is gone by End
  explicit ModalScope(HWND form);
  ~ModalScope() { EnableOthers(); }
  ModalScope(const ModalScope&) = delete;
  ModalScope& operator=(const ModalScope&) = delete;

  /// Gives input back to the others, before the form goes, so that one of the host's windows becomes the active one:
  /// the one that was active, which need not be the owner (a dialog or a tool window of the host's).
  void GiveBack();

 private:
  void EnableOthers() noexcept;

  HWND form_;
  HWND activeBefore_;
  std::vector<HWND> disabled_;
};

}  // namespace chartproject::win32
