// Wave files through Qt Multimedia.
#pragma once

#include <memory>

#include "platform/sound.h"

class QSoundEffect;

namespace chartproject {

/// Asynchronous sounds continue after the window that started them is closed; the destructor lets the last one end.
class QtSound : public Sound {
 public:
  QtSound();
  ~QtSound() override;
  [[nodiscard]] unsigned OutputDeviceCount() override;
  /// A play replaces the one that is still heard.
  void Play(const std::string& fileName, std::uint32_t flags) override;

 private:
  void LetItEnd();

  std::unique_ptr<QSoundEffect> effect_;
};

}  // namespace chartproject
