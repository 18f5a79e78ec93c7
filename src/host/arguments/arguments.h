// Values of the command line, as the user writes them.
#pragma once

#include <string>

#include "platform/clock.h"

namespace chartproject {

enum class TimeUnit;

/// Time between points: its unit and the text that is typed for it.
struct TimeBetweenPoints {
  TimeUnit unit{};
  std::string text;
};

/// "200ms", "2s" or "hh:mm:ss". Throws RefusedError for anything else; the range is the dialog's to judge.
[[nodiscard]] TimeBetweenPoints ParseTimeBetweenPoints(const std::string& text);

/// "2026-01-31 08:00:00" (or with a "T" between). Throws RefusedError for anything else and for days that do not exist.
[[nodiscard]] DateTime ParseDateTime(const std::string& text);

/// A whole number from `least` to `most`. Throws RefusedError that names the option and the range.
[[nodiscard]] int ParseNumber(const std::string& text, const std::string& option, int least, int most);

/// The number of a parameter, 0 to 999, written as 5, 005 or P005. Throws RefusedError that names the option.
[[nodiscard]] int ParseParameter(const std::string& text, const std::string& option);

/// The full name of a file, because dialogs change the current folder. An empty name stays empty.
[[nodiscard]] std::string FullName(const std::string& name);

}  // namespace chartproject
