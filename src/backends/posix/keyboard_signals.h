// Esc for a program without a keyboard of its own: the signals that ask it to stop.
#pragma once

#include "platform/keyboard.h"

namespace chartproject {

/// SIGINT (Ctrl-C), SIGTERM and SIGHUP act as Esc once Watch was called; before, they end the program as usual.
class KeyboardSignals : public Keyboard {
 public:
  /// Takes the signals over for the rest of the process.
  static void Watch();
  [[nodiscard]] bool EscapePressed() override;
};

}  // namespace chartproject
