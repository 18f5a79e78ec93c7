// Number, date and time habits out of the locale's own descriptions.
#include "backends/posix/posix_locale.h"

#include <langinfo.h>
#include <locale.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace chartproject {

namespace {

constexpr int kHoursOfHalfDay = 12;

/// A locale may be written in an 8-bit code; its separators are then read as Latin-1.
std::string Utf8(const char* text, bool isUtf8) {
  std::string result;
  for (const char* at = text; *at != '\0'; ++at) {
    const auto byte = static_cast<unsigned char>(*at);
    if (isUtf8 || byte < 0x80) {
      result += *at;
    } else {
      result += static_cast<char>(0xC0 | (byte >> 6));
      result += static_cast<char>(0x80 | (byte & 0x3F));
    }
  }
  return result;
}

/// The order of day, month and year in a strftime pattern as the letters d, m and Y, and the text between the first
/// two.
void ReadDatePattern(std::string pattern, std::string& order, std::string& separator) {
  if (pattern == "%D") pattern = "%m/%d/%y";
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    if (pattern[at] != '%') {
      if (order.size() == 1) separator += pattern[at];
      continue;
    }
    at = pattern.find_first_not_of("-_0EO", at + 1);  // flags of the conversion
    if (at == std::string::npos) break;
    const char letter = pattern[at];
    if (letter == 'd' || letter == 'e') order += 'd';
    if (letter == 'm' || letter == 'b') order += 'm';
    if (letter == 'y' || letter == 'Y') order += 'Y';
  }
  std::string sorted = order;
  std::sort(sorted.begin(), sorted.end());
  if (sorted != "Ydm" || separator.empty()) {
    order = "Ymd";
    separator = "-";
  }
}

std::string Digits(int value, int width) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "%0*d", width, value);
  return text.data();
}

}  // namespace

PosixLocale::PosixLocale(NumberFormat numbers, const DateTimeFormats& formats)
    : numbers_(std::move(numbers)),
      twelveHours_(formats.time.find("%r") != std::string::npos || formats.time.find("%p") != std::string::npos),
      am_(formats.am),
      pm_(formats.pm) {
  ReadDatePattern(formats.date, dateOrder_, dateSeparator_);
  if (am_.empty() || pm_.empty()) twelveHours_ = false;
}

PosixLocale PosixLocale::FromEnvironment() {
  constexpr int kCategories = LC_NUMERIC_MASK | LC_TIME_MASK | LC_CTYPE_MASK;
  locale_t user = newlocale(kCategories, "", nullptr);
  if (user == nullptr) user = newlocale(kCategories, "C", nullptr);
  const bool isUtf8 = std::string(nl_langinfo_l(CODESET, user)) == "UTF-8";
  const auto text = [&](nl_item item) { return Utf8(nl_langinfo_l(item, user), isUtf8); };
  PosixLocale result(NumberFormat{text(RADIXCHAR), text(THOUSEP)},
                     DateTimeFormats{text(D_FMT), text(T_FMT), text(AM_STR), text(PM_STR)});
  freelocale(user);
  return result;
}

std::string PosixLocale::DateText(const DateTime& moment) const {
  std::string text;
  for (const char part : dateOrder_) {
    if (!text.empty()) text += dateSeparator_;
    if (part == 'd') text += Digits(moment.day, 2);
    if (part == 'm') text += Digits(moment.month, 2);
    if (part == 'Y') text += Digits(moment.year, 4);
  }
  return text;
}

std::string PosixLocale::TimeText(const DateTime& moment) const {
  const std::string rest = ":" + Digits(moment.minute, 2) + ":" + Digits(moment.second, 2);
  if (!twelveHours_) return Digits(moment.hour, 2) + rest;
  const int hour = moment.hour % kHoursOfHalfDay;
  return std::to_string(hour == 0 ? kHoursOfHalfDay : hour) + rest + " " + (moment.hour < kHoursOfHalfDay ? am_ : pm_);
}

}  // namespace chartproject
