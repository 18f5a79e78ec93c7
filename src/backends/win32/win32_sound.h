// Sounds by the system's player.
#pragma once

#include "platform/sound.h"

namespace chartproject::win32 {

class Win32Sound : public Sound {
 public:
  [[nodiscard]] unsigned OutputDeviceCount() override;
  void Play(const std::string& fileName, std::uint32_t flags) override;
};

}  // namespace chartproject::win32
