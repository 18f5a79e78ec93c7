// The words of message boxes' and file dialogs' own controls, in the three languages.
#pragma once

#include <string>

#include "backends/qt/qt_dialogs.h"

namespace chartproject {

/// @param language the setting strLanguage; English for any other text than the three names
[[nodiscard]] DialogTexts DialogTextsOf(const std::string& language);

}  // namespace chartproject
