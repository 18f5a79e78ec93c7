// Slider, scroll bar and up-down arrows.
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>

#include "backends/qt/forms/qt_widgets.h"
#include "forms/controls.h"

namespace chartproject {

namespace {

constexpr int kSliderWidth = 160;
constexpr int kArrowsWidth = 18;

/// Slider and scroll bar. A range whose maximum is below its minimum runs backwards.
class SliderWidget : public ControlWidget {
 public:
  SliderWidget(RangeControl& range, QAbstractSlider& widget, InputGate& gate)
      : ControlWidget(range, widget), range_(range), widget_(widget) {
    QObject::connect(&widget_, &QAbstractSlider::valueChanged, &widget_, [this, &gate](int value) {
      gate.Take(range_, [this, value] { range_.SetValue(value); });
      // The control may have kept another value than the one the user chose.
      Show(Property::kValue);
    });
  }
  void Show(Property property) override {
    ControlWidget::Show(property);
    if (property != Property::kValue && property != Property::kRange) return;
    const QSignalBlocker quiet(widget_);
    if (property == Property::kRange) {
      const bool backwards = range_.Maximum() < range_.Minimum();
      widget_.setInvertedAppearance(backwards);
      // A scroll bar's vertical keys and wheel go the other way than a slider's: Page Down and Down lead on.
      widget_.setInvertedControls(backwards != (qobject_cast<QScrollBar*>(&widget_) != nullptr));
      widget_.setRange(std::min(range_.Minimum(), range_.Maximum()), std::max(range_.Minimum(), range_.Maximum()));
      widget_.setSingleStep(range_.SmallChange());
      widget_.setPageStep(range_.LargeChange());
    }
    if (widget_.value() != range_.Value()) widget_.setValue(range_.Value());
  }
  [[nodiscard]] QSize Preferred() const override { return {kSliderWidth, Widget().sizeHint().height()}; }

 private:
  RangeControl& range_;
  QAbstractSlider& widget_;
};

/// Shows when it has the focus, which the style does not. Left and Right go where they point, also where Up, Down and
/// the page keys are inverted.
class FocusScrollBar : public QScrollBar {
 public:
  FocusScrollBar() : QScrollBar(Qt::Horizontal) { setFocusPolicy(Qt::StrongFocus); }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() != Qt::Key_Left && event->key() != Qt::Key_Right) return QScrollBar::keyPressEvent(event);
    const bool add = (event->key() == Qt::Key_Right) != invertedAppearance();
    triggerAction(add ? SliderSingleStepAdd : SliderSingleStepSub);
  }
  /// To the right leads on, as towards the user does: inverted controls would turn a wheel that lies the other way.
  void wheelEvent(QWheelEvent* event) override {
    if (event->angleDelta().y() != 0) return QScrollBar::wheelEvent(event);
    QWheelEvent upright(event->position(), event->globalPosition(), event->pixelDelta().transposed(),
                        event->angleDelta().transposed(), event->buttons(), event->modifiers(), event->phase(),
                        event->inverted());
    QScrollBar::wheelEvent(&upright);
    event->setAccepted(upright.isAccepted());
  }
  void paintEvent(QPaintEvent* event) override {
    QScrollBar::paintEvent(event);
    PaintFocus(*this);
  }
};

/// Two small arrows; they look like one control with the field beside them.
class Arrows : public QWidget {
 public:
  Arrows() {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    for (auto* arrow : {&up, &down}) {
      arrow->setAutoRepeat(true);
      arrow->setFocusPolicy(Qt::NoFocus);
      arrow->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
      arrow->setMinimumSize(1, 1);
      column->addWidget(arrow);
    }
    up.setArrowType(Qt::UpArrow);
    down.setArrowType(Qt::DownArrow);
  }
  QToolButton up;
  QToolButton down;
};

class UpDownWidget : public ControlWidget {
 public:
  UpDownWidget(UpDown& upDown, Arrows& widget, InputGate& gate) : ControlWidget(upDown, widget) {
    const auto step = [&upDown, &gate](int direction) {
      gate.Take(upDown, [&upDown, direction] { upDown.Step(direction); });
    };
    QObject::connect(&widget.up, &QToolButton::clicked, &widget, [step] { step(1); });
    QObject::connect(&widget.down, &QToolButton::clicked, &widget, [step] { step(-1); });
  }
  [[nodiscard]] QSize Preferred() const override { return {kArrowsWidth, FieldHeight()}; }
};

}  // namespace

std::unique_ptr<ControlWidget> MakeSlider(Control& control, InputGate& gate) {
  return std::make_unique<SliderWidget>(dynamic_cast<RangeControl&>(control), *new QSlider(Qt::Horizontal), gate);
}

std::unique_ptr<ControlWidget> MakeScrollBar(Control& control, InputGate& gate) {
  return std::make_unique<SliderWidget>(dynamic_cast<RangeControl&>(control), *new FocusScrollBar, gate);
}

std::unique_ptr<ControlWidget> MakeUpDown(Control& control, InputGate& gate) {
  return std::make_unique<UpDownWidget>(dynamic_cast<UpDown&>(control), *new Arrows, gate);
}

}  // namespace chartproject
