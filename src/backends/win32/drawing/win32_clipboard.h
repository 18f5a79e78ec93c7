// Pictures on the system's clipboard, as device-independent bitmaps.
#pragma once

#include "backends/win32/handles.h"
#include "platform/clipboard.h"

namespace chartproject::win32 {

class Win32Clipboard : public Clipboard {
 public:
  void Clear() override;
  void SetPicture(const Bitmap& picture) override;
  [[nodiscard]] std::optional<Bitmap> Picture() override;

 private:
  HWND Owner();
  OwnedWindow owner_;  ///< the clipboard takes data only from a window
};

}  // namespace chartproject::win32
