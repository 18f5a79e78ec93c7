// Read by the user's locale, written as whole numbers.
#include "common/stored_place.h"

#include <cmath>

#include "common/values/numbers.h"

namespace chartproject {

double StoredTwips(const Environment& environment, const std::string& section, std::string_view key, double otherwise) {
  const NumberFormat& format = environment.ports.locale.Numbers();
  const auto stored = environment.ports.settings.Read(section, key);
  return stored && IsNumeric(*stored, format) ? ToDouble(*stored, format) : otherwise;
}

std::string WholeTwips(double twips) {
  return std::to_string(std::llround(twips));
}

}  // namespace chartproject
