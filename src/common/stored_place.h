// Coordinates of windows among the settings.
#pragma once

#include <string>
#include <string_view>

#include "common/environment/environment.h"

namespace chartproject {

/// A stored coordinate in twips; `otherwise` when there is none, or what is stored is not a number.
/// @param section the form's name
[[nodiscard]] double StoredTwips(const Environment& environment, const std::string& section, std::string_view key,
                                 double otherwise);
/// A coordinate as it is stored: whole twips.
[[nodiscard]] std::string WholeTwips(double twips);

}  // namespace chartproject
