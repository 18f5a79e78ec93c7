// The component's wave files, played when the sound setting allows it.
#pragma once

#include <string>

namespace chartproject {

struct Environment;

/// A button was pressed.
inline constexpr const char* kClickSound = "NIMClick.wav";
/// An acquisition run ended, also by Esc.
inline constexpr const char* kCompleteSound = "Complete.wav";
/// A window closed.
inline constexpr const char* kClosingSound = "ir_end.wav";

/// Plays a file of the media folder (strMedia), unless strSound is exactly "No" or no device can be heard.
/// A missing file plays nothing. @param asynchronous returns at once, while the sound plays
void PlayWave(Environment& environment, const std::string& fileName, bool asynchronous = true);

/// Plays the closing sound unless strSoundClosingWindow is exactly "No".
void PlayClosingSound(Environment& environment);

}  // namespace chartproject
