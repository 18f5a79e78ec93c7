// Measured values and times between points, as users read them.
#pragma once

#include <string>

#include "platform/locale.h"

namespace chartproject {

/// A number with as many of its digits as are asked for, without zeros at its end; "--" for NaN.
[[nodiscard]] std::string NumberText(double value, int digits, const NumberFormat& format);

/// "hh:mm:ss", or "0.4 s" for less than a minute that is not whole; with a sign where it is negative. The times of day
/// of a file are whole seconds, too coarse for points that follow each other faster.
[[nodiscard]] std::string TimeText(double seconds, const NumberFormat& format);

}  // namespace chartproject
