// The system's clipboard: pictures as device-independent bitmaps, and texts.
#pragma once

#include "backends/win32/handles.h"
#include "platform/clipboard.h"

namespace chartproject::win32 {

class Win32Clipboard : public Clipboard {
 public:
  void Clear() override;
  void SetPicture(const Bitmap& picture) override;
  void SetText(const std::string& text) override;
  [[nodiscard]] std::optional<Bitmap> Picture() override;

 private:
  HWND Owner();
  OwnedWindow owner_;  ///< the clipboard takes data only from a window
};

}  // namespace chartproject::win32
