// The dialog's place on the screen, kept between its displays.
#include "acquire/dialog/window_place.h"

#include <algorithm>
#include <array>

#include "acquire/dialog/acquire_form.h"
#include "common/stored_place.h"
#include "forms/form_host.h"
#include "recording/file/component.h"

namespace chartproject {

namespace {

constexpr std::string_view kConfSection = "MyConf";
/// Shared with the host's error form.
constexpr std::string_view kMaximizedKey = "strMaximizedfrmErr";

/// In the middle of the screen when nothing usable is stored. A place off every screen is corrected by the back end,
/// which knows all screens.
double Coordinate(Component& component, const Form& form, std::string_view key, double extent, double screen) {
  return StoredTwips(component, form.Name(), key, std::max(0.0, (screen - extent) / 2));
}

}  // namespace

void RestoreWindowPlace(Form& form, Component& component) {
  std::string& maximized = component.settings.strMaximizedfrmErr;
  maximized = component.ports.settings.Read(kConfSection, kMaximizedKey).value_or("No");
  const Size screen = component.forms.ScreenSize();
  form.LayoutChanged();  // the window's width follows from its texts, which are in their language now
  form.SetLeft(Coordinate(component, form, "Left", form.Width(), screen.width));  // of a maximised one, to go back to
  form.SetTop(Coordinate(component, form, "Top", form.Height(), screen.height));
  form.SetState(maximized == "Yes" ? WindowState::kMaximized : WindowState::kNormal);
}

void SaveWindowPlace(const Form& form, Component& component) {
  SettingsStore& store = component.ports.settings;
  const bool hasWindow = form.Width() > 0;
  if (form.State() == WindowState::kNormal && hasWindow) {
    const std::array place{StoredSetting{"Left", WholeTwips(form.Left())},
                           StoredSetting{"Top", WholeTwips(form.Top())}};
    store.Write(form.Name(), place);
  }
  std::string& maximized = component.settings.strMaximizedfrmErr;
  maximized = form.State() == WindowState::kMaximized ? "Yes" : "No";
  store.Write(kConfSection, std::array{StoredSetting{std::string(kMaximizedKey), maximized}});
}

}  // namespace chartproject
