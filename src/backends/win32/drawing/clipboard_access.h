// Reading and writing the clipboard: opened and locked memory are given back on every path.
#pragma once

#include "backends/win32/windows_api.h"

namespace chartproject::win32 {

/// The clipboard, open while the object lives. Another program may hold it for a moment: a few tries.
class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND owner) noexcept {
    for (int trial = 0; trial < 20 && !opened_; ++trial) {
      if (trial > 0) Sleep(10);
      opened_ = OpenClipboard(owner) != 0;
    }
  }
  ~OpenedClipboard() {
    if (opened_) CloseClipboard();
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  /// False when another program holds it.
  explicit operator bool() const noexcept { return opened_; }

 private:
  bool opened_ = false;
};

/// Memory of the clipboard, locked while the object lives.
class LockedMemory {
 public:
  explicit LockedMemory(HGLOBAL memory) noexcept
      : memory_(memory), bytes_(memory == nullptr ? nullptr : GlobalLock(memory)) {}
  ~LockedMemory() {
    if (bytes_ != nullptr) GlobalUnlock(memory_);
  }
  LockedMemory(const LockedMemory&) = delete;
  LockedMemory& operator=(const LockedMemory&) = delete;
  /// Null when there is none.
  [[nodiscard]] void* Get() const noexcept { return bytes_; }
  [[nodiscard]] SIZE_T Size() const noexcept { return bytes_ == nullptr ? 0 : GlobalSize(memory_); }

 private:
  HGLOBAL memory_;
  void* bytes_;
};

}  // namespace chartproject::win32
