// The state of the keyboard, apart from messages.
#pragma once

#include <cstdint>
#include <optional>

#include "backends/win32/windows_api.h"
#include "platform/keyboard.h"

namespace chartproject::win32 {

class Win32Keyboard : public Keyboard {
 public:
  [[nodiscard]] bool EscapePressed() override {
    const bool pressed = GetAsyncKeyState(VK_ESCAPE) != 0;
    if (pressed) takenAt_ = GetTickCount();
    return pressed;
  }
  /// Whether a press of Esc was reported by EscapePressed already. @param pressedAt its message's time
  [[nodiscard]] bool TookEscapeOf(DWORD pressedAt) const noexcept {
    return takenAt_ && static_cast<std::int32_t>(*takenAt_ - pressedAt) >= 0;
  }

 private:
  std::optional<DWORD> takenAt_;  ///< in the system's ticks, which wrap around
};

}  // namespace chartproject::win32
