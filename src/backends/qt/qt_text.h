// Texts on their way between the core (UTF-8) and Qt.
#pragma once

#include <QString>
#include <string>

#include <string_view>
#include "texts/texts.h"

namespace chartproject {

[[nodiscard]] inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

/// A file name as the system's own routines take it: the core's names have "\" for "/".
[[nodiscard]] inline QString FileNameToQt(std::string_view name) {
  return ToQt(name).replace(QLatin1Char('\\'), QLatin1Char('/'));
}

/// A text in a language.
[[nodiscard]] inline QString WordToQt(Language language, Text text) {
  return ToQt(std::string(TextIn(language, text)));
}

}  // namespace chartproject
