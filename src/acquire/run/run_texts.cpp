// Texts of the run's length, its expected end and its file's size.
#include "acquire/run/run_texts.h"

#include <algorithm>

#include "common/values/numbers.h"

namespace chartproject {

namespace {

constexpr std::int64_t kSecondsInDay = 86400;
/// About 7000 years: the calendar's years have four digits.
constexpr std::int64_t kFarthest = kSecondsInDay * 365 * 7000;

}  // namespace

std::string DurationText(std::int64_t seconds) {
  const std::int64_t days = seconds / kSecondsInDay;
  const std::string time = FormatSeconds(seconds % kSecondsInDay);
  return days == 0 ? time : std::to_string(days) + " d " + time;
}

DateTime LaterBy(const DateTime& moment, std::int64_t seconds) {
  namespace chrono = std::chrono;
  const chrono::sys_days day = chrono::year(moment.year) / chrono::month(static_cast<unsigned>(moment.month)) /
                               chrono::day(static_cast<unsigned>(moment.day));
  const std::int64_t secondOfDay =
      moment.hour * 3600 + moment.minute * 60 + moment.second + std::min(seconds, kFarthest);
  const chrono::year_month_day date(day + chrono::days(secondOfDay / kSecondsInDay));
  const auto rest = static_cast<int>(secondOfDay % kSecondsInDay);
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          rest / 3600,
          rest / 60 % 60,
          rest % 60,
          0};
}

std::string MomentText(const DateTime& moment, const DateTime& today, const Locale& locale) {
  const std::string time = FormatTimeOfDay(moment.hour, moment.minute, moment.second);
  const bool sameDay = moment.year == today.year && moment.month == today.month && moment.day == today.day;
  return sameDay ? time : locale.DateText(moment) + " " + time;
}

}  // namespace chartproject
