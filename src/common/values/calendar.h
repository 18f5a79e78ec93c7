// Dates as the user's locale writes them, and the days after them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/locale.h"

namespace chartproject {

/// The day of a date in the order that the locale writes; a year of two digits is of this century. Nothing for a text
/// that is not such a date. @return hour, minute and second are 0
[[nodiscard]] std::optional<DateTime> ParseDate(std::string_view text, const Locale& locale);

/// The day that is `days` after a date (before it where negative).
[[nodiscard]] DateTime DaysAfter(const DateTime& date, std::int64_t days);

/// From one date to another; negative when the other is earlier.
[[nodiscard]] std::int64_t DaysBetween(const DateTime& from, const DateTime& to);

/// Seconds since midnight of "hh:mm:ss", blanks around; nothing for any other text. Hours may have any number of
/// digits, as in a time between points.
[[nodiscard]] std::optional<double> SecondsOfClockText(std::string_view text);

}  // namespace chartproject
