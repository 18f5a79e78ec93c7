// The QApplication of the program: no exception leaves an event handler.
#pragma once

#include <QApplication>
#include <QTranslator>
#include <functional>
#include <string>

#include "texts/language.h"

namespace chartproject {

class QtApplication : public QApplication {
 public:
  /// Called with the description of an exception that left an event handler; the program continues.
  using FaultReporter = std::function<void(const std::string& description)>;

  /// @param argc,argv outlive the application, as QApplication asks
  QtApplication(int& argc, char** argv, FaultReporter reporter = nullptr);

  bool notify(QObject* receiver, QEvent* event) override;

  /// Translates Qt's own dialogs where the system has their texts.
  void SetLanguage(Language language);

 private:
  FaultReporter reporter_;
  QTranslator translator_;
  Language language_ = Language::kEnglish;  ///< Qt's own
};

}  // namespace chartproject
