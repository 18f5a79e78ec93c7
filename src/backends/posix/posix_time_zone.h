// The user's time zone, by TZ or the system's setting.
#pragma once

#include "platform/time_zone.h"

namespace chartproject {

class PosixTimeZone : public TimeZone {
 public:
  [[nodiscard]] std::int64_t UtcSeconds(const DateTime& local) const override;
  [[nodiscard]] std::int64_t OffsetAt(std::int64_t utcSeconds) const override;
};

}  // namespace chartproject
