// The help viewer stays open beside the dialogs, modal ones included.
#include "backends/qt/qt_help.h"

#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QTextBrowser>

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
  const Language language = language_();
  QFile file(FileNameToQt(helpFile));
  if (!file.open(QIODevice::ReadOnly)) {
    Say(Text::kHelpFileMissing, helpFile);
    return;
  }
  const QByteArray bytes = file.readAll();
  if (bytes.contains('\0')) {  // compiled help of another system
    Say(Text::kHelpFileUnreadable, helpFile);
    return;
  }
  if (viewer_.isNull()) {
    viewer_ = new QTextBrowser;
    viewer_->resize(kViewerSize);
    viewer_->setOpenExternalLinks(true);
  }
  // A window opened over a modal one is usable only when it belongs to it.
  viewer_->setParent(QApplication::activeModalWidget(), Qt::Window);
  viewer_->setWindowTitle(WordToQt(language, Text::kHelpTitle));
  const QString text = QString::fromUtf8(bytes);
  if (Qt::mightBeRichText(text)) {
    viewer_->setHtml(text);
  } else {
    viewer_->setPlainText(text);
  }
  viewer_->show();
  viewer_->raise();
  viewer_->activateWindow();
  viewer_->scrollToAnchor(QString::number(context));
}

void QtHelp::Say(Text text, const std::string& helpFile) const {
  QMessageBox box(QApplication::activeWindow());
  box.setWindowTitle(WordToQt(language_(), Text::kHelpTitle));
  box.setIcon(QMessageBox::Information);
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQt(FillIn(TextIn(language_(), text), {helpFile})));
  box.addButton(WordToQt(language_(), Text::kBoxOk), QMessageBox::AcceptRole);
  box.exec();
}

}  // namespace chartproject
