// Making and finding the widgets of a form.
#include "backends/win32/forms/form_widgets.h"

#include <algorithm>
#include <utility>

#include "backends/win32/wide_text.h"
#include "forms/access_keys.h"
#include "forms/form.h"

#include <commctrl.h>

namespace chartproject::win32 {

namespace {

constexpr UINT_PTR kSubclass = 1;

}  // namespace

void FormWidgets::Release() noexcept {
  for (const auto& [window, widget] : byWindow_) RemoveWindowSubclass(window, procedure_, kSubclass);
  byWindow_.clear();
}

void FormWidgets::Make(SUBCLASSPROC procedure, DWORD_PTR data) {
  procedure_ = procedure;
  const Control* before = nullptr;
  for (Control* control : form_.Controls()) {
    std::unique_ptr<Widget> widget = MakeWidget(*control, context_);
    if (!widget) continue;
    // Arrow keys move within a run of buttons or boxes, never out of it.
    const bool sameGroup = before != nullptr && before->TypeName() == control->TypeName() && control->HasCaption();
    if (control->TabStop()) {
      const LONG_PTR style = GetWindowLongPtrW(widget->Window(), GWL_STYLE);
      SetWindowLongPtrW(widget->Window(), GWL_STYLE, sameGroup ? style : style | WS_GROUP);
      before = control;
    }
    byWindow_[widget->Window()] = widget.get();
    SetWindowSubclass(widget->Window(), procedure, kSubclass, data);
    widgets_[control] = std::move(widget);
  }
}

Widget* FormWidgets::Of(HWND window) const {
  const auto found = byWindow_.find(window);
  return found == byWindow_.end() ? nullptr : found->second;
}

Widget* FormWidgets::Of(const Control& control) const {
  const auto found = widgets_.find(&control);
  return found == widgets_.end() ? nullptr : found->second.get();
}

UpDown* FormWidgets::ArrowsOf(const Widget& field) const {
  for (Control* control : form_.Controls()) {
    auto* arrows = dynamic_cast<UpDown*>(control);
    if (arrows != nullptr && arrows->Buddy() == &field.Owner()) return arrows;
  }
  return nullptr;
}

Widget* FormWidgets::FieldNamedBy(const Control& label) const {
  const Control* field = FieldOf(form_, label);
  const auto& controls = form_.Controls();
  auto at = std::find(controls.begin(), controls.end(), field);
  while (at != controls.end() && !(*at)->EffectivelyVisible() && (*at)->TabStop()) ++at;
  return at == controls.end() || !(*at)->TabStop() ? nullptr : Of(**at);
}

void FormWidgets::ShowCaptions(const Control* only) {
  const auto captions = CaptionsWithAccessKeys(form_);
  for (const auto& [control, widget] : widgets_) {
    if ((only != nullptr && control != only) || !control->HasCaption()) continue;
    const auto found = captions.find(control);
    const bool accessKey = found != captions.end();
    widget->ShowCaption(ToWide(accessKey ? found->second : control->Caption()), accessKey);
  }
}

void FormWidgets::ShowFont() {
  for (const auto& [control, widget] : widgets_) {
    SendMessageW(widget->Window(), WM_SETFONT, reinterpret_cast<WPARAM>(context_.font), FALSE);
  }
}

}  // namespace chartproject::win32
