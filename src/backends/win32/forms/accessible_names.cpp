// Captions are names by themselves; a painted window's text is its name; other fields are annotated.
#include "backends/win32/forms/accessible_names.h"

#include "backends/win32/wide_text.h"
#include "forms/spoken_name.h"

#include <initguid.h>

#include <oleacc.h>

namespace chartproject::win32 {

AccessibleNames::AccessibleNames() {
  void* services = nullptr;
  CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices, &services);
  services_.reset(static_cast<IAccPropServices*>(services));
}

AccessibleNames::~AccessibleNames() = default;

void AccessibleNames::Release::operator()(IAccPropServices* services) const noexcept {
  services->Release();
}

void AccessibleNames::Show(const FormWidgets& widgets) const {
  for (const auto& [control, widget] : widgets.All()) Show(*widget);
}

void AccessibleNames::Show(const Widget& widget) const {
  const Control& control = widget.Owner();
  if (control.HasCaption()) return;
  const std::wstring name = ToWide(SpokenName(control));
  const HWND window = widget.Window();
  if (dynamic_cast<const DrawnControl*>(&control) != nullptr) {
    wchar_t shown[2] = L"";
    InternalGetWindowText(window, shown, 2);
    if (name.empty() && shown[0] == L'\0') return;
    SetWindowTextW(window, name.c_str());
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, window, OBJID_CLIENT, CHILDID_SELF);
  } else if (services_ && !name.empty()) {
    services_->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_NAME, name.c_str());
  }
}

}  // namespace chartproject::win32
