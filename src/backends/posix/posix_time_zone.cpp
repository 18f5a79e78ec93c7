// Local time by the C library, which knows the rules of every year.
#include "backends/posix/posix_time_zone.h"

#include <ctime>

namespace chartproject {

std::int64_t PosixTimeZone::UtcSeconds(const DateTime& local) const {
  constexpr int kTmFirstYear = 1900;
  std::tm parts{};
  parts.tm_year = local.year - kTmFirstYear;
  parts.tm_mon = local.month - 1;
  parts.tm_mday = local.day;
  parts.tm_hour = local.hour;
  parts.tm_min = local.minute;
  parts.tm_sec = local.second;
  parts.tm_isdst = -1;
  return std::mktime(&parts);
}

std::int64_t PosixTimeZone::OffsetAt(std::int64_t utcSeconds) const {
  const std::time_t moment = utcSeconds;
  std::tm parts{};
  localtime_r(&moment, &parts);
  constexpr std::int64_t kSecondsPerMinute = 60;  // old offsets had seconds, which ISO 8601 cannot write
  return parts.tm_gmtoff / kSecondsPerMinute * kSecondsPerMinute;
}

}  // namespace chartproject
