// The languages of the component.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace chartproject {

enum class Language : std::uint8_t { kPortuguese, kEnglish, kSpanish };

/// The properties of one language.
struct LanguageRow {
  Language language;
  std::string_view name;      ///< as the setting strLanguage holds it
  std::string_view ownName;   ///< as its speakers write it
  std::string_view helpFile;  ///< name of the help file in the help folder
  std::string_view code;      ///< of the language's translation files, as "pt_BR"
  std::int16_t messageBase;   ///< id of message k is this + 1000 + k
};

/// One row a language, in the order of the enumeration.
inline constexpr std::array<LanguageRow, 3> kLanguages{{
    {Language::kPortuguese, "Portuguese", "Português", "Kshelpp.HLP", "pt_BR", 0},
    {Language::kEnglish, "English", "English", "Kshelpe.HLP", "en", 1000},
    {Language::kSpanish, "Spanish", "Español", "Kshelps.HLP", "es", 2000},
}};

[[nodiscard]] constexpr const LanguageRow& RowOf(Language language) noexcept {
  return kLanguages[static_cast<std::size_t>(language)];
}

/// The language of a name, compared exactly; nothing for any other text.
[[nodiscard]] constexpr std::optional<Language> LanguageNamed(std::string_view name) noexcept {
  for (const LanguageRow& row : kLanguages) {
    if (row.name == name) return row.language;
  }
  return std::nullopt;
}

}  // namespace chartproject
