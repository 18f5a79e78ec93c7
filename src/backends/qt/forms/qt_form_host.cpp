// The event loops of the forms.
#include "backends/qt/forms/qt_form_host.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <chrono>
#include <utility>

#include "backends/qt/forms/qt_form_view.h"

namespace chartproject {

QtFormHost::QtFormHost(Clock& clock) : FormHost(clock), clock_(clock) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Tick(); });
}

std::unique_ptr<FormView> QtFormHost::CreateView(Form& form) {
  return std::make_unique<QtFormView>(form);
}

void QtFormHost::RunModal(Form& form) {
  QEventLoop loop;
  while (form.IsShown()) loop.processEvents(QEventLoop::WaitForMoreEvents);
}

Size QtFormHost::ScreenSize() const {
  const QSize size = QGuiApplication::primaryScreen()->availableSize();
  return {size.width() * kTwipsPerPixel, size.height() * kTwipsPerPixel};
}

void QtFormHost::KeepAlive() {
  const bool before = std::exchange(keepingAlive_, true);
  QCoreApplication::processEvents();
  keepingAlive_ = before;
  TimersChanged();
}

void QtFormHost::TimersChanged() {
  const auto due = Timers().NextDue();
  if (!due) {
    timer_.stop();
    return;
  }
  // Rounded up: a timer that wakes too early would find nothing due.
  const auto wait = std::chrono::ceil<std::chrono::milliseconds>(*due - clock_.Now());
  timer_.start(std::max(wait, std::chrono::milliseconds(0)));
}

void QtFormHost::Tick() {
  if (keepingAlive_) return;  // KeepAlive sets the timer again
  // A handler may open a box or a window with its own event loop, in which the other timers go on.
  timer_.start(std::chrono::milliseconds(1));
  Timers().FireOne();
  TimersChanged();
}

}  // namespace chartproject
