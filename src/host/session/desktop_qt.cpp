// The program's windows in Qt.
#include <QFileDialog>
#include <QTimer>
#include <cstdlib>
#include <iostream>

#include "backends/posix/keyboard_signals.h"
#include "backends/qt/forms/qt_form_host.h"
#include "backends/qt/qt_application.h"
#include "backends/qt/qt_clipboard.h"
#include "backends/qt/qt_dialogs.h"
#include "backends/qt/qt_help.h"
#include "backends/qt/qt_keyboard.h"
#include "backends/qt/qt_printer.h"
#include "backends/qt/qt_sound.h"
#include "backends/qt/qt_text.h"
#include "host/session/desktop.h"
#include "host/session/session.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

/// The display by its first name in the environment; empty when there is none.
std::string DisplayName() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    const char* const value = std::getenv(name);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

[[noreturn]] void EndWith(const std::string& sentence) {
  std::cerr << "chartproject: " << sentence << std::endl;
  std::_Exit(static_cast<int>(ExitCode::kRunTimeError));
}

void HandleQtMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  if (type == QtFatalMsg) EndWith(text.toStdString());
  if (type == QtCriticalMsg) std::cerr << "chartproject: " << text.toStdString() << std::endl;
}

/// While the application is made: Qt ends a program whose display it cannot reach, after sentences about its plugins.
void HandleStartMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*text*/) {
  if (type != QtFatalMsg) return;
  const RunTimeError error(error_number::kCannotCreateObject, Text::kDisplayNotReached, {DisplayName()});
  EndWith("error " + std::to_string(error.Number()) + ": " + error.Description());
}

std::optional<std::string> AskForPdfName(Language language, const std::string& proposal) {
  QFileDialog dialog(nullptr, QString(), QString(), QStringLiteral("PDF (*.pdf)"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(QStringLiteral("pdf"));
  dialog.selectFile(FileNameToQt(proposal));  // with its folder
  TranslateFileDialog(dialog, language);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return dialog.selectedFiles().constFirst().toStdString();
}

class QtDesktop : public Desktop {
 public:
  QtDesktop(DesktopMode mode, Clock& clock, std::function<Language()> language)
      : application_(argumentCount_, arguments_.data()),
        language_([this, language = std::move(language)] {
          const Language now = language();
          application_.SetLanguage(now);  // Qt's own words follow before the box that asks is made
          return now;
        }),
        help_(language_),
        dialogs_(help_, language_),
        printer_(mode == DesktopMode::kScreen ? PdfNameSource([this](const std::string& proposal) {
          return AskForPdfName(language_(), proposal);
        })
                                              : PdfNameSource()),
        forms_(clock) {
    if (mode == DesktopMode::kScreen) WatchSignals();
  }

  FormHost& Forms() override { return forms_; }
  Dialogs& Boxes() override { return dialogs_; }
  Sound& Sounds() override { return sound_; }
  Keyboard& Keys() override { return keyboard_; }
  Help& HelpViewer() override { return help_; }
  Clipboard& ClipboardPicture() override { return clipboard_; }
  Printer& Paper() override { return printer_; }
  void PrintToFile(const std::string& fileName) override { printer_.PrintToFile(fileName); }
  void UsePaper(const PaperSize& paper) override { printer_.UsePaper(paper); }

 private:
  /// Ctrl-C and SIGTERM close the windows, as their users would: a recording ends with its points kept.
  void WatchSignals() {
    KeyboardSignals::Watch();
    QObject::connect(&signalTimer_, &QTimer::timeout, &application_, [this] {
      ending_ = signals_.EscapePressed() || ending_;
      // Again at each turn: a window below a modal one closes only after the modal one.
      if (ending_) QApplication::closeAllWindows();
    });
    constexpr int kMilliseconds = 200;
    signalTimer_.start(kMilliseconds);
  }

  // Qt keeps references to both as long as the application lives.
  std::string programName_ = "chartproject";
  std::array<char*, 2> arguments_{programName_.data(), nullptr};
  int argumentCount_ = 1;
  QtApplication application_;
  LanguageSource language_;
  QtHelp help_;
  QtDialogs dialogs_;
  QtSound sound_;
  QtKeyboard keyboard_;
  QtClipboard clipboard_;
  QtPrinter printer_;
  QtFormHost forms_;
  KeyboardSignals signals_;
  QTimer signalTimer_;
  bool ending_ = false;
};

}  // namespace

std::unique_ptr<Desktop> OpenDesktop(DesktopMode mode, Clock& clock, std::function<Language()> language) {
  qInstallMessageHandler(HandleStartMessage);
  if (mode == DesktopMode::kOffscreen) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  } else if (DisplayName().empty()) {
    throw RunTimeError(error_number::kCannotCreateObject, Text::kNoDisplay);
  }
  auto desktop = std::make_unique<QtDesktop>(mode, clock, std::move(language));
  qInstallMessageHandler(HandleQtMessage);
  return desktop;
}

}  // namespace chartproject
