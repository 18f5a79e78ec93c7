// The project that the window shows, and its measurements.
#include "qt/dialog_window.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionComboBox>

#include "backends/qt/qt_text.h"
#include "common/environment/language.h"

namespace chartproject {

namespace {

int ListTextWidth(const QComboBox& list) {
  QStyleOptionComboBox option;
  option.initFrom(&list);
  return list.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &list).width();
}

bool IsCut(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    if (!label->text().isEmpty() && label->toolTip() == label->text()) return false;  // the tip shows the whole
    if (label->wordWrap()) return label->heightForWidth(label->width()) > label->height();
    return label->sizeHint().width() > label->width() || label->sizeHint().height() > label->height();
  }
  if (const auto* button = qobject_cast<const QPushButton*>(&widget))
    return button->sizeHint().width() > button->width();
  if (const auto* list = qobject_cast<const QComboBox*>(&widget)) {
    for (int i = 0; i < list->count(); ++i) {
      if (list->fontMetrics().horizontalAdvance(list->itemText(i)) > ListTextWidth(*list)) return true;
    }
  }
  const auto* group = qobject_cast<const QGroupBox*>(&widget);
  return group != nullptr && group->fontMetrics().horizontalAdvance(group->title()) > group->width();
}

}  // namespace

DialogWindow::DialogWindow(const std::string& language) {
  plant.others = "50";
  component.settings.strLanguage = language;
  component.settings.strFolder = "/home/ana/Press line 4";
  SetLanguageBase(component);
  SetUpDrives(component, fakes);
}

std::vector<std::string> CutTexts(const QWidget& window) {
  std::vector<std::string> cut;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->isVisible() && IsCut(*widget)) cut.push_back(FromQt(widget->objectName()));
  }
  return cut;
}

void SaveScreenshot(QWidget& window, const std::string& name) {
  const QString folder = qEnvironmentVariable("CHARTPROJECT_SCREENSHOTS");
  if (!folder.isEmpty()) window.grab().save(folder + QLatin1Char('/') + ToQt(name) + QStringLiteral(".png"));
}

}  // namespace chartproject
