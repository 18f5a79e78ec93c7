// The ports that are a call or two of the system each: clock, locale, sound, keyboard.
#pragma once

#include "platform/clock.h"
#include "platform/keyboard.h"
#include "platform/locale.h"
#include "platform/sound.h"

namespace chartproject::win32 {

class Win32Clock : public Clock {
 public:
  [[nodiscard]] DateTime LocalNow() override;
  [[nodiscard]] Instant Now() override;
};

/// The user's settings of the control panel, as they were when the object was made.
class Win32Locale : public Locale {
 public:
  Win32Locale();
  [[nodiscard]] const NumberFormat& Numbers() const override { return numbers_; }
  [[nodiscard]] std::string DateText(const DateTime& moment) const override;
  [[nodiscard]] std::string TimeText(const DateTime& moment) const override;

 private:
  NumberFormat numbers_;
};

class Win32Sound : public Sound {
 public:
  [[nodiscard]] unsigned OutputDeviceCount() override;
  void Play(const std::string& fileName, std::uint32_t flags) override;
};

class Win32Keyboard : public Keyboard {
 public:
  [[nodiscard]] bool EscapePressed() override;
};

}  // namespace chartproject::win32
