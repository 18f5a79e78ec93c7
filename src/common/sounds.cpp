// When and how wave files are played.
#include "common/sounds.h"

#include "common/environment/environment.h"
#include "common/values/text.h"

namespace chartproject {

void PlayWave(Environment& environment, const std::string& fileName, bool asynchronous) {
  if (environment.settings.strSound == "No") return;
  Sound& sound = environment.ports.sound;
  if (sound.OutputDeviceCount() == 0) return;
  std::uint32_t flags = sound_flag::kFileName | sound_flag::kNoDefault;
  if (asynchronous) flags |= sound_flag::kAsynchronous;
  sound.Play(JoinPath(environment.settings.strMedia, fileName), flags);
}

void PlayClosingSound(Environment& environment) {
  if (environment.settings.strSoundClosingWindow != "No") PlayWave(environment, kClosingSound);
}

}  // namespace chartproject
