// How the user writes numbers, dates and times, by the environment's locale.
#pragma once

#include <string>

#include "platform/locale.h"

namespace chartproject {

/// What a locale says of dates and times, in the notation of strftime.
struct DateTimeFormats {
  std::string date = "%m/%d/%y";  ///< the locale's short date: only the order and the separator are taken from it
  std::string time = "%H:%M:%S";  ///< the locale's time: only whether hours run to 12 or to 24 is taken from it
  std::string am = "AM";
  std::string pm = "PM";
};

/// Texts have a fixed form, so that the same locale gives the same text on every system:
/// dates are day and month in two digits and the year in four, in the locale's order and with its separator
/// (31/01/2026, 01/31/2026, 2026-01-31); times are "hh:mm:ss", or "h:mm:ss AM" where hours run to 12.
class PosixLocale : public Locale {
 public:
  PosixLocale(NumberFormat numbers, const DateTimeFormats& formats);
  /// By LC_ALL, LC_NUMERIC, LC_TIME and LANG; a locale that the system lacks counts as "C". The locale of the process
  /// stays as it is.
  [[nodiscard]] static PosixLocale FromEnvironment();

  [[nodiscard]] const NumberFormat& Numbers() const override { return numbers_; }
  [[nodiscard]] std::string DateText(const DateTime& moment) const override;
  [[nodiscard]] std::string TimeText(const DateTime& moment) const override;

 private:
  NumberFormat numbers_;
  std::string dateOrder_;  ///< the letters d, m and Y in the locale's order
  std::string dateSeparator_;
  bool twelveHours_;
  std::string am_;
  std::string pm_;
};

}  // namespace chartproject
