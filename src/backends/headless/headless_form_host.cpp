// The modal loop without windows.
#include "backends/headless/headless_form_host.h"

namespace chartproject {

namespace {

/// Nothing to show.
class HeadlessFormView : public FormView {
 public:
  void ControlChanged(Control& /*control*/, Property /*property*/) override {}
  void FormChanged(FormProperty /*property*/) override {}
  void MoveFocus(Control& control) override {
    Control* before = focus_;
    focus_ = &control;
    if (before != nullptr && before != focus_) before->LeaveFocus();
  }
  void Show() override {}
  void Hide() override {}

 private:
  Control* focus_ = nullptr;
};

}  // namespace

std::unique_ptr<FormView> HeadlessFormHost::CreateView(Form& /*form*/) {
  return std::make_unique<HeadlessFormView>();
}

void HeadlessFormHost::RunModal(Form& form) {
  if (onShown) onShown(form);
  while (form.IsShown()) {
    auto due = Timers().NextDue(false);
    if (!due) {
      if (onIdle) onIdle(form);
      if (!form.IsShown()) break;
      due = Timers().NextDue(false);
      if (!due) {
        form.Unload();
        break;
      }
    }
    waitUntil_(*due);
    if (Timers().FireOne() && onTick && form.IsShown()) onTick(form);
  }
}

}  // namespace chartproject
