// A form in its window: shows properties, and hands messages to the part that they concern.
#pragma once

#include <optional>

#include "backends/win32/forms/accessible_names.h"
#include "backends/win32/forms/form_keys.h"
#include "backends/win32/forms/form_pictures.h"
#include "backends/win32/forms/form_place.h"
#include "backends/win32/forms/modal_scope.h"
#include "backends/win32/widgets/tool_tips.h"
#include "forms/form_host.h"

namespace chartproject::win32 {

class Win32FormHost;

class Win32FormView : public FormView {
 public:
  /// Throws RunTimeError when the window or one of a control cannot be made.
  Win32FormView(Form& form, Win32FormHost& host);
  ~Win32FormView() override;
  Win32FormView(const Win32FormView&) = delete;
  Win32FormView& operator=(const Win32FormView&) = delete;

  void ControlChanged(Control& control, Property property) override;
  void FormChanged(FormProperty property) override;
  void MoveFocus(Control& control) override;
  void Show() override;
  void Hide() override;

  /// Keys of forms (Enter, Esc, F1, Tab, access keys) and the wheel, before a message reaches its window.
  /// True when that is settled.
  static bool Translate(MSG& message) noexcept;
  /// Window procedure of the forms' class.
  static LRESULT CALLBACK FormProcedure(HWND window, UINT message, WPARAM word, LPARAM data) noexcept;

 private:
  struct Unmade {};
  Win32FormView(Form& form, Win32FormHost& host, Unmade unmade);
  static LRESULT CALLBACK ControlProcedure(HWND window, UINT message, WPARAM word, LPARAM data, UINT_PTR id,
                                           DWORD_PTR view) noexcept;
  void MakeWindow();
  void ApplyAll();
  void UsabilityChanged(Control& control, Property property);
  LRESULT Message(UINT message, WPARAM word, LPARAM data);
  std::optional<LRESULT> InputMessage(UINT message, WPARAM word, LPARAM data);
  std::optional<LRESULT> WindowMessage(UINT message, WPARAM word, LPARAM data);
  bool ControlMessage(Widget& widget, UINT message, WPARAM word, LPARAM data, LRESULT& result);
  void ShowSystemColors();
  LRESULT WindowGone();

  Form& form_;
  Win32FormHost& host_;
  WidgetContext context_;  ///< its window is null before it is made and after it is destroyed
  FormWidgets widgets_{form_, context_};
  FormFocus focus_{context_};
  FormKeys keys_;
  FormLayout layout_{form_, context_, widgets_};
  FormPlace place_{form_, context_, widgets_, layout_};
  FormPictures pictures_{form_};
  ToolTips toolTips_{context_};
  AccessibleNames names_;
  std::optional<ModalScope> modal_;  ///< while the form is shown
};

}  // namespace chartproject::win32
