// Moments of points as other programs read them: ISO 8601 local time with its distance from UTC.
#pragma once

#include <cstdint>
#include <limits>
#include <string>

#include "chart/plain/local_moments.h"

namespace chartproject {

/// "2026-01-31T14:05:00.200+01:00". Quick for moments that follow each other: the text of a minute is made once.
class MomentText {
 public:
  /// @param zone outlives the texts
  explicit MomentText(const TimeZone& zone) : moments_(zone) {}

  /// @param milliseconds since 1970-01-01 00:00 UTC, in the years 1 to 9999
  void Append(std::string& text, std::int64_t milliseconds);

 private:
  void WriteMinute(std::int64_t minute);
  void WriteDistance();

  static constexpr std::int64_t kNone = std::numeric_limits<std::int64_t>::min();
  LocalMoments moments_;
  std::int64_t minute_ = kNone;  ///< local, since 1970, whose text is known
  std::int64_t ahead_ = kNone;   ///< whose text is known
  std::string minuteText_;       ///< "2026-01-31T14:05:"
  std::string distance_;         ///< "+01:00"
};

}  // namespace chartproject
