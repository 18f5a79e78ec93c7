// Port: the state of a key at this moment, independent of the focus.
#pragma once

namespace chartproject {

class Keyboard {
 public:
  virtual ~Keyboard() = default;
  /// True when Esc is down, or was pressed since the last call.
  [[nodiscard]] virtual bool EscapePressed() = 0;
};

}  // namespace chartproject
