// Port: the picture or the text on the clipboard.
#pragma once

#include <optional>
#include <string>

#include "platform/bitmap.h"

namespace chartproject {

/// Every operation throws RunTimeError 521 when the clipboard cannot be opened.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual void Clear() = 0;
  virtual void SetPicture(const Bitmap& picture) = 0;
  /// @param text UTF-8; lines end with carriage return and line feed
  virtual void SetText(const std::string& text) = 0;
  /// The picture on the clipboard, from any program; nothing when there is none.
  [[nodiscard]] virtual std::optional<Bitmap> Picture() = 0;
};

}  // namespace chartproject
