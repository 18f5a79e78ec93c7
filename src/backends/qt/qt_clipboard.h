// The desktop's clipboard.
#pragma once

#include "platform/clipboard.h"

namespace chartproject {

class QtClipboard : public Clipboard {
 public:
  void Clear() override;
  void SetPicture(const Bitmap& picture) override;
  void SetText(const std::string& text) override;
  [[nodiscard]] std::optional<Bitmap> Picture() override;
};

}  // namespace chartproject
