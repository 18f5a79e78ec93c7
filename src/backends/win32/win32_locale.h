// How the user writes numbers, dates and times.
#pragma once

#include "platform/locale.h"

namespace chartproject::win32 {

/// The user's settings of the control panel, as they were when the object was made.
class Win32Locale : public Locale {
 public:
  Win32Locale();
  [[nodiscard]] const NumberFormat& Numbers() const override { return numbers_; }
  [[nodiscard]] std::string DateText(const DateTime& moment) const override;
  [[nodiscard]] std::string TimeText(const DateTime& moment) const override;

 private:
  NumberFormat numbers_;
};

}  // namespace chartproject::win32
