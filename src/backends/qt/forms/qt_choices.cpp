// Push buttons, check boxes and drop-down lists.
#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QWheelEvent>
#include <algorithm>
#include <optional>

#include "backends/qt/forms/qt_widgets.h"
#include "backends/qt/qt_text.h"
#include "forms/controls.h"

namespace chartproject {

namespace {

constexpr int kLeastButtonWidth = 88;
constexpr int kLeastListCharacters = 5;
constexpr int kItemMargin = 8;

class ButtonWidget : public ControlWidget {
 public:
  ButtonWidget(CommandButton& button, QPushButton& widget, InputGate& gate)
      : ControlWidget(button, widget), widget_(widget) {
    widget_.setDefault(button.IsDefault());
    QObject::connect(&widget_, &QPushButton::clicked, &widget_,
                     [&button, &gate] { gate.Take(button, [&button] { button.Press(); }); });
  }
  void ShowCaption(const QString& caption) override { widget_.setText(caption); }
  [[nodiscard]] QSize Preferred() const override {
    const int width = widget_.sizeHint().width() + 2 * widget_.fontMetrics().averageCharWidth();
    return {std::max(width, kLeastButtonWidth), FieldHeight()};
  }

 private:
  QPushButton& widget_;
};

class CheckBoxWidget : public ControlWidget {
 public:
  CheckBoxWidget(CheckBox& box, QCheckBox& widget, InputGate& gate)
      : ControlWidget(box, widget), box_(box), widget_(widget) {
    QObject::connect(&widget_, &QCheckBox::clicked, &widget_, [this, &gate](bool checked) {
      widget_.setTristate(false);  // grey is never the user's choice
      gate.Take(box_, [this, checked] { box_.SetValue(checked ? 1 : 0); });
    });
  }
  void Show(Property property) override {
    ControlWidget::Show(property);
    if (property != Property::kValue) return;
    const QSignalBlocker quiet(widget_);
    widget_.setTristate(box_.Value() == 2);
    widget_.setCheckState(box_.Value() == 2 ? Qt::PartiallyChecked : box_.Value() == 1 ? Qt::Checked : Qt::Unchecked);
  }
  void ShowCaption(const QString& caption) override { widget_.setText(caption); }

 private:
  CheckBox& box_;
  QCheckBox& widget_;
};

/// The opened list is as wide as its longest item. While it is closed its arrow keys go to the items that are
/// available, and the wheel belongs to the window.
class DropDown : public QComboBox {
 public:
  explicit DropDown(const ComboBox& combo) : combo_(combo) {}

  void showPopup() override {
    const int scrollBar = count() > maxVisibleItems() ? view()->verticalScrollBar()->sizeHint().width() : 0;
    view()->setTextElideMode(Qt::ElideNone);
    view()->setMinimumWidth(std::max(width(), view()->sizeHintForColumn(0) + scrollBar + 2 * frameWidth_));
    QComboBox::showPopup();
  }

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }

  void keyPressEvent(QKeyEvent* event) override {
    const auto target = Target(event->key());
    if (!target || (event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
      QComboBox::keyPressEvent(event);
    } else if (combo_.IsAvailable(*target)) {
      setCurrentIndex(*target);
    }
  }

 private:
  [[nodiscard]] std::optional<int> Target(int key) const {
    switch (key) {
      case Qt::Key_Up:
        return combo_.NextAvailable(currentIndex(), -1);
      case Qt::Key_Down:
        return combo_.NextAvailable(currentIndex(), 1);
      case Qt::Key_Home:
        return combo_.NextAvailable(-1, 1);
      case Qt::Key_End:
        return combo_.NextAvailable(count(), -1);
      default:
        return std::nullopt;
    }
  }

  const ComboBox& combo_;
  int frameWidth_ = 4;
};

class ComboBoxWidget : public ControlWidget {
 public:
  ComboBoxWidget(ComboBox& combo, DropDown& widget, InputGate& gate)
      : ControlWidget(combo, widget), combo_(combo), widget_(widget) {
    // Lists that fit themselves to their contents would leave the place that the layout gave them.
    widget_.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    widget_.setMaxVisibleItems(16);
    QObject::connect(&widget_, &QComboBox::currentIndexChanged, &widget_,
                     [this, &gate](int index) { gate.Take(combo_, [this, index] { combo_.SetListIndex(index); }); });
  }
  void Show(Property property) override {
    ControlWidget::Show(property);
    if (property != Property::kList && property != Property::kListIndex && property != Property::kAvailability) return;
    const QSignalBlocker quiet(widget_);
    if (property == Property::kList) ShowList();
    if (property != Property::kListIndex) ShowAvailability();
    // Qt selects the first item of a list by itself; the control does not.
    if (widget_.currentIndex() != combo_.ListIndex()) widget_.setCurrentIndex(combo_.ListIndex());
  }
  [[nodiscard]] QSize Preferred() const override {
    QStyleOptionComboBox option;
    option.initFrom(&widget_);
    const QFontMetrics metrics = widget_.fontMetrics();
    const int least = metrics.horizontalAdvance(QLatin1Char('0')) * kLeastListCharacters;
    const QSize contents(std::max(widest_, least), metrics.height());
    return {widget_.style()->sizeFromContents(QStyle::CT_ComboBox, &option, contents, &widget_).width(), FieldHeight()};
  }

 private:
  /// Lists are emptied, or grow by items at their end.
  void ShowList() {
    if (widget_.count() > combo_.ListCount()) {
      widget_.clear();
      widest_ = 0;
    }
    for (int i = widget_.count(); i < combo_.ListCount(); ++i) {
      const QString item = ToQt(combo_.Items()[static_cast<std::size_t>(i)]);
      widget_.addItem(item);
      widest_ = std::max(widest_, widget_.fontMetrics().horizontalAdvance(item) + kItemMargin);
    }
  }

  void ShowAvailability() {
    const QBrush grey = widget_.palette().brush(QPalette::Disabled, QPalette::Text);
    for (int i = 0; i < widget_.count(); ++i) {
      widget_.setItemData(i, combo_.IsAvailable(i) ? QVariant() : QVariant(grey), Qt::ForegroundRole);
    }
  }

  ComboBox& combo_;
  DropDown& widget_;
  int widest_ = 0;  ///< pixels of the longest item
};

}  // namespace

std::unique_ptr<ControlWidget> MakeCommandButton(Control& control, InputGate& gate) {
  return std::make_unique<ButtonWidget>(dynamic_cast<CommandButton&>(control), *new QPushButton, gate);
}

std::unique_ptr<ControlWidget> MakeCheckBox(Control& control, InputGate& gate) {
  return std::make_unique<CheckBoxWidget>(dynamic_cast<CheckBox&>(control), *new QCheckBox, gate);
}

std::unique_ptr<ControlWidget> MakeComboBox(Control& control, InputGate& gate) {
  auto& combo = dynamic_cast<ComboBox&>(control);
  return std::make_unique<ComboBoxWidget>(combo, *new DropDown(combo), gate);
}

}  // namespace chartproject
