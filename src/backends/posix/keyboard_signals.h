// Esc for a program without a keyboard of its own: the signals that ask it to stop.
#pragma once

#include "platform/keyboard.h"

namespace chartproject {

/// SIGINT (Ctrl-C), SIGTERM and SIGHUP act as Esc once Watch was called; before, they end the program as usual.
class KeyboardSignals : public Keyboard {
 public:
  /// Takes the signals over for the rest of the process, except those that were ignored when it started (nohup, a
  /// background job of a script): these stay ignored.
  static void Watch();
  /// Signals received since Watch; never taken back, so that a wait can notice one of its own time.
  [[nodiscard]] static int Received() noexcept;
  [[nodiscard]] bool EscapePressed() override;
};

}  // namespace chartproject
