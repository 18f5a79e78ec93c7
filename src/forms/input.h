// What the user does over an owner-drawn control: keys, mouse, wheel, and the menu that it offers.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "forms/geometry.h"

namespace chartproject {

/// Keys that an owner-drawn control may act on.
enum class Key : std::uint8_t {
  kNone,
  kLeft,
  kRight,
  kPageUp,
  kPageDown,
  kHome,
  kEnd,
  kEscape,
  kBackspace,
  kSpace,
  kCharacter  ///< a letter, a digit or a sign
};

struct KeyPress {
  Key key = Key::kNone;
  bool shift = false;
  bool control = false;
  char character = 0;  ///< of kCharacter: 'A' to 'Z' (for small letters, too), '0' to '9', '+' or '-'
  friend bool operator==(const KeyPress&, const KeyPress&) = default;
};

enum class MouseButton : std::uint8_t { kNone, kLeft, kMiddle };

struct MouseInput {
  PointF at;  ///< relative to the control; while a button is down also outside it
  bool shift = false;
  bool control = false;
  /// The button that is pressed or released; of a move the one that is down.
  MouseButton button = MouseButton::kNone;
};

struct WheelInput {
  int notches = 0;  ///< positive away from the user
  PointF at{};
  bool shift = false;
  bool control = false;
};

/// An entry of a menu. One without a text is a separator; one with items of its own opens them.
struct MenuItem {
  std::string text;
  std::string key{};  ///< the name of the key that does the same; empty for none
  int id = 0;
  bool enabled = true;
  bool checked = false;
  std::vector<MenuItem> items{};
};

}  // namespace chartproject
