// What the language setting and the user's locale decide: message texts, help file, the decimal separator.
#pragma once

namespace chartproject {

struct Environment;

/// Sets the language base: 0 for strLanguage "Portuguese", 1000 for "English", 2000 for "Spanish", compared exactly.
/// Any other text leaves the base as it is.
void SetLanguageBase(Environment& environment);

/// Sets the help file of the language in the help folder (strHelps); any other language leaves it as it is.
void SetHelpFile(Environment& environment);

/// Sets bDecimalPoint: true when the user's locale writes 1.92 as "1.92".
void ComputeDecimalPoint(Environment& environment);

}  // namespace chartproject
