// Moments of points as other programs read them: ISO 8601 local time with its distance from UTC.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "chart/plain/local_moments.h"
#include "common/values/growing_text.h"

namespace chartproject {

/// "2026-01-31T14:05:00.200+01:00". Quick for moments that follow each other: within a minute only seconds and
/// milliseconds are written anew.
class MomentText {
 public:
  /// @param zone outlives the texts
  explicit MomentText(const TimeZone& zone) : moments_(zone) {}

  /// @param milliseconds since 1970-01-01 00:00 UTC, in the years 1 to 9999
  void Append(GrowingText& text, std::int64_t milliseconds);

 private:
  /// The minute of a moment.
  void WriteMinute(std::int64_t milliseconds);

  LocalMoments moments_;
  std::int64_t from_ = 0;    ///< the moments, UTC, whose text differs in nothing else
  std::int64_t to_ = 0;      ///< the first one after them
  std::int64_t minute_ = 0;  ///< when their minute begins
  std::array<char, std::string_view("2026-01-31T14:05:00.200+01:00").size()>
      text_{};  ///< but for seconds and milliseconds
};

}  // namespace chartproject
