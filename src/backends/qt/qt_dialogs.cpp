// The boxes, with the title, icon and buttons that their style flags ask for.
#include "backends/qt/qt_dialogs.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "backends/qt/qt_text.h"

namespace chartproject {

namespace {

constexpr std::int32_t kButtonsMask = 0xF;
constexpr std::int32_t kIconMask = 0xF0;
constexpr std::int32_t kFileMustExist = 4096;
constexpr std::int32_t kFileToWrite = 2;
constexpr int kInputWidth = 360;

QMessageBox::Icon IconOf(std::int32_t style) {
  switch (style & kIconMask) {
    case box_style::kCritical:
      return QMessageBox::Critical;
    case box_style::kQuestion:
      return QMessageBox::Question;
    case box_style::kExclamation:
      return QMessageBox::Warning;
    case box_style::kInformation:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

/// "Chart Files (*.cht)|*.cht" pairs as Qt's list of "Chart Files (*.cht)".
QStringList NameFilters(const std::string& filter) {
  const QStringList parts = ToQt(filter).split(QLatin1Char('|'), Qt::SkipEmptyParts);
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString description = parts[i].section(QLatin1Char('('), 0, 0).trimmed();
    QString patterns = parts[i + 1];
    filters.append(description + QStringLiteral(" (") + patterns.replace(QLatin1Char(';'), QLatin1Char(' ')) +
                   QLatin1Char(')'));
  }
  return filters;
}

}  // namespace

std::int16_t QtDialogs::ShowMessageBox(const MessageBoxRequest& request) {
  const Language language = language_();
  QMessageBox box(QApplication::activeWindow());
  box.setWindowTitle(ToQt(request.title));
  box.setIcon(IconOf(request.style));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQt(request.prompt));
  box.setTextInteractionFlags(Qt::TextSelectableByMouse);
  const bool question = (request.style & kButtonsMask) == box_style::kYesNo;
  QPushButton* yes = nullptr;
  if (question) {
    yes = box.addButton(WordToQt(language, Text::kBoxYes), QMessageBox::YesRole);
    box.setDefaultButton(yes);
    box.setEscapeButton(box.addButton(WordToQt(language, Text::kBoxNo), QMessageBox::NoRole));
  } else {
    QPushButton* ok = box.addButton(WordToQt(language, Text::kBoxOk), QMessageBox::AcceptRole);
    box.setDefaultButton(ok);
    box.setEscapeButton(ok);
  }
  if ((request.style & box_style::kHelpButton) != 0) AddHelpButton(box, request, language);
  box.exec();
  if (!question) return box_answer::kOk;
  return box.clickedButton() == yes ? box_answer::kYes : box_answer::kNo;
}

void QtDialogs::AddHelpButton(QMessageBox& box, const MessageBoxRequest& request, Language language) {
  QPushButton* button = box.addButton(WordToQt(language, Text::kBoxHelp), QMessageBox::HelpRole);
  button->disconnect(&box);  // help leaves the box open
  QObject::connect(button, &QPushButton::clicked, &box,
                   [this, &request] { help_.ShowContext(request.helpFile, request.helpContext); });
}

std::string QtDialogs::ShowInputBox(const InputBoxRequest& request) {
  const Language language = language_();
  QDialog dialog(QApplication::activeWindow());
  dialog.setWindowTitle(ToQt(request.title));
  auto* layout = new QVBoxLayout(&dialog);
  auto* prompt = new QLabel(ToQt(request.prompt));
  prompt->setTextFormat(Qt::PlainText);
  auto* edit = new QLineEdit;
  edit->setMinimumWidth(kInputWidth);
  prompt->setBuddy(edit);
  auto* buttons = new QDialogButtonBox;
  buttons->addButton(WordToQt(language, Text::kBoxOk), QDialogButtonBox::AcceptRole)->setDefault(true);
  buttons->addButton(WordToQt(language, Text::kBoxCancel), QDialogButtonBox::RejectRole);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  if (!request.helpFile.empty()) {
    buttons->addButton(WordToQt(language, Text::kBoxHelp), QDialogButtonBox::HelpRole);
    QObject::connect(buttons, &QDialogButtonBox::helpRequested, &dialog,
                     [this, &request] { help_.ShowContext(request.helpFile, 0); });
  }
  layout->addWidget(prompt);
  layout->addWidget(edit);
  layout->addWidget(buttons);
  return dialog.exec() == QDialog::Accepted ? FromQt(edit->text()) : std::string();
}

void TranslateFileDialog(QFileDialog& dialog, Language language) {
  const QString act =
      WordToQt(language, dialog.acceptMode() == QFileDialog::AcceptSave ? Text::kBoxSave : Text::kBoxOpen);
  dialog.setWindowTitle(QString(act).remove('&'));
  dialog.setLabelText(QFileDialog::Accept, act);
  dialog.setLabelText(QFileDialog::Reject, WordToQt(language, Text::kBoxCancel));
  dialog.setLabelText(QFileDialog::LookIn, WordToQt(language, Text::kBoxLookIn));
  dialog.setLabelText(QFileDialog::FileName, WordToQt(language, Text::kBoxFileName));
  dialog.setLabelText(QFileDialog::FileType, WordToQt(language, Text::kBoxFileType));
}

std::optional<std::string> QtDialogs::ShowOpenFile(const OpenFileRequest& request) {
  QFileDialog dialog(QApplication::activeWindow());
  if (!request.initialFolder.empty()) dialog.setDirectory(FileNameToQt(request.initialFolder));
  const bool forWriting = (request.flags & kFileToWrite) != 0;
  dialog.setAcceptMode(forWriting ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);  // whoever asked for the name knows what may be replaced
  dialog.setFileMode((request.flags & kFileMustExist) != 0 ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  TranslateFileDialog(dialog, language_());
  const QStringList filters = NameFilters(request.filter);
  if (!filters.isEmpty()) {
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters[std::clamp<qsizetype>(request.filterIndex - 1, 0, filters.size() - 1)]);
  }
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return FromQt(dialog.selectedFiles().constFirst());
}

}  // namespace chartproject
