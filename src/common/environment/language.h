// What the language setting and the user's locale decide: texts, help file, the decimal separator.
#pragma once

#include <string>

#include "texts/texts.h"

namespace chartproject {

struct Environment;

/// A text in the component's language.
[[nodiscard]] std::string LoadMessage(const Environment& environment, Text text);

/// Sets the language that strLanguage names, compared exactly. Any other text leaves the language as it is.
void SetLanguageBase(Environment& environment);

/// Sets the help file of the language in the help folder (strHelps); any other language leaves it as it is.
void SetHelpFile(Environment& environment);

/// Sets bDecimalPoint: true when the user's locale writes 1.92 as "1.92".
void ComputeDecimalPoint(Environment& environment);

}  // namespace chartproject
