// Locks what is enabled at the first report, and unlocks just that.
#include "acquire/run/recovery_watch.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "common/environment/language.h"
#include "forms/control.h"
#include "forms/form.h"
#include "forms/form_host.h"

namespace chartproject {

RecoveryWatch::RecoveryWatch(Form& form, Component& component, std::function<void(const std::string&)> show)
    : form_(form),
      component_(component),
      show_(std::move(show)),
      wasOpen_(form.IsShown()),
      progress_([this](int percent) { Report(percent); }) {
  (void)component_.ports.keyboard.EscapePressed();  // an Esc from before is not meant for it
}

RecoveryWatch::~RecoveryWatch() {
  for (Control* control : locked_) control->SetEnabled(true);
  if (shown_) show_({});
}

void RecoveryWatch::Report(int percent) {
  if (!std::exchange(shown_, true)) {
    for (Control* control : form_.Controls()) {
      // Words keep their looks, and so do the containers that they are in.
      constexpr std::array<std::string_view, 4> kNoInput{"Label", "PictureBox", "Frame", "Timer"};
      if (std::ranges::find(kNoInput, control->TypeName()) != kNoInput.end() || !control->Enabled()) continue;
      control->SetEnabled(false);
      locked_.push_back(control);
    }
  }
  show_(FillIn(LoadMessage(component_, Text::kRecoveryProgress), {std::to_string(percent)}));
  form_.Host().KeepAlive();
  if (component_.ports.keyboard.EscapePressed() || (wasOpen_ && !form_.IsShown())) throw RecoveryGivenUp();
}

}  // namespace chartproject
