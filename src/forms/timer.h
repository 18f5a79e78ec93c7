// The timer of a form: the one control type that is never drawn.
#pragma once

#include "forms/control.h"

namespace chartproject {

/// Ticks while it is enabled and its interval is above 0.
class Timer : public Control {
 public:
  Timer(Form& form, std::string_view name);
  ~Timer() override;
  /// Milliseconds; 0 stops the ticks. The platform takes 0 to 65535, else RunTimeError 380.
  [[nodiscard]] int Interval() const noexcept { return interval_; }
  void SetInterval(int milliseconds);
  /// Enabling (or a new interval) starts a new schedule: the first tick is one interval from now.
  void SetEnabled(bool enabled) override;
  [[nodiscard]] bool Armed() const noexcept { return Enabled() && interval_ > 0; }
  /// A timer that looks for changes of the outside, again and again: a host without windows does not wait for it.
  void SetEndless(bool endless) noexcept { endless_ = endless; }
  [[nodiscard]] bool Endless() const noexcept { return endless_; }
  /// True while the tick's handler runs; the next tick waits for it, even when the handler shows a message box.
  [[nodiscard]] bool Firing() const noexcept { return firing_; }
  /// Raises the tick event.
  void Fire();

  Event tick;

 private:
  void Reschedule();

  int interval_ = 0;
  bool firing_ = false;
  bool endless_ = false;
};

}  // namespace chartproject
