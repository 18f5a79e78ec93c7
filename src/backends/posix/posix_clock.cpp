// Local time by the system's time zone; timers by a clock that nobody can set and that goes on while the machine is
// suspended: points that it missed are known to be late.
#include "backends/posix/posix_clock.h"

#include <ctime>

namespace chartproject {

namespace {
constexpr clockid_t kTimers = CLOCK_BOOTTIME;
constexpr std::int64_t kMicrosPerSecond = 1'000'000;
constexpr std::int64_t kNanosPerMicro = 1000;
constexpr std::int64_t kNanosPerMilli = 1'000'000;
}  // namespace

DateTime PosixClock::LocalNow() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  std::tm local{};
  localtime_r(&now.tv_sec, &local);
  constexpr int kTmFirstYear = 1900;
  return DateTime{local.tm_year + kTmFirstYear,
                  local.tm_mon + 1,
                  local.tm_mday,
                  local.tm_hour,
                  local.tm_min,
                  local.tm_sec,
                  static_cast<int>(now.tv_nsec / kNanosPerMilli)};
}

Instant PosixClock::Now() {
  timespec now{};
  clock_gettime(kTimers, &now);
  return Instant(now.tv_sec * kMicrosPerSecond + now.tv_nsec / kNanosPerMicro);
}

void SleepUntil(Instant moment) {
  timespec until{};
  until.tv_sec = static_cast<time_t>(moment.count() / kMicrosPerSecond);
  until.tv_nsec = static_cast<long>(moment.count() % kMicrosPerSecond * kNanosPerMicro);
  clock_nanosleep(kTimers, TIMER_ABSTIME, &until, nullptr);
}

}  // namespace chartproject
