// Seconds carried into minutes, hours and days.
#include "acquire/run/stopwatch.h"

#include "common/values/numbers.h"

namespace chartproject {

bool Stopwatch::AddSecond() {
  if (++seconds_ < 60) return false;
  seconds_ = 0;
  if (++minutes_ < 60) return false;
  minutes_ = 0;
  if (++hours_ < 24) return false;
  hours_ = 0;
  ++days_;
  return true;
}

std::string Stopwatch::Text() const {
  return FormatTimeOfDay(hours_, minutes_, seconds_);
}

}  // namespace chartproject
