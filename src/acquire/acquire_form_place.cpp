// The dialog's place on the screen, kept between its displays.
#include <algorithm>
#include <cmath>

#include "acquire/acquire_form.h"
#include "common/values/numbers.h"
#include "forms/form_host.h"

namespace chartproject {

namespace {

constexpr std::string_view kConfSection = "MyConf";
/// Shared with the host's error form.
constexpr std::string_view kMaximizedKey = "strMaximizedfrmErr";

/// A stored coordinate in twips; in the middle of the screen when nothing usable is stored. A place off every screen is
/// the back end's to mend: it knows them all.
double Coordinate(Component& component, const Form& form, std::string_view key, double extent, double screen) {
  const double centred = std::max(0.0, (screen - extent) / 2);
  const NumberFormat& format = component.ports.locale.Numbers();
  const auto stored = component.ports.settings.Read(form.Name(), key);
  return stored && IsNumeric(*stored, format) ? ToDouble(*stored, format) : centred;
}

std::string WholeTwips(double twips) {
  return std::to_string(std::llround(twips));
}

}  // namespace

void AcquireForm::RestoreWindowPlace() {
  std::string& maximized = component_.settings.strMaximizedfrmErr;
  maximized = component_.ports.settings.Read(kConfSection, kMaximizedKey).value_or("No");
  if (maximized == "Yes") {
    SetState(WindowState::kMaximized);
    return;
  }
  const Size screen = component_.forms.ScreenSize();
  SetState(WindowState::kNormal);
  LayoutChanged();  // the window's width follows from its texts, which are in their language now
  SetLeft(Coordinate(component_, *this, "Left", Width(), screen.width));
  SetTop(Coordinate(component_, *this, "Top", Height(), screen.height));
}

void AcquireForm::SaveWindowPlace() {
  SettingsStore& store = component_.ports.settings;
  const bool hasWindow = Width() > 0;  // without one, on the command line, there is no place to keep
  if (State() == WindowState::kNormal && hasWindow) {
    const std::array place{StoredSetting{"Left", WholeTwips(Left())}, StoredSetting{"Top", WholeTwips(Top())}};
    store.Write(Name(), place);
  }
  std::string& maximized = component_.settings.strMaximizedfrmErr;
  maximized = State() == WindowState::kMaximized ? "Yes" : "No";
  store.Write(kConfSection, std::array{StoredSetting{std::string(kMaximizedKey), maximized}});
}

}  // namespace chartproject
