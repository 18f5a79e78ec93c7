// Esc for a program without a keyboard: the signals that ask it to stop.
#pragma once

#include "platform/keyboard.h"

namespace chartproject {

/// SIGINT (Ctrl-C), SIGTERM and SIGHUP act as Esc once Watch was called; before, they end the program as usual.
class KeyboardSignals : public Keyboard {
 public:
  /// Takes the signals over for the rest of the process, except those that were ignored when it started (nohup, a
  /// background job of a script): these stay ignored.
  static void Watch();
  /// Number of signals received since Watch. It never decreases, so that a wait can notice a signal of its own time.
  [[nodiscard]] static int Received() noexcept;
  [[nodiscard]] bool EscapePressed() override;
};

}  // namespace chartproject
