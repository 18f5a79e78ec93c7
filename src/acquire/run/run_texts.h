// Texts of the run's length, its expected end and its file's size.
#pragma once

#include <cstdint>
#include <string>

#include "platform/clock.h"
#include "platform/locale.h"

namespace chartproject {

/// "hh:mm:ss", from the first full day on with the days before it: "2 d 03:00:00". @param seconds 0 or more
[[nodiscard]] std::string DurationText(std::int64_t seconds);

/// The moment that lies some seconds after another; whole seconds.
[[nodiscard]] DateTime LaterBy(const DateTime& moment, std::int64_t seconds);

/// "hh:mm:ss", preceded by the date unless it is today.
[[nodiscard]] std::string MomentText(const DateTime& moment, const DateTime& today, const Locale& locale);

}  // namespace chartproject
