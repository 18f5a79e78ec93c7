// Controls that paint themselves: charts and lamps.
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QToolTip>
#include <QWheelEvent>
#include <cmath>
#include <optional>

#include "backends/qt/forms/qt_widgets.h"
#include "backends/qt/qt_canvas.h"
#include "forms/controls.h"

namespace chartproject {

namespace {

constexpr int kWheelNotch = 120;  ///< eighths of a degree

std::optional<Key> ToKey(int key) {
  switch (key) {
    case Qt::Key_Left:
      return Key::kLeft;
    case Qt::Key_Right:
      return Key::kRight;
    case Qt::Key_PageUp:
      return Key::kPageUp;
    case Qt::Key_PageDown:
      return Key::kPageDown;
    case Qt::Key_Home:
      return Key::kHome;
    case Qt::Key_End:
      return Key::kEnd;
    case Qt::Key_Escape:
      return Key::kEscape;
    default:
      return std::nullopt;
  }
}

/// Caches the painted chart; pointer moves repaint only the overlay. Qt paints into its own buffer, so nothing
/// flickers.
class Surface : public QWidget {
 public:
  Surface(DrawnControl& control, InputGate& gate) : control_(control), gate_(gate) {
    setMouseTracking(true);
    setFocusPolicy(control.TabStop() ? Qt::StrongFocus : Qt::NoFocus);
  }

  void PaintAgain() {
    picture_ = {};
    update();
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    if (picture_.isNull() || pictureSize_ != size() || picture_.devicePixelRatio() != devicePixelRatioF()) {
      pictureSize_ = size();
      picture_ = QPixmap(size() * devicePixelRatioF());
      picture_.setDevicePixelRatio(devicePixelRatioF());
      picture_.fill(Qt::transparent);
      Draw(picture_, [this](Canvas& canvas) { control_.Paint(canvas); });
    }
    QPainter(this).drawPixmap(0, 0, picture_);
    Draw(*this, [this](Canvas& canvas) { control_.PaintOverlay(canvas); });
    if (control_.TabStop()) PaintFocus(*this);
  }
  bool event(QEvent* event) override {
    if (event->type() != QEvent::ToolTip || toolTip().isEmpty()) return QWidget::event(event);
    QToolTip::showText(mapToGlobal(rect().bottomLeft()), toolTip(), this);  // below: it would hide what is pointed at
    return true;
  }
  void changeEvent(QEvent* event) override {
    picture_ = {};  // fonts or colours may be others now
    QWidget::changeEvent(event);
  }
  void mouseMoveEvent(QMouseEvent* event) override {
    gate_.Run(control_, [&] { control_.MouseMoved(InputOf(*event)); });
  }
  void leaveEvent(QEvent* /*event*/) override {
    gate_.Run(control_, [&] { control_.MouseLeft(); });
  }
  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() != Qt::LeftButton) return;
    gate_.Take(control_, [&] { control_.MousePressed(InputOf(*event)); });
  }
  void wheelEvent(QWheelEvent* event) override {
    turned_ += event->angleDelta().y();
    const int notches = turned_ / kWheelNotch;
    turned_ -= notches * kWheelNotch;
    bool used = notches == 0;
    if (notches != 0) gate_.Take(control_, [&] { used = control_.WheelTurned(notches); });
    event->setAccepted(used);
  }
  void keyPressEvent(QKeyEvent* event) override {
    bool used = false;
    if (const auto key = ToKey(event->key())) {
      gate_.Take(control_, [&] { used = control_.KeyPressed(*key, event->modifiers().testFlag(Qt::ShiftModifier)); });
    }
    event->setAccepted(used);
  }

 private:
  template <typename Action>
  void Draw(QPaintDevice& device, Action action) {
    QPainter painter(&device);
    QtCanvas canvas(painter, {static_cast<double>(width()), static_cast<double>(height())});
    gate_.Run(control_, [&] { action(canvas); });
  }
  static MouseInput InputOf(const QMouseEvent& event) {
    return {{event.position().x(), event.position().y()}, event.modifiers().testFlag(Qt::ShiftModifier)};
  }

  DrawnControl& control_;
  InputGate& gate_;
  QPixmap picture_;
  QSize pictureSize_;
  int turned_ = 0;  ///< of a wheel finer than a notch
};

class DrawnWidget : public ControlWidget {
 public:
  DrawnWidget(DrawnControl& control, Surface& widget)
      : ControlWidget(control, widget), control_(control), surface_(widget) {}
  void Show(Property property) override {
    ControlWidget::Show(property);
    if (property == Property::kContent) surface_.PaintAgain();
    if (property == Property::kOverlay) surface_.update();
  }
  [[nodiscard]] QSize Preferred() const override {
    const Size size = control_.PreferredSize();
    return {static_cast<int>(std::ceil(size.width)), static_cast<int>(std::ceil(size.height))};
  }

 private:
  DrawnControl& control_;
  Surface& surface_;
};

}  // namespace

void PaintFocus(QWidget& widget) {
  if (!widget.hasFocus()) return;
  QPainter painter(&widget);
  painter.setPen(widget.palette().color(QPalette::Highlight));
  painter.drawRect(widget.rect().adjusted(0, 0, -1, -1));
}

std::unique_ptr<ControlWidget> MakeDrawn(Control& control, InputGate& gate) {
  auto* drawn = dynamic_cast<DrawnControl*>(&control);
  if (drawn == nullptr) return nullptr;
  return std::make_unique<DrawnWidget>(*drawn, *new Surface(*drawn, gate));
}

}  // namespace chartproject
