// Sounds by the system's player.
#include "backends/win32/win32_sound.h"

#include "backends/win32/win32_code_page.h"
#include "backends/win32/windows_api.h"

#include <mmsystem.h>

namespace chartproject::win32 {

unsigned Win32Sound::OutputDeviceCount() {
  return waveOutGetNumDevs();
}

void Win32Sound::Play(const std::string& fileName, std::uint32_t flags) {
  // A sound continues after the call, perhaps after the host released this module: its player has to stay.
  HMODULE player = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN, L"winmm.dll", &player);
  PlaySoundA(Win32CodePage().Encode(fileName).c_str(), nullptr, flags);
}

}  // namespace chartproject::win32
