// The back end's side of the forms: one view a form, the modal loop, and the timers' clock.
#pragma once

#include <memory>

#include "forms/control.h"
#include "forms/form.h"
#include "forms/timer_queue.h"

namespace chartproject {

class PictureRenderer;

/// A form's window. Holds no rule of any form: shows properties, and hands user input to the controls' setters.
class FormView {
 public:
  virtual ~FormView() = default;
  virtual void ControlChanged(Control& control, Property property) = 0;
  virtual void FormChanged(FormProperty property) = 0;
  virtual void MoveFocus(Control& control) = 0;
  virtual void Show() = 0;
  virtual void Hide() = 0;
};

class FormHost {
 public:
  explicit FormHost(Clock& clock) : timers_(clock) {}
  virtual ~FormHost() = default;
  FormHost(const FormHost&) = delete;
  FormHost& operator=(const FormHost&) = delete;

  [[nodiscard]] virtual std::unique_ptr<FormView> CreateView(Form& form) = 0;
  /// Turns messages and timers until form.IsShown() is false. Calls may nest (a form opened from a form).
  virtual void RunModal(Form& form) = 0;
  /// False for a back end that shows no forms.
  [[nodiscard]] virtual bool ShowsWindows() const noexcept { return true; }
  /// The screen's working area in twips.
  [[nodiscard]] virtual Size ScreenSize() const = 0;
  /// During long work: repaints and takes input for progress and Esc; raises no timer tick.
  virtual void KeepAlive() = 0;

  [[nodiscard]] TimerQueue& Timers() noexcept { return timers_; }
  /// Draws pictures for the clipboard and for files; null where the back end cannot draw.
  [[nodiscard]] virtual PictureRenderer* Pictures() noexcept { return nullptr; }
  /// The next due time may have changed.
  virtual void TimersChanged() {}

 private:
  TimerQueue timers_;
};

}  // namespace chartproject
