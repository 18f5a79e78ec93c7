// Steps of the user, polled with a deadline.
#include "qt/user.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QProcess>
#include <QWidget>

#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"

namespace chartproject {

namespace {

constexpr std::chrono::seconds kPatience{20};

void XDoTool(const QStringList& arguments) {
  ASSERT_EQ(QProcess::execute(QStringLiteral("xdotool"), arguments), 0) << "xdotool is needed";
}

}  // namespace

void SendKey(const std::string& key) {
  XDoTool({"key", "--clearmodifiers", ToQt(key)});
}

void SendText(const std::string& text) {
  XDoTool({"type", "--delay", "2", ToQt(text)});
}

void SendClick(const QWidget& widget) {
  const QPointF place = QPointF(widget.mapToGlobal(widget.rect().center())) * widget.devicePixelRatioF();
  XDoTool({"mousemove", QString::number(qRound(place.x())), QString::number(qRound(place.y())), "click", "1"});
}

User& User::When(std::string what, std::function<bool()> condition, std::function<void()> action) {
  steps_.push_back({std::move(what), std::move(condition), std::move(action)});
  return *this;
}

User& User::Key(const std::string& key) {
  return When(
      "key " + key, [this] { return Window().isActiveWindow(); }, [key] { SendKey(key); });
}

User& User::Type(const std::string& text) {
  return When(
      "text " + text, [this] { return Window().isActiveWindow(); }, [text] { SendText(text); });
}

User& User::Click(Control& control) {
  return When(
      "click on " + control.Name(),
      [this, &control] { return Window().isActiveWindow() && WidgetOf(control).isVisible(); },
      [this, &control] { SendClick(WidgetOf(control)); });
}

void User::GoThrough() {
  deadline_ = std::chrono::steady_clock::now() + kPatience;
  QObject::connect(&poll_, &QTimer::timeout, &poll_, [this] { Poll(); });
  poll_.start(5);
  form_.ShowModal();
  poll_.stop();
  EXPECT_EQ(next_, steps_.size()) << "the form closed before: " << (next_ < steps_.size() ? steps_[next_].what : "");
}

void User::Poll() {
  if (!form_.IsShown()) return;
  // There is no window manager here to pass the focus on when a box closes.
  if (QApplication::activeWindow() == nullptr) {
    QWidget* top = QApplication::activeModalWidget();
    (top == nullptr ? &Window() : top)->activateWindow();
    return;
  }
  if (next_ == steps_.size() || !steps_[next_].condition()) {
    if (std::chrono::steady_clock::now() > deadline_) GiveUp();
    return;
  }
  deadline_ = std::chrono::steady_clock::now() + kPatience;
  const auto action = steps_[next_++].action;
  // Not from within the poll: an action may open a box with a loop of its own, where the poll has to go on.
  QTimer::singleShot(0, &poll_, action);
}

void User::GiveUp() {
  ADD_FAILURE() << "waited in vain for: " << (next_ < steps_.size() ? steps_[next_].what : "the form to close");
  if (QWidget* box = QApplication::activeModalWidget(); box != nullptr && box != &Window()) box->close();
  form_.Unload();
}

QWidget& User::WidgetOf(Control& control) const {
  return *dynamic_cast<QtFormView&>(*form_.View()).WidgetOf(control);
}

QWidget& User::Window() const {
  return dynamic_cast<QtFormView&>(*form_.View()).Window();
}

}  // namespace chartproject
