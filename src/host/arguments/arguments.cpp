// Reading values of the command line; what does not fit is refused with an example of what does.
#include "host/arguments/arguments.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <filesystem>
#include <regex>

#include "acquire/dialog/input_rules.h"
#include "drive/parameter_tables.h"
#include "host/arguments/command.h"

namespace chartproject {

TimeBetweenPoints ParseTimeBetweenPoints(const std::string& text) {
  static const std::regex kClockTime("[0-9]{2}:[0-9]{2}:[0-9]{2}");
  static const std::regex kNumber("([0-9]{1,9})(ms|s)");
  std::smatch match;
  if (std::regex_match(text, kClockTime)) return {TimeUnit::kClockTime, text};
  if (std::regex_match(text, match, kNumber)) {
    return {match[2] == "ms" ? TimeUnit::kMilliseconds : TimeUnit::kSeconds, match[1]};
  }
  throw RefusedError("--every: \"" + text + "\" is not a valid time; use for example 200ms, 2s or 00:00:05");
}

DateTime ParseDateTime(const std::string& text) {
  static const std::regex kPattern("([0-9]{4})-([0-9]{2})-([0-9]{2})[ T]([0-9]{2}):([0-9]{2}):([0-9]{2})");
  std::smatch match;
  if (std::regex_match(text, match, kPattern)) {
    const auto number = [&](std::size_t group) { return std::stoi(match[group]); };
    const DateTime moment{number(1), number(2), number(3), number(4), number(5), number(6), 0};
    const std::chrono::year_month_day date{std::chrono::year(moment.year),
                                           std::chrono::month(static_cast<unsigned>(moment.month)),
                                           std::chrono::day(static_cast<unsigned>(moment.day))};
    if (date.ok() && moment.hour < 24 && moment.minute < 60 && moment.second < 60) return moment;
  }
  throw RefusedError("\"" + text + "\" is not a valid date and time; use for example \"2026-01-31 08:00:00\"");
}

int ParseNumber(const std::string& text, const std::string& option, int least, int most) {
  int number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size() || number < least || number > most) {
    throw RefusedError(option + ": \"" + text + "\" is not a whole number from " + std::to_string(least) + " to " +
                       std::to_string(most));
  }
  return number;
}

int ParseParameter(const std::string& text, const std::string& option) {
  const bool named = text.starts_with('P') || text.starts_with('p');
  return ParseNumber(text.substr(named ? 1 : 0), option, 0, kParameterCount - 1);
}

std::string FullName(const std::string& name) {
  if (name.empty()) return name;
  std::string path = name;
  std::replace(path.begin(), path.end(), '\\', '/');
  std::filesystem::path full;
  for (const std::filesystem::path& step : std::filesystem::absolute(path)) {
    std::error_code error;
    if (step == ".") continue;
    if (step == ".." && std::filesystem::is_symlink(full, error)) {
      // The folder above is that of the folder which the link means, as in a shell.
      const std::filesystem::path folder = std::filesystem::canonical(full, error);
      full = error ? full / step : folder.parent_path();
    } else {
      full = step == ".." ? full.parent_path() : full / step;
    }
  }
  return full.string();
}

}  // namespace chartproject
