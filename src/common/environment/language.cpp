// Language base, help file and decimal flag.
#include "common/environment/language.h"

#include <array>
#include <string_view>

#include "common/environment/environment.h"
#include "common/values/numbers.h"
#include "common/values/text.h"

namespace chartproject {

namespace {

struct Language {
  std::string_view name;  ///< as strLanguage holds it
  std::int16_t base;
  std::string_view helpFile;
};

constexpr std::array<Language, kLanguageNames.size()> kLanguages{{
    {kLanguageNames[0], 0, "Kshelpp.HLP"},
    {kLanguageNames[1], 1000, "Kshelpe.HLP"},
    {kLanguageNames[2], 2000, "Kshelps.HLP"},
}};

const Language* FindLanguage(std::string_view name) noexcept {
  for (const Language& language : kLanguages) {
    if (language.name == name) return &language;
  }
  return nullptr;
}

}  // namespace

void SetLanguageBase(Environment& environment) {
  if (const Language* language = FindLanguage(environment.settings.strLanguage)) {
    environment.languageBase = language->base;
  }
}

void SetHelpFile(Environment& environment) {
  if (const Language* language = FindLanguage(environment.settings.strLanguage)) {
    environment.helpFile = JoinPath(environment.settings.strHelps, language->helpFile);
  }
}

void ComputeDecimalPoint(Environment& environment) {
  environment.bDecimalPoint = Trim(SingleText(1.92F, environment.ports.locale.Numbers())) == "1.92";
}

}  // namespace chartproject
