// The help viewer stays open beside the dialogs, modal ones included.
#include "backends/qt/qt_help.h"

#include <QApplication>
#include <QFileInfo>
#include <QMessageBox>

#include "backends/qt/qt_text.h"

namespace chartproject {

namespace {

constexpr QSize kViewerSize{560, 480};

}  // namespace

QtHelp::QtHelp(LanguageSource language) : language_(std::move(language)) {}

QtHelp::~QtHelp() {
  delete viewer_;
}

void QtHelp::ShowContext(const std::string& helpFile, std::int32_t context) {
  const QFileInfo info(FileNameToQt(helpFile));
  if (!info.exists()) {
    Say(Text::kHelpFileMissing, helpFile);
    return;
  }
  const auto bytes = ReadHelpFile(info.absolutePath(), info.fileName());
  if (viewer_.isNull()) {
    viewer_ = new HelpPage([this](const QString& target) { Say(Text::kHelpFileUnreadable, FromQt(target)); });
    viewer_->resize(kViewerSize);
  }
  if (!bytes || !viewer_->Show(*bytes, info.absolutePath())) {
    Say(Text::kHelpFileUnreadable, helpFile);
    return;
  }
  // A window opened over a modal one is usable only when it belongs to it.
  viewer_->setParent(QApplication::activeModalWidget(), Qt::Window);
  viewer_->setWindowTitle(WordToQt(language_(), Text::kHelpTitle));
  viewer_->show();
  viewer_->raise();
  viewer_->activateWindow();
  viewer_->scrollToAnchor(QString::number(context));
}

void QtHelp::Say(Text text, const std::string& name) const {
  QMessageBox box(QApplication::activeWindow());
  box.setWindowTitle(WordToQt(language_(), Text::kHelpTitle));
  box.setIcon(QMessageBox::Information);
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQt(FillIn(TextIn(language_(), text), {name})));
  box.addButton(WordToQt(language_(), Text::kBoxOk), QMessageBox::AcceptRole);
  box.exec();
}

}  // namespace chartproject
