// Controls that paint themselves: charts and lamps.
#include <QContextMenuEvent>
#include <QFontInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

#include "backends/qt/forms/qt_widgets.h"
#include "backends/qt/qt_canvas.h"
#include "backends/qt/qt_text.h"
#include "forms/controls.h"

namespace chartproject {

namespace {

constexpr int kWheelNotch = 120;  ///< eighths of a degree

constexpr std::array<std::pair<int, Key>, 9> kKeys{{{Qt::Key_Left, Key::kLeft},
                                                    {Qt::Key_Right, Key::kRight},
                                                    {Qt::Key_PageUp, Key::kPageUp},
                                                    {Qt::Key_PageDown, Key::kPageDown},
                                                    {Qt::Key_Home, Key::kHome},
                                                    {Qt::Key_End, Key::kEnd},
                                                    {Qt::Key_Escape, Key::kEscape},
                                                    {Qt::Key_Backspace, Key::kBackspace},
                                                    {Qt::Key_Space, Key::kSpace}}};

/// Nothing for a key that no control acts on, and for those that Alt makes the window's.
std::optional<KeyPress> PressOf(const QKeyEvent& event) {
  if (event.modifiers().testFlag(Qt::AltModifier)) return std::nullopt;
  KeyPress press{.shift = event.modifiers().testFlag(Qt::ShiftModifier),
                 .control = event.modifiers().testFlag(Qt::ControlModifier)};
  const int key = event.key();
  if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9) || key == Qt::Key_Plus ||
      key == Qt::Key_Minus) {
    press.key = Key::kCharacter;
    press.character = static_cast<char>(key);  // Qt's numbers are those of the characters
    return press;
  }
  const auto* const found = std::ranges::find(kKeys, key, &std::pair<int, Key>::first);
  if (found == kKeys.end()) return std::nullopt;
  press.key = found->second;
  return press;
}

MouseButton ButtonOf(Qt::MouseButtons buttons) {
  if (buttons.testFlag(Qt::LeftButton)) return MouseButton::kLeft;
  return buttons.testFlag(Qt::MiddleButton) ? MouseButton::kMiddle : MouseButton::kNone;
}

/// A chart's text grows with the text around it, and is never smaller than in a picture file.
double TextScale(const QWidget& widget) {
  constexpr double kUsual = 12;  // pixels of a font of 9 points, the one that charts are laid out for
  return std::max(1.0, QFontInfo(widget.font()).pixelSize() / kUsual);
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
    const MouseInput input = InputOf(*event, event->buttons());
    const auto move = [&] { control_.MouseMoved(input); };
    input.button == MouseButton::kNone ? gate_.Run(control_, move) : gate_.Take(control_, move);
  }
  void leaveEvent(QEvent* /*event*/) override {
    gate_.Run(control_, [&] { control_.MouseLeft(); });
  }
  void mousePressEvent(QMouseEvent* event) override { TakeButton(*event, &DrawnControl::MousePressed); }
  void mouseDoubleClickEvent(QMouseEvent* event) override { TakeButton(*event, &DrawnControl::MouseDoubleClicked); }
  void mouseReleaseEvent(QMouseEvent* event) override { TakeButton(*event, &DrawnControl::MouseReleased); }
  void contextMenuEvent(QContextMenuEvent* event) override {
    OpenMenu(event->reason() == QContextMenuEvent::Mouse ? event->globalPos() : mapToGlobal(rect().center()));
  }
  void wheelEvent(QWheelEvent* event) override {
    const QPoint turned = event->angleDelta();  // to the right is less than 0, as towards the user is
    turned_ += turned.y() != 0 ? turned.y() : turned.x();
    const int notches = turned_ / kWheelNotch;
    turned_ -= notches * kWheelNotch;
    bool used = notches == 0;
    const WheelInput input{.notches = notches,
                           .at = {event->position().x(), event->position().y()},
                           .shift = event->modifiers().testFlag(Qt::ShiftModifier),
                           .control = event->modifiers().testFlag(Qt::ControlModifier)};
    if (notches != 0) gate_.Take(control_, [&] { used = control_.WheelTurned(input); });
    event->setAccepted(used);
  }
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
      return OpenMenu(mapToGlobal(rect().center()));
    }
    bool used = false;
    if (const auto press = PressOf(*event)) gate_.Take(control_, [&] { used = control_.KeyPressed(*press); });
    event->setAccepted(used);
  }
  void keyReleaseEvent(QKeyEvent* event) override {
    const auto press = event->isAutoRepeat() ? std::nullopt : PressOf(*event);
    if (press) gate_.Take(control_, [&] { control_.KeyReleased(*press); });
    event->setAccepted(press.has_value());
  }

 private:
  template <typename Action>
  void Draw(QPaintDevice& device, Action action) {
    QPainter painter(&device);
    QtCanvas canvas(painter, {static_cast<double>(width()), static_cast<double>(height())}, TextScale(*this));
    gate_.Run(control_, [&] { action(canvas); });
  }
  static MouseInput InputOf(const QMouseEvent& event, Qt::MouseButtons buttons) {
    return {.at = {event.position().x(), event.position().y()},
            .shift = event.modifiers().testFlag(Qt::ShiftModifier),
            .control = event.modifiers().testFlag(Qt::ControlModifier),
            .button = ButtonOf(buttons)};
  }
  void TakeButton(const QMouseEvent& event, void (DrawnControl::*input)(const MouseInput&)) {
    const MouseInput taken = InputOf(event, event.button());
    if (taken.button != MouseButton::kNone) gate_.Take(control_, [&] { (control_.*input)(taken); });
  }
  /// The menu goes with its closing; the window's own loop turns meanwhile.
  void OpenMenu(QPoint at) {
    std::vector<MenuItem> items;
    gate_.Take(control_, [&] { items = control_.ContextMenu(); });
    if (items.empty()) return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    FillMenu(*menu, items);
    menu->popup(at);
  }
  void FillMenu(QMenu& menu, const std::vector<MenuItem>& items) {
    for (const MenuItem& item : items) {
      if (item.text.empty()) {
        menu.addSeparator();
        continue;
      }
      const QString text = ToQt(item.text).replace(QLatin1Char('&'), QLatin1String("&&"));
      if (!item.items.empty()) {
        FillMenu(*menu.addMenu(text), item.items);
        continue;
      }
      QAction* action = menu.addAction(item.key.empty() ? text : text + QLatin1Char('\t') + ToQt(item.key));
      action->setEnabled(item.enabled);
      action->setCheckable(item.checked);
      action->setChecked(item.checked);
      // Later, as an entry may open a form: the menu, which is deleted meanwhile, is still at the key that chose it.
      connect(
          action, &QAction::triggered, this,
          [this, id = item.id] { gate_.Take(control_, [&] { control_.MenuChosen(id); }); }, Qt::QueuedConnection);
    }
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
