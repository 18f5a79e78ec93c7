// The Esc key as the program's own windows see it.
#pragma once

#include <QObject>

#include "platform/keyboard.h"

namespace chartproject {

/// Watches the key events of all windows of the application; a key pressed in another program is not seen.
/// Needs a running QApplication.
class QtKeyboard : public QObject, public Keyboard {
 public:
  QtKeyboard();
  [[nodiscard]] bool EscapePressed() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool down_ = false;
  bool pressed_ = false;
  bool spent_ = false;  ///< the press was reported: its repetitions, until the key is let go, press no button
};

}  // namespace chartproject
