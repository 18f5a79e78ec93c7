// The state of the keyboard, apart from messages.
#pragma once

#include "backends/win32/windows_api.h"
#include "platform/keyboard.h"

namespace chartproject::win32 {

class Win32Keyboard : public Keyboard {
 public:
  [[nodiscard]] bool EscapePressed() override { return GetAsyncKeyState(VK_ESCAPE) != 0; }
};

}  // namespace chartproject::win32
