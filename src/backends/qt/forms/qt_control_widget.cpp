// What all controls share, and the table from control types to widgets.
#include "backends/qt/forms/qt_control_widget.h"

#include <QCursor>
#include <QFile>
#include <QPixmap>
#include <QTextDocument>
#include <array>

#include "backends/qt/forms/qt_widgets.h"
#include "backends/qt/qt_text.h"
#include "forms/form.h"

namespace chartproject {

ControlWidget::ControlWidget(Control& control, QWidget& widget) : control_(control), widget_(widget) {
  widget_.setObjectName(ToQt(control.Name()));
}

void ControlWidget::ShowAll() {
  for (const Property property :
       {Property::kToolTipText, Property::kRange, Property::kList, Property::kListIndex, Property::kValue,
        Property::kText, Property::kColor, Property::kMousePointer, Property::kEnabled, Property::kVisible}) {
    Show(property);
  }
  if (control_.HasCaption()) ShowCaption(ToQt(control_.Caption()));
}

void ControlWidget::Show(Property property) {
  switch (property) {
    case Property::kToolTipText: {
      // Plain text, even when it looks like markup.
      const QString text = ToQt(control_.ToolTipText());
      widget_.setToolTip(Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text);
      break;
    }
    case Property::kEnabled:
      widget_.setEnabled(control_.Enabled());
      break;
    case Property::kVisible:
      widget_.setVisible(control_.Visible());
      break;
    case Property::kMousePointer:
      ShowPointer();
      break;
    default:
      break;
  }
}

int ControlWidget::FieldHeight() const {
  constexpr int kAroundText = 11;
  return widget_.fontMetrics().height() + kAroundText;
}

void ControlWidget::ShowPointer() {
  switch (control_.Pointer()) {
    case MousePointer::kDefault:
      widget_.unsetCursor();
      break;
    case MousePointer::kHourglass:
      widget_.setCursor(Qt::WaitCursor);
      break;
    case MousePointer::kCustom:
      widget_.setCursor(LoadCursor(FileNameToQt(control_.Owner().ButtonCursorFile())));
      break;
  }
}

std::unique_ptr<ControlWidget> MakeControlWidget(Control& control, InputGate& gate) {
  struct Entry {
    const char* typeName;
    std::unique_ptr<ControlWidget> (*make)(Control&, InputGate&);
  };
  static constexpr std::array kTable{
      Entry{"Label", MakeLabel},           Entry{"Frame", MakeFrame},
      Entry{"PictureBox", MakePictureBox}, Entry{"CommandButton", MakeCommandButton},
      Entry{"CheckBox", MakeCheckBox},     Entry{"ComboBox", MakeComboBox},
      Entry{"TextBox", MakeTextField},     Entry{"RichTextBox", MakeTextField},
      Entry{"MaskEdBox", MakeTextField},   Entry{"ProgressBar", MakeProgressBar},
      Entry{"Slider", MakeSlider},         Entry{"HScrollBar", MakeScrollBar},
      Entry{"UpDown", MakeUpDown},
  };
  for (const Entry& entry : kTable) {
    if (control.TypeName() == entry.typeName) return entry.make(control, gate);
  }
  return MakeDrawn(control, gate);
}

QCursor LoadCursor(const QString& fileName) {
  // Directory entry of the file: its hot spot is at bytes 10 (x) and 12 (y).
  constexpr qsizetype kHotSpot = 10;
  QFile file(fileName);
  if (fileName.isEmpty() || !file.open(QIODevice::ReadOnly)) return Qt::PointingHandCursor;
  const QByteArray bytes = file.readAll();
  QPixmap picture;
  if (bytes.size() < kHotSpot + 4 || !picture.loadFromData(bytes, "ICO")) return Qt::PointingHandCursor;
  const auto word = [&bytes](qsizetype at) {
    return static_cast<unsigned char>(bytes[at]) + 256 * static_cast<unsigned char>(bytes[at + 1]);
  };
  return QCursor(picture, word(kHotSpot), word(kHotSpot + 2));
}

}  // namespace chartproject
