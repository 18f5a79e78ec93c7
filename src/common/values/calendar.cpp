// The locale's order of day, month and year, found in a date that it writes.
#include "common/values/calendar.h"

#include <array>
#include <charconv>
#include <chrono>
#include <vector>

#include "common/values/text.h"

namespace chartproject {
namespace {

/// The groups of digits of a text; empty when there are not three.
std::vector<int> ThreeNumbers(std::string_view text) {
  std::vector<int> numbers;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end) {
    int number = 0;
    const auto result = *at >= '0' && *at <= '9' ? std::from_chars(at, end, number)
                                                 : std::from_chars_result{at, std::errc::invalid_argument};
    if (result.ec == std::errc()) numbers.push_back(number);
    at = result.ptr == at ? at + 1 : result.ptr;
  }
  if (numbers.size() != 3) numbers.clear();
  return numbers;
}

std::chrono::year_month_day ToDate(const DateTime& date) {
  return {std::chrono::year(date.year), std::chrono::month(static_cast<unsigned>(date.month)),
          std::chrono::day(static_cast<unsigned>(date.day))};
}

std::chrono::sys_days ToDays(const DateTime& date) {
  return ToDate(date);
}

}  // namespace

std::optional<DateTime> ParseDate(std::string_view text, const Locale& locale) {
  constexpr DateTime kProbe{.year = 2033, .month = 4, .day = 25};
  const std::vector<int> order = ThreeNumbers(locale.DateText(kProbe));
  const std::vector<int> numbers = ThreeNumbers(text);
  if (order.empty() || numbers.empty()) return std::nullopt;
  DateTime date;
  for (std::size_t i = 0; i < order.size(); ++i) {
    int& field = order[i] == kProbe.month ? date.month : order[i] == kProbe.day ? date.day : date.year;
    field = numbers[i];
  }
  if (date.year < 100) date.year += 2000;
  constexpr int kLastYear = 9999;  // a larger one would wrap around in the calendar
  return date.year <= kLastYear && ToDate(date).ok() ? std::optional(date) : std::nullopt;
}

DateTime DaysAfter(const DateTime& date, std::int64_t days) {
  const std::chrono::year_month_day day{ToDays(date) + std::chrono::days(days)};
  return {.year = static_cast<int>(day.year()),
          .month = static_cast<int>(static_cast<unsigned>(day.month())),
          .day = static_cast<int>(static_cast<unsigned>(day.day()))};
}

std::int64_t DaysBetween(const DateTime& from, const DateTime& to) {
  return (ToDays(to) - ToDays(from)).count();
}

std::optional<double> SecondsOfClockText(std::string_view text) {
  text = Trim(text);
  std::array<int, 3> parts{};
  const char* at = text.data();
  const char* const end = at + text.size();
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const auto result = std::from_chars(at, end, parts[i]);
    if (result.ec != std::errc() || parts[i] < 0) return std::nullopt;
    at = result.ptr;
    const bool last = i + 1 == parts.size();
    if (last ? at != end : (at == end || *at != ':')) return std::nullopt;
    ++at;
  }
  return parts[0] * 3600.0 + parts[1] * 60.0 + parts[2];
}

}  // namespace chartproject
