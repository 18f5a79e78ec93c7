// Looking texts up, and filling values in.
#include "texts/texts.h"

#include "texts/text_row.h"

namespace chartproject {

namespace {

std::string_view InLanguage(const TextRow& row, Language language) noexcept {
  switch (language) {
    case Language::kPortuguese:
      return row.portuguese;
    case Language::kSpanish:
      return row.spanish;
    case Language::kEnglish:
      break;
  }
  return row.english;
}

}  // namespace

std::string_view TextIn(Language language, Text text) noexcept {
  auto at = static_cast<std::size_t>(text);
  for (const auto rows : {MessageRows(), AcquireRows(), ChartRows(), WindowRows(), DriveRows(), ErrorRows()}) {
    if (at < rows.size()) return InLanguage(rows[at], language);
    at -= rows.size();
  }
  return {};
}

std::optional<std::string_view> MessageById(int id) noexcept {
  constexpr int kIdsPerLanguage = 1000;
  const int k = id % kIdsPerLanguage;
  for (const LanguageRow& row : kLanguages) {
    if (k < kMessageCount && id == row.messageBase + kPortugueseMessageBase + k) {
      return TextIn(row.language, static_cast<Text>(k));
    }
  }
  return std::nullopt;
}

std::string FillIn(std::string_view text, std::initializer_list<std::string> values) {
  // One pass, so that a "%2" inside a value (a file name) stays as it is.
  std::string filled;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t number = text[i] == '%' && i + 1 < text.size() ? static_cast<std::size_t>(text[i + 1] - '0') : 0;
    if (number >= 1 && number <= values.size()) {
      filled += *(values.begin() + number - 1);
      ++i;
    } else {
      filled += text[i];
    }
  }
  return filled;
}

}  // namespace chartproject
