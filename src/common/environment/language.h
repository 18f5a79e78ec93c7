// What the language setting and the user's locale decide: message texts, help file, the decimal separator.
#pragma once

#include <array>
#include <string_view>

namespace chartproject {

struct Environment;

/// The languages that strLanguage names.
inline constexpr std::array<std::string_view, 3> kLanguageNames{"Portuguese", "English", "Spanish"};

/// Sets the language base: 0 for strLanguage "Portuguese", 1000 for "English", 2000 for "Spanish", compared exactly.
/// Any other text leaves the base as it is.
void SetLanguageBase(Environment& environment);

/// Sets the help file of the language in the help folder (strHelps); any other language leaves it as it is.
void SetHelpFile(Environment& environment);

/// Sets bDecimalPoint: true when the user's locale writes 1.92 as "1.92".
void ComputeDecimalPoint(Environment& environment);

}  // namespace chartproject
