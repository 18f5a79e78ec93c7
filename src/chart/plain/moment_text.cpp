// Local minutes, and the seconds in them.
#include "chart/plain/moment_text.h"

#include <algorithm>
#include <chrono>
#include <cstring>

namespace chartproject {
namespace {

constexpr std::uint32_t kMillisecondsPerSecond = 1000;
constexpr std::int64_t kMillisecondsPerMinute = 60'000;
constexpr std::int64_t kMinutesPerHour = 60;

/// @return the place after the digits. @param value of at most so many digits; 0 or more
template <int digits, class Number>
char* WriteDigits(char* at, Number value) {
  constexpr Number kTen = 10;
  for (int i = digits; i-- > 0; value /= kTen) at[i] = static_cast<char>('0' + value % kTen);
  return at + digits;
}

constexpr std::size_t kSecondsAt = std::string_view("2026-01-31T14:05:").size();
constexpr std::size_t kPointAt = std::string_view("2026-01-31T14:05:00").size();
constexpr std::size_t kDistanceAt = std::string_view("2026-01-31T14:05:00.200").size();

/// "2026-01-31T14:05:" @param minute since 1970
void WriteDateAndMinute(char* at, std::int64_t minute) {
  const std::chrono::sys_time<std::chrono::minutes> moment{std::chrono::minutes(minute)};
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date{day};
  const std::int64_t ofDay = (moment - day).count();
  at = WriteDigits<4>(at, static_cast<int>(date.year()));
  *at++ = '-';
  at = WriteDigits<2>(at, static_cast<unsigned>(date.month()));
  *at++ = '-';
  at = WriteDigits<2>(at, static_cast<unsigned>(date.day()));
  *at++ = 'T';
  at = WriteDigits<2>(at, ofDay / kMinutesPerHour);
  *at++ = ':';
  at = WriteDigits<2>(at, ofDay % kMinutesPerHour);
  *at = ':';
}

/// "+01:00" @param ahead milliseconds
void WriteDistance(char* at, std::int64_t ahead) {
  const std::int64_t minutes = (ahead < 0 ? -ahead : ahead) / kMillisecondsPerMinute;
  *at++ = ahead < 0 ? '-' : '+';
  at = WriteDigits<2>(at, minutes / kMinutesPerHour);
  *at++ = ':';
  WriteDigits<2>(at, minutes % kMinutesPerHour);
}

}  // namespace

void MomentText::Append(GrowingText& text, std::int64_t milliseconds) {
  if (milliseconds < from_ || milliseconds >= to_) WriteMinute(milliseconds);
  char* const out = text.Room(text_.size());
  std::memcpy(out, text_.data(), text_.size());
  const auto rest = static_cast<std::uint32_t>(milliseconds - minute_);
  WriteDigits<2>(out + kSecondsAt, rest / kMillisecondsPerSecond);
  WriteDigits<3>(out + kPointAt + 1, rest % kMillisecondsPerSecond);
  text.EndAt(out + text_.size());
}

void MomentText::WriteMinute(std::int64_t milliseconds) {
  const std::int64_t local = moments_.Local(milliseconds);
  const std::int64_t minute = StepsBelow(local, kMillisecondsPerMinute);
  minute_ = minute * kMillisecondsPerMinute - moments_.Ahead();
  // A minute of a zone whose distance is not whole minutes may begin in one quarter of an hour and end in the next.
  const std::int64_t quarter = StepsBelow(milliseconds, LocalMoments::kQuarter) * LocalMoments::kQuarter;
  from_ = std::max(minute_, quarter);
  to_ = std::min(minute_ + kMillisecondsPerMinute, quarter + LocalMoments::kQuarter);
  text_[kPointAt] = '.';
  WriteDateAndMinute(text_.data(), minute);
  WriteDistance(text_.data() + kDistanceAt, moments_.Ahead());
}

}  // namespace chartproject
