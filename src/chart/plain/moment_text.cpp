// Local minutes, and the seconds in them.
#include "chart/plain/moment_text.h"

#include <chrono>

namespace chartproject {
namespace {

constexpr std::int64_t kMillisecondsPerSecond = 1000;
constexpr std::int64_t kMillisecondsPerMinute = 60'000;
constexpr std::int64_t kMinutesPerHour = 60;

/// @param value of at most so many digits; 0 or more
template <int digits>
void AppendDigits(std::string& text, std::int64_t value) {
  constexpr int kTen = 10;
  char written[digits];
  for (int at = digits; at-- > 0; value /= kTen) written[at] = static_cast<char>('0' + value % kTen);
  text.append(written, digits);
}

}  // namespace

void MomentText::Append(std::string& text, std::int64_t milliseconds) {
  const std::int64_t local = moments_.Local(milliseconds);
  const std::int64_t minute = StepsBelow(local, kMillisecondsPerMinute);
  if (minute != minute_) WriteMinute(minute);
  if (moments_.Ahead() != ahead_) WriteDistance();
  const std::int64_t rest = local - minute * kMillisecondsPerMinute;
  text += minuteText_;
  AppendDigits<2>(text, rest / kMillisecondsPerSecond);
  text += '.';
  AppendDigits<3>(text, rest % kMillisecondsPerSecond);
  text += distance_;
}

void MomentText::WriteDistance() {
  ahead_ = moments_.Ahead();
  const std::int64_t minutes = (ahead_ < 0 ? -ahead_ : ahead_) / kMillisecondsPerMinute;
  distance_ = ahead_ < 0 ? "-" : "+";
  AppendDigits<2>(distance_, minutes / kMinutesPerHour);
  distance_ += ':';
  AppendDigits<2>(distance_, minutes % kMinutesPerHour);
}

void MomentText::WriteMinute(std::int64_t minute) {
  const std::chrono::sys_time<std::chrono::minutes> moment{std::chrono::minutes(minute)};
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date{day};
  const std::int64_t ofDay = (moment - day).count();
  minuteText_.clear();
  AppendDigits<4>(minuteText_, static_cast<int>(date.year()));
  minuteText_ += '-';
  AppendDigits<2>(minuteText_, static_cast<unsigned>(date.month()));
  minuteText_ += '-';
  AppendDigits<2>(minuteText_, static_cast<unsigned>(date.day()));
  minuteText_ += 'T';
  AppendDigits<2>(minuteText_, ofDay / kMinutesPerHour);
  minuteText_ += ':';
  AppendDigits<2>(minuteText_, ofDay % kMinutesPerHour);
  minuteText_ += ':';
  minute_ = minute;
}

}  // namespace chartproject
