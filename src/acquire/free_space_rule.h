// When a spooling run asks how much room its disk has left.
#pragma once

#include <cstdint>

#include "platform/clock.h"

namespace chartproject {

/// Free bytes that a run leaves on the disk.
inline constexpr std::uint64_t kReservedSpace = 100'000'000;

/// Asks the disk at every point while it is anywhere near full, and once a second while it is far from it: then even
/// a program that fills it at a gigabyte a second is noticed in time, and a point costs little beside its own row.
class FreeSpaceRule {
 public:
  static constexpr std::uint64_t kFarFromFull = kReservedSpace + 2'000'000'000;

  void Reset() { *this = FreeSpaceRule{}; }

  /// True when less than kReservedSpace is left. @param measure asks the disk for its free bytes
  template <typename Measure>
  [[nodiscard]] bool NearlyFull(Instant now, Measure measure) {
    const bool stillFar = measured_ && freeSpace_ >= kFarFromFull && now - measuredAt_ < std::chrono::seconds(1);
    if (!stillFar) {
      freeSpace_ = measure();
      measuredAt_ = now;
      measured_ = true;
    }
    return freeSpace_ < kReservedSpace;
  }

  /// Free bytes at the last measurement.
  [[nodiscard]] std::uint64_t FreeSpace() const noexcept { return freeSpace_; }

 private:
  bool measured_ = false;
  Instant measuredAt_{};
  std::uint64_t freeSpace_ = 0;
};

}  // namespace chartproject
