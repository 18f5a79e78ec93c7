// Language, help file and decimal flag.
#include "common/environment/language.h"

#include "common/environment/environment.h"
#include "common/values/numbers.h"
#include "common/values/text.h"

namespace chartproject {

std::string LoadMessage(const Environment& environment, Text text) {
  return std::string(TextIn(environment.language, text));
}

void SetLanguageBase(Environment& environment) {
  environment.language = LanguageNamed(environment.settings.strLanguage).value_or(environment.language);
}

void SetHelpFile(Environment& environment) {
  if (const auto language = LanguageNamed(environment.settings.strLanguage)) {
    environment.helpFile = JoinPath(environment.settings.strHelps, RowOf(*language).helpFile);
  }
}

void ComputeDecimalPoint(Environment& environment) {
  environment.bDecimalPoint = Trim(SingleText(1.92F, environment.ports.locale.Numbers())) == "1.92";
}

}  // namespace chartproject
