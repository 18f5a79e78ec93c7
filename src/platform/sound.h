// Port: wave files.
#pragma once

#include <cstdint>
#include <string>

namespace chartproject {

/// Flags of a wave play (the platform's numbers).
namespace sound_flag {
inline constexpr std::uint32_t kAsynchronous = 0x1;
inline constexpr std::uint32_t kNoDefault = 0x2;
inline constexpr std::uint32_t kFileName = 0x20000;
}  // namespace sound_flag

class Sound {
 public:
  virtual ~Sound() = default;
  /// Number of wave output devices; 0 means that nothing can be heard.
  [[nodiscard]] virtual unsigned OutputDeviceCount() = 0;
  /// Plays a wave file; a missing or broken file plays nothing and is not an error.
  virtual void Play(const std::string& fileName, std::uint32_t flags) = 0;
};

}  // namespace chartproject
