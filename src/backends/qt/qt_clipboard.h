// The desktop's clipboard.
#pragma once

#include "platform/clipboard.h"

namespace chartproject {

class QtClipboard : public Clipboard {
 public:
  void Clear() override;
  void SetPicture(const Bitmap& picture) override;
  [[nodiscard]] std::optional<Bitmap> Picture() override;
};

}  // namespace chartproject
