// The date and time of day that belong to a moment of the virtual clock.
#include "backends/headless/virtual_clock.h"

namespace chartproject {

DateTime VirtualClock::LocalNow() {
  using namespace std::chrono;
  const sys_days startDay =
      year(start_.year) / month(static_cast<unsigned>(start_.month)) / day(static_cast<unsigned>(start_.day));
  const auto moment = startDay + hours(start_.hour) + minutes(start_.minute) + seconds(start_.second) +
                      milliseconds(start_.millisecond) + duration_cast<milliseconds>(now_);
  const auto today = floor<days>(moment);
  const year_month_day date(today);
  const hh_mm_ss<milliseconds> time(moment - today);
  return DateTime{static_cast<int>(date.year()),
                  static_cast<int>(static_cast<unsigned>(date.month())),
                  static_cast<int>(static_cast<unsigned>(date.day())),
                  static_cast<int>(time.hours().count()),
                  static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()),
                  static_cast<int>(time.subseconds().count())};
}

}  // namespace chartproject
