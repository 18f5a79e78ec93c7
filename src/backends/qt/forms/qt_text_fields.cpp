// Edit fields: plain, masked, and the boxes of several lines.
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>

#include "backends/qt/forms/qt_widgets.h"
#include "backends/qt/qt_text.h"
#include "forms/controls.h"

namespace chartproject {

namespace {

constexpr int kLinesShown = 8;
constexpr int kTabColumns = 10;

/// Room between a field's border and its text, both sides together.
constexpr int kTextMargin = 16;

int WidthOfDigits(const QWidget& widget, int count) {
  return widget.fontMetrics().horizontalAdvance(QLatin1Char('0')) * count;
}

/// The places of a masked field stay "_" while they are empty, for the control as for the user.
class LineWidget : public ControlWidget {
 public:
  LineWidget(TextControl& field, QLineEdit& widget, InputGate& gate)
      : ControlWidget(field, widget), field_(field), widget_(widget) {
    if (const auto* masked = dynamic_cast<const MaskEdBox*>(&field)) {
      QString mask = ToQt(masked->Mask());
      widget_.setInputMask(mask.replace(QLatin1Char('#'), QLatin1Char('0')) + QStringLiteral(";_"));
    }
    QObject::connect(&widget_, &QLineEdit::textChanged, &widget_,
                     [this, &gate] { gate.Take(field_, [this] { field_.SetText(FromQt(widget_.displayText())); }); });
  }
  void Show(Property property) override {
    ControlWidget::Show(property);
    if (property == Property::kSelection) widget_.selectAll();
    if (property != Property::kText) return;
    widget_.setReadOnly(field_.ReadOnly());
    const QString text = ToQt(field_.Text());
    if (widget_.displayText() == text) return;
    const QSignalBlocker quiet(widget_);
    const int cursor = widget_.cursorPosition();
    widget_.setText(text);
    if (!widget_.inputMask().isEmpty()) widget_.setCursorPosition(widget_.hasFocus() ? cursor : 0);
  }
  [[nodiscard]] QSize Preferred() const override {
    const int characters = widget_.inputMask().isEmpty() ? field_.WidthInCharacters() : widget_.maxLength();
    return {WidthOfDigits(widget_, characters) + kTextMargin, FieldHeight()};
  }

 private:
  TextControl& field_;
  QLineEdit& widget_;
};

class LinesWidget : public ControlWidget {
 public:
  LinesWidget(TextControl& field, QPlainTextEdit& widget, InputGate& gate)
      : ControlWidget(field, widget), field_(field), widget_(widget) {
    widget_.setTabChangesFocus(true);
    widget_.setTabStopDistance(WidthOfDigits(widget_, kTabColumns));
    QObject::connect(&widget_, &QPlainTextEdit::textChanged, &widget_,
                     [this, &gate] { gate.Take(field_, [this] { field_.SetText(FromQt(widget_.toPlainText())); }); });
  }
  void Show(Property property) override {
    ControlWidget::Show(property);
    if (property != Property::kText) return;
    widget_.setReadOnly(field_.ReadOnly());
    QString text = ToQt(field_.Text());
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    if (widget_.toPlainText() == text) return;
    const QSignalBlocker quiet(widget_);
    widget_.setPlainText(text);
  }
  [[nodiscard]] QSize Preferred() const override {
    const int frame = 2 * widget_.frameWidth() + kTextMargin;
    return {WidthOfDigits(widget_, field_.WidthInCharacters()) + frame,
            widget_.fontMetrics().lineSpacing() * kLinesShown + frame};
  }

 private:
  TextControl& field_;
  QPlainTextEdit& widget_;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeTextField(Control& control, InputGate& gate) {
  auto& field = dynamic_cast<TextControl&>(control);
  if (field.MultiLine()) return std::make_unique<LinesWidget>(field, *new QPlainTextEdit, gate);
  return std::make_unique<LineWidget>(field, *new QLineEdit, gate);
}

}  // namespace chartproject
