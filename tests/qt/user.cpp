// Steps of the user, polled with a deadline.
#include "qt/user.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QProcess>
#include <QWidget>

#include "backends/qt/forms/qt_form_view.h"
#include "backends/qt/qt_text.h"

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

User& User::Until(std::string what, std::function<bool()> condition) {
  steps_.push_back({std::move(what), std::move(condition), [] {}});
  return *this;
}

User& User::Then(std::function<void()> action) {
  steps_.back().action = std::move(action);
  return *this;
}

std::function<bool()> User::Ready() const {
  return [this] { return Window().isActiveWindow(); };
}

User& User::Key(const std::string& key) {
  return Until("key " + key, Ready()).Then([key] { SendKey(key); });
}

User& User::Type(const std::string& text) {
  return Until("text " + text, Ready()).Then([text] { XDoTool({"type", "--delay", "2", ToQt(text)}); });
}

User& User::Click(Control& control) {
  const auto shown = [this, &control] { return Window().isActiveWindow() && WidgetOf(control).isVisible(); };
  return Until("click on " + control.Name(), shown).Then([this, &control] {
    const QWidget& widget = WidgetOf(control);
    const QPointF place = QPointF(widget.mapToGlobal(widget.rect().center())) * widget.devicePixelRatioF();
    XDoTool({"mousemove", QString::number(qRound(place.x())), QString::number(qRound(place.y())), "click", "1"});
  });
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
  // Not from within the poll: an action may open a box with its own event loop, in which the poll must continue.
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
