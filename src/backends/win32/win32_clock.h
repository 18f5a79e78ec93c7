// The system's clock.
#pragma once

#include "platform/clock.h"

namespace chartproject::win32 {

class Win32Clock : public Clock {
 public:
  [[nodiscard]] DateTime LocalNow() override;
  [[nodiscard]] Instant Now() override;
};

}  // namespace chartproject::win32
