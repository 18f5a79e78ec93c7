// The options that stand before the command.
#pragma once

#include <optional>
#include <string>

#include "platform/clock.h"

namespace chartproject {

enum class ClockChoice { kReal, kVirtual };

struct GlobalOptions {
  std::string profileFolder;  ///< full name; empty for the user's configuration folder
  std::string link = "sim";   ///< "sim" or "scenario:FILE"
  ClockChoice clock = ClockChoice::kReal;
  std::optional<DateTime> start;  ///< local time at which a virtual clock starts; the real time when not given
  bool answerYes = false;         ///< the answer to every question
};

}  // namespace chartproject
