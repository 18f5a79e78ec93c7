// Port: how the user writes numbers, dates and times.
#pragma once

#include <string>

#include "platform/clock.h"

namespace chartproject {

/// How numbers are written. Both are UTF-8 texts of one character; grouping may be empty.
struct NumberFormat {
  std::string decimalSeparator = ".";
  std::string groupSeparator = ",";
};

class Locale {
 public:
  virtual ~Locale() = default;
  [[nodiscard]] virtual const NumberFormat& Numbers() const = 0;
  /// The system's default short date text, for example 31/01/2026.
  [[nodiscard]] virtual std::string DateText(const DateTime& moment) const = 0;
  /// The system's default time text, which may differ from hh:mm:ss.
  [[nodiscard]] virtual std::string TimeText(const DateTime& moment) const = 0;
};

}  // namespace chartproject
