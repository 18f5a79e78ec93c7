// Sounds by the system's player.
#include "backends/win32/win32_sound.h"

#include "backends/win32/com_module.h"
#include "backends/win32/win32_code_page.h"
#include "backends/win32/windows_api.h"

#include <mmsystem.h>

namespace chartproject::win32 {

namespace {

constexpr const wchar_t* kPlayer = L"winmm.dll";

}  // namespace

unsigned Win32Sound::OutputDeviceCount() {
  static const auto count = SystemFunction<decltype(&waveOutGetNumDevs)>(kPlayer, "waveOutGetNumDevs");
  return count == nullptr ? 0 : count();
}

/// A sound continues after the call, perhaps after the host released this module: its player stays.
void Win32Sound::Play(const std::string& fileName, std::uint32_t flags) {
  static const auto play = SystemFunction<decltype(&PlaySoundA)>(kPlayer, "PlaySoundA");
  if (play != nullptr) play(Win32CodePage().Encode(fileName).c_str(), nullptr, flags);
}

}  // namespace chartproject::win32
