// The last boundary for exceptions, and Qt's own translations.
#include "backends/qt/qt_application.h"

#include <QLibraryInfo>
#include <cstdio>
#include <exception>
#include <utility>

#include "backends/qt/qt_text.h"

namespace chartproject {

QtApplication::QtApplication(int& argc, char** argv, FaultReporter reporter)
    : QApplication(argc, argv), reporter_(std::move(reporter)) {
  setQuitOnLastWindowClosed(false);
}

bool QtApplication::notify(QObject* receiver, QEvent* event) {
  std::string description;
  try {
    return QApplication::notify(receiver, event);
  } catch (const std::exception& error) {
    description = error.what();
  } catch (...) {
    description = "unknown exception";
  }
  if (reporter_) {
    reporter_(description);
  } else {
    std::fprintf(stderr, "Unexpected error: %s\n", description.c_str());
  }
  return false;
}

void QtApplication::SetLanguage(Language language) {
  if (language == language_) return;
  language_ = language;
  removeTranslator(&translator_);
  if (language == Language::kEnglish) return;
  const QString name = QStringLiteral("qtbase_") + ToQt(RowOf(language).code);
  if (translator_.load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) installTranslator(&translator_);
}

}  // namespace chartproject
